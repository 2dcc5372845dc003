// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/AccessibilityPermission.h>

#include <optional>

namespace Tavik {

class Workspace;

/// The permission as the kind of session gives it once and for all: no desktop here has a switch
/// for it. Where it is not given, every desktop can still bind a command to a key.
class SessionAccessibilityPermission final : public AccessibilityPermission
{
public:
    struct Session
    {
        /// What the session does not let a program do, as a sentence; absent when it is no
        /// hindrance.
        std::optional<QString> limit;
        QString desktop; ///< $XDG_CURRENT_DESKTOP.
        QString command; ///< See OwnProgram::command.
    };

    SessionAccessibilityPermission(Workspace& workspace, Session session);

    [[nodiscard]] static QString waylandLimit();

    [[nodiscard]] bool isTrusted() const override { return !m_session.limit; }
    [[nodiscard]] Obstacle obstacle() const override;
    void prompt() override { }
    /// Opens the settings of the desktop's own shortcuts.
    void openSettings(std::function<void()> failed) override;

private:
    [[nodiscard]] std::optional<QString> settingsPath() const;

    Workspace& m_workspace;
    Session m_session;
};

} // namespace Tavik
