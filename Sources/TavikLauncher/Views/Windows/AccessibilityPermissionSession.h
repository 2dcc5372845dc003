// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QObject>

namespace Tavik {

class AccessibilityPermission;

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
        std::function<void()> onDismiss; ///< Closes the window without the permission.
        std::function<void()> onGranted; ///< May be called more than once.
    };

    AccessibilityPermissionSession(AccessibilityPermission& permission,
                                   MainQueue& mainQueue,
                                   Actions actions);

    [[nodiscard]] Phase phase() const { return m_phase; }
    /// Whether the user is told that the switch is still off.
    [[nodiscard]] bool showsNotEnabledHint() const { return m_showsNotEnabledHint; }

    /// The view has come on the screen.
    void appear();
    void disappear();

    void enableAccess();
    void openSettings();
    void done();
    void skip();

Q_SIGNALS:
    /// The phase or the hint.
    void changed();

private:
    void poll();
    void grant();

    AccessibilityPermission& m_permission;
    MainQueue& m_mainQueue;
    Actions m_actions;
    Phase m_phase = Phase::prompt;
    bool m_showsNotEnabledHint = false;
    Task m_poll;
};

} // namespace Tavik
