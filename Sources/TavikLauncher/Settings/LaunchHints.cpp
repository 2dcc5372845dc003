// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LaunchHints.h>
#include <TavikLauncherPlatform/UserDefaults.h>

#include <algorithm>
#include <array>
#include <limits>

namespace Tavik::LaunchHints {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView launchCountKey = u"LauncherSettings.ringLaunchCount";
constexpr QStringView hasShownIntroductionKey = u"LauncherSettings.hasShownLaunchHintIntro";
constexpr QStringView hintIndexKey = u"LauncherSettings.launchHintIndex";

constexpr std::array<QStringView, 10> allTips{
    u"Some features are off by default — explore Settings to enable more.",
    u"Type any letters to filter the ring by app name.",
    u"Double-tap your shortcut to pin the ring open.",
    u"Arrow keys rotate the selection — press Return to launch.",
    u"Press 1–9 to launch that slot instantly.",
    u"Keep favorites on the ring: Settings → Permanent Apps.",
    u"Fill empty slots with recent apps — toggle it in Settings.",
    u"Turn on \"Search All Apps\" in Settings to find apps beyond the ring.",
    u"Make the ring yours — size, colors, and themes live in Settings.",
    u"A dot inside the menu-bar wheel means an update is ready.",
};

/// Stored counters may hold anything, also the last integer there is.
qlonglong successor(qlonglong count)
{
    return count == std::numeric_limits<qlonglong>::max() ? 0 : count + 1;
}

QString introduction(int interval)
{
    return u"Helpful hints will appear here every %1 launches. Adjust or turn them off in Settings."_s
        .arg(interval);
}

} // namespace

std::span<const QStringView> tips()
{
    return allTips;
}

std::optional<QString> nextHint(UserDefaults& userDefaults, const Preferences& preferences)
{
    const QString countKey = launchCountKey.toString();
    const qlonglong count = successor(userDefaults.integerValue(countKey).value_or(0));
    userDefaults.setObject(countKey, count);
    if (!preferences.showsLaunchHints || preferences.keepsCenterHintVisible) {
        return std::nullopt;
    }
    const QString introductionKey = hasShownIntroductionKey.toString();
    if (!userDefaults.boolValue(introductionKey).value_or(false)) {
        userDefaults.setObject(introductionKey, true);
        return introduction(preferences.interval);
    }
    if (count % std::max(1, preferences.interval) != 0) {
        return std::nullopt;
    }
    const QString indexKey = hintIndexKey.toString();
    const qlonglong index = userDefaults.integerValue(indexKey).value_or(0);
    userDefaults.setObject(indexKey, successor(index));
    constexpr auto tipCount = static_cast<qlonglong>(allTips.size());
    const qlonglong position = (index % tipCount + tipCount) % tipCount;
    return allTips[static_cast<std::size_t>(position)].toString();
}

void takeBack(UserDefaults& userDefaults, const QString& hint)
{
    if (std::ranges::find(allTips, hint) == allTips.end()) {
        userDefaults.setObject(hasShownIntroductionKey.toString(), false);
    }
}

} // namespace Tavik::LaunchHints
