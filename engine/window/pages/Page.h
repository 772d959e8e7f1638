// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>
#include <optional>

#include "foundation/Error.h"

namespace qf {

/// One page of the window.
class Page : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  /// The page has come into view, or its window has come to the front: what others may have changed
  /// without a word is read again.
  virtual void refresh() {}

 signals:
  /// A change could not be made: the window says why. An empty text takes that back.
  void problem(const QString& text);

 protected:
  /// Says why a change failed, or takes the last failure back.
  void report(const std::optional<Error>& error);
};

}  // namespace qf
