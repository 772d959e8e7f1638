// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>

namespace qf {

class PersonalLists;

/// What of the person's file cannot be used. Hidden while all is well.
class ListFaults final : public QLabel {
  Q_OBJECT

 public:
  /// The lists outlive the label.
  explicit ListFaults(const PersonalLists& lists, QWidget* parent = nullptr);

 private:
  void update();

  const PersonalLists& _lists;
};

}  // namespace qf
