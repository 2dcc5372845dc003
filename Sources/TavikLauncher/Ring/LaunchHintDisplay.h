// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QString>

#include <functional>
#include <optional>

namespace Tavik {

class LauncherSettings;

/// The hint that the ring shows for a few seconds after some summons.
class LaunchHintDisplay
{
public:
    /// `onChange` is called whenever `launchHint` becomes another one.
    LaunchHintDisplay(LauncherSettings& settings,
                      MainQueue& mainQueue,
                      std::function<void()> onChange);

    [[nodiscard]] const std::optional<QString>& launchHint() const { return m_launchHint; }

    /// For a summon by the user, which counts: shows its hint, or none when it has none.
    void presentLaunchHintIfDue();
    void dismissLaunchHint();
    /// For the end: leaves the hint as it is and calls nobody any more.
    void cancel() { m_launchHintTask.cancel(); }

private:
    LauncherSettings& m_settings;
    MainQueue& m_mainQueue;
    std::function<void()> m_onChange;
    std::optional<QString> m_launchHint;
    double m_shownSince = 0; ///< On the main queue's clock.
    Task m_launchHintTask;
};

} // namespace Tavik
