// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LaunchHints.h>
#include <TavikLauncherPlatform/Texts.h>
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

constexpr std::array<const char*, 10> allTips{
    QT_TRANSLATE_NOOP("Tavik::Texts",
                      "Some features are off by default — explore Settings to enable more."),
    QT_TRANSLATE_NOOP("Tavik::Texts", "Type any letters to filter the ring by app name."),
    QT_TRANSLATE_NOOP("Tavik::Texts", "Double-tap your shortcut to pin the ring open."),
    QT_TRANSLATE_NOOP("Tavik::Texts", "Arrow keys rotate the selection — press Return to launch."),
    QT_TRANSLATE_NOOP("Tavik::Texts", "Press 1–9 to launch that slot instantly."),
    QT_TRANSLATE_NOOP("Tavik::Texts", "Keep favorites on the ring: Settings → Permanent Apps."),
    QT_TRANSLATE_NOOP("Tavik::Texts", "Fill empty slots with recent apps — toggle it in Settings."),
    QT_TRANSLATE_NOOP("Tavik::Texts",
                      "Turn on \"Search All Apps\" in Settings to find apps beyond the ring."),
    QT_TRANSLATE_NOOP("Tavik::Texts",
                      "Make the ring yours — size, colors, and themes live in Settings."),
    QT_TRANSLATE_NOOP("Tavik::Texts", "A dot inside the menu-bar wheel means an update is ready."),
};

/// Stored counters may hold anything, also the last integer there is.
qlonglong successor(qlonglong count)
{
    return count == std::numeric_limits<qlonglong>::max() ? 0 : count + 1;
}

QString introduction(int interval)
{
    return Texts::
        tr("Helpful hints will appear here every %1 launches. Adjust or turn them off in Settings.")
            .arg(interval);
}

} // namespace

QStringList tips()
{
    QStringList said;
    for (const char* tip : allTips) {
        said.append(Texts::tr(tip));
    }
    return said;
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
    return Texts::tr(allTips[static_cast<std::size_t>(position)]);
}

void takeBack(UserDefaults& userDefaults, const QString& hint)
{
    if (!tips().contains(hint)) {
        userDefaults.setObject(hasShownIntroductionKey.toString(), false);
    }
}

} // namespace Tavik::LaunchHints
