// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace qf {

// The names by which the programs, their shared data and their notifications are known.

inline constexpr std::string_view kitIdentifier = "org.quenfold.kit";
inline constexpr std::string_view engineBundleIdentifier = "org.quenfold.Quenfold";
inline constexpr std::string_view agentBundleIdentifier = "org.quenfold.Menu";
inline constexpr std::string_view applicationGroupIdentifier = "group.org.quenfold";

// Between processes, on the distributed notification centre.
inline constexpr std::string_view SharedGroupsDataChangedNotification =
    "org.quenfold.kit.SharedGroupsDataChangedNotification";
inline constexpr std::string_view SharedQFMenuPrefsChangedNotification =
    "org.quenfold.kit.SharedQFMenuPrefsChangedNotification";

// Inside one process, on the default notification centre.
inline constexpr std::string_view ClientGroupsDataChangedNotification =
    "org.quenfold.kit.ClientGroupsDataChangedNotification";
inline constexpr std::string_view ClientQFMenuPrefsChangedNotification =
    "org.quenfold.kit.ClientQFMenuPrefsChangedNotification";

// In the user-defaults domain that the group shares: booleans, NO by default.
inline constexpr std::string_view launchAsAgentDefault = "qfkLaunchAsAgent";
inline constexpr std::string_view showPreferencesDefault = "qfkShowPreferences";

// In the agent's own domain.
inline constexpr std::string_view selectedGroupDefault = "SelectedGroup";

}  // namespace qf
