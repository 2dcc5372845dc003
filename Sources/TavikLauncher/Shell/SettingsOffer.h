// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <functional>

namespace Tavik {

class StatusTray;

/// A start that somebody wished for, who will look for the program: where no tray shows it and no
/// window of ours is open, the settings window offers itself. Main thread only.
class SettingsOffer
{
public:
    SettingsOffer(const StatusTray& tray, MainQueue& mainQueue, std::function<void()> showSettings);

    /// After the time that a desktop takes to show its tray, unless `isFirstOfLogin` denies then.
    void makeSoon(std::function<bool()> isFirstOfLogin);
    /// The user has asked for something by now.
    void withdraw() { m_wait.cancel(); }

private:
    void make();

    const StatusTray& m_tray;
    MainQueue& m_mainQueue;
    std::function<void()> m_showSettings;
    Task m_wait;
};

} // namespace Tavik
