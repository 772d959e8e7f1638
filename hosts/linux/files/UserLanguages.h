// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace qf {

/// The languages in which the person wants texts, the best first, as "de_AT" and then "de", in a
/// variant as "sr_RS@latin", "sr_RS", "sr@latin" and "sr": by
/// LANGUAGE (a list) unless the locale is "C", then by the first of LC_ALL, LC_MESSAGES and LANG
/// that is set. They end before English, in which all texts are there.
std::vector<std::string> userLanguages();

}  // namespace qf
