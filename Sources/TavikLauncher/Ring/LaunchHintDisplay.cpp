// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/LaunchHintDisplay.h>
#include <TavikLauncher/Settings/LauncherSettings.h>

#include <utility>

namespace Tavik {

namespace {
constexpr double shownSeconds = 6.0;
constexpr double leastSeconds = 1.0; // Nobody reads faster.
} // namespace

LaunchHintDisplay::LaunchHintDisplay(LauncherSettings& settings,
                                     MainQueue& mainQueue,
                                     std::function<void()> onChange)
    : m_settings(settings)
    , m_mainQueue(mainQueue)
    , m_onChange(std::move(onChange))
{ }

void LaunchHintDisplay::presentLaunchHintIfDue()
{
    const std::optional<QString> hint = m_settings.launchHintForThisSummon();
    if (!hint) {
        dismissLaunchHint();
        return;
    }
    m_launchHint = hint;
    m_shownSince = m_mainQueue.systemUptime();
    m_launchHintTask = m_mainQueue.after(shownSeconds, [this] { dismissLaunchHint(); });
    m_onChange();
}

void LaunchHintDisplay::dismissLaunchHint()
{
    m_launchHintTask.cancel();
    if (const auto hint = std::exchange(m_launchHint, std::nullopt)) {
        if (m_mainQueue.systemUptime() - m_shownSince < leastSeconds) {
            m_settings.launchHintWasNotSeen(*hint);
        }
        m_onChange();
    }
}

} // namespace Tavik
