// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/cleaners/TextPart.h"

namespace qf {

struct PhoneNumber {
  TextPart place;
  std::string international;  ///< as ITU-T E.123 writes it: "+49 30 1234567"
};

/// The valid telephone numbers in a text, in their order. One without "+" is read as people of the
/// locale's region dial it; in a locale without a region only those with "+" are found.
std::vector<PhoneNumber> findPhoneNumbers(std::string_view text);

}  // namespace qf
