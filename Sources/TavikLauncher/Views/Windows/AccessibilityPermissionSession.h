// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/AccessibilityPermission.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QObject>

namespace Tavik {

/// What happens while the user is asked for the permission to watch the keyboard: sends them to
/// where it is given, and notices by itself that it was. Owned by the window's view.
class AccessibilityPermissionSession final : public QObject
{
    Q_OBJECT

public:
    enum class Phase {
        prompt,
        waitingForUser,
        granted
    };
    struct Actions
    {
        /// The user wants it; called before the system is asked.
        std::function<void()> onEnable;
        std::function<void()> onDismiss; ///< Closes the window without the permission.
        std::function<void()> onGranted; ///< May be called more than once.
    };

    AccessibilityPermissionSession(AccessibilityPermission& permission,
                                   MainQueue& mainQueue,
                                   Actions actions);

    [[nodiscard]] Phase phase() const { return m_phase; }
    /// Whether the user is told that the switch is still off.
    [[nodiscard]] bool showsNotEnabledHint() const { return m_showsNotEnabledHint; }
    /// What stands in the way, as it was found a second ago at most.
    [[nodiscard]] const AccessibilityPermission::Obstacle& obstacle() const { return m_obstacle; }
    /// Whether `openSettings` has given the command instead.
    [[nodiscard]] bool hasCopiedCommand() const { return m_hasCopiedCommand; }

    /// The view has come on the screen.
    void appear();
    void disappear();

    void enableAccess();
    /// Where no settings open, puts what makes the desktop summon the ring into the clipboard.
    void openSettings();
    void done();
    void skip();

Q_SIGNALS:
    /// The phase, the obstacle, the hint, or that the command was copied.
    void changed();

private:
    void copyCommand();
    void poll();
    void grant();

    AccessibilityPermission& m_permission;
    MainQueue& m_mainQueue;
    Actions m_actions;
    Phase m_phase = Phase::prompt;
    AccessibilityPermission::Obstacle m_obstacle;
    bool m_showsNotEnabledHint = false;
    bool m_hasCopiedCommand = false;
    Task m_poll;
};

} // namespace Tavik
