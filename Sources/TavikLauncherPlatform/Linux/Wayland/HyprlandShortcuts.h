// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Desktops/ShortcutSource.h>
#include <TavikLauncherPlatform/Linux/Wayland/WaylandConnection.h>

#include <memory>

namespace Tavik {

class UserDefaults;

/// The trigger as a shortcut that Hyprland knows by a name. Which keys it has only the user's own
/// configuration says, and nobody tells whether it says any: the line for it is offered until the
/// shortcut has been heard once. On a connection of its own, since Hyprland ends that of a program
/// whose name is taken.
class HyprlandShortcuts final : public ShortcutSource
{
public:
    /// Null where the compositor has no such shortcuts. `userDefaults` remember that it was heard.
    [[nodiscard]] static std::unique_ptr<HyprlandShortcuts> make(UserDefaults& userDefaults);
    ~HyprlandShortcuts() override;
    HyprlandShortcuts(const HyprlandShortcuts&) = delete;
    HyprlandShortcuts& operator=(const HyprlandShortcuts&) = delete;

    /// Its lines bind a key; what it makes of modifiers alone differs between its versions.
    [[nodiscard]] bool hearsChords() const override { return false; }
    [[nodiscard]] bool hidesKeys() const override { return false; }
    [[nodiscard]] bool serves() const override;
    [[nodiscard]] Means means() const override;
    [[nodiscard]] bool tellsReleases() const override { return true; }
    [[nodiscard]] bool awaitsConsent() const override { return m_isChord; }
    [[nodiscard]] QString request() const override;
    [[nodiscard]] QString line() const override { return m_line; }
    int bind(const KeyEvents::HotKey& hotKey, Handlers handlers) override;
    void unbind() override;
    [[nodiscard]] int status(const KeyEvents::HotKey& hotKey) override;

private:
    struct Listeners;

    explicit HyprlandShortcuts(UserDefaults& userDefaults);

    UserDefaults& m_userDefaults;
    WaylandConnection m_connection;
    WaylandObject<hyprland_global_shortcuts_manager_v1> m_manager;
    WaylandObject<hyprland_global_shortcut_v1> m_shortcut;
    QString m_line; ///< Of Hyprland's configuration, for what was asked for last.
    Handlers m_handlers;
    bool m_isChord = false; ///< What was asked for last.
};

} // namespace Tavik
