// SPDX-License-Identifier: Apache-2.0
#include "engine/program/Cleaning.h"

namespace qf {

std::string refusalText(std::string_view cleanerName, std::string_view reason) {
  return leftAsItWas(std::string(cleanerName) + ": " + std::string(reason));
}

std::string leftAsItWas(std::string_view reason) {
  return std::string(reason) + ". The text was left as it is.";
}

}  // namespace qf
