// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

namespace Tavik {

class UserDefaults;

/// The tips shown in the ring's centre: an introduction once, then one of ten in turn at every
/// so-manieth summon. Summons and tips are counted in the user defaults.
namespace LaunchHints {

struct Preferences
{
    bool showsLaunchHints = true;
    bool keepsCenterHintVisible = false;
    int interval = 25; ///< In summons.
};

/// The tips in the order in which they take turns.
[[nodiscard]] QStringList tips();
/// Counts a summon; the tip to show at it, or nothing. To be asked exactly once per summon.
[[nodiscard]] std::optional<QString> nextHint(UserDefaults& userDefaults,
                                              const Preferences& preferences);

/// `hint` came and went unread. A tip comes round again; the introduction is shown anew.
void takeBack(UserDefaults& userDefaults, const QString& hint);

} // namespace LaunchHints

} // namespace Tavik
