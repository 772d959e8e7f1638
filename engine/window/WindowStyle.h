// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QProxyStyle>

namespace qf {

/// The usual style, with the boxes of what can be checked outlined so that they are seen on a dark
/// window too.
class WindowStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
};

}  // namespace qf
