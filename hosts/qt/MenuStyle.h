// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QProxyStyle>

namespace qf {

/// The user's style, with menus that are made for lists of any length: one that is longer than the
/// screen scrolls, and a row that cannot be picked stays readable.
class MenuStyle final : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override;
};

}  // namespace qf
