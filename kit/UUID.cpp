// SPDX-License-Identifier: Apache-2.0
#include "kit/UUID.h"

#include <random>
#include <string_view>

namespace qf {

std::string makeUUIDString() {
  static constexpr char digits[] = "0123456789ABCDEF";
  // x is random; y is 8, 9, A or B: the variant, in the place of the version's own digit 4.
  static constexpr std::string_view form = "xxxxxxxx-xxxx-4xxx-yxxx-xxxxxxxxxxxx";
  std::random_device random;
  std::string uuid(form);
  for (char& c : uuid) {
    if (c == 'x') c = digits[random() & 15];
    if (c == 'y') c = digits[8 | (random() & 3)];
  }
  return uuid;
}

}  // namespace qf
