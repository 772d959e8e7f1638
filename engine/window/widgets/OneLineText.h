// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QValidator>

namespace qf {

/// For fields whose text is published in lists: line ends and tabs become blanks, and other control
/// characters, which a list cannot hold, are left out, however the text was put in.
class OneLineText final : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& text, int& cursor) const override;
};

}  // namespace qf
