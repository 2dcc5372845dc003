// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/HotKeyConfig.h>

#include <functional>
#include <memory>

namespace Tavik {

class HotKeyRegistration;
class KeyEvents;

/// Turns the trigger shortcut into presses, whichever application is frontmost. One instance per
/// registration; owned by the application delegate. Serves shortcuts with a key; a shortcut of
/// modifiers alone is refused by `registerHotKey`.
class GlobalHotKey
{
public:
    /// `onPress` receives the time of the press in seconds of system uptime.
    GlobalHotKey(KeyEvents& keyEvents, HotKeyConfig config, std::function<void(double)> onPress);
    ~GlobalHotKey();
    GlobalHotKey(const GlobalHotKey&) = delete;
    GlobalHotKey& operator=(const GlobalHotKey&) = delete;

    /// Asks the system for the shortcut; returns whether presses will be delivered.
    bool registerHotKey();
    /// Undoes the registration.
    void unregister();

private:
    KeyEvents& m_keyEvents;
    HotKeyConfig m_config;
    std::function<void(double)> m_onPress;
    std::unique_ptr<HotKeyRegistration> m_registration;
};

} // namespace Tavik
