// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

/// The web address without the parameters of TrackingParameters.txt. Everything else stays as it is
/// spelt, "&amp;" between parameters included.
std::string withoutTracking(std::string_view address);

}  // namespace qf
