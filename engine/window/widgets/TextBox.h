// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPlainTextEdit>
#include <string>

namespace qf {

/// A field of several lines that gives back every character as it was put in: no-break spaces too,
/// and, until somebody edits it, line ends of every kind.
class TextBox final : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;

  /// Leaves the cursor alone where the field holds that already.
  void setText(const std::string& text);
  std::string text() const;

 protected:
  /// Not what its owner marks as a secret.
  bool canInsertFromMimeData(const QMimeData* source) const override;

 private:
  QString shown() const;

  std::string _text;  ///< what was put in
  QString _shown;     ///< what the field made of it
};

}  // namespace qf
