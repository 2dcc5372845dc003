// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/AccessibilityPermission.h>

#include <QString>

#include <xcb/xcb.h>

namespace Tavik {

class Workspace;

/// An X server asks nobody: whoever is connected may watch the keyboard, provided that it has one
/// of the extensions which tell about it.
class X11AccessibilityPermission final : public AccessibilityPermission
{
public:
    /// `withheldUntil`, unless it is empty, plays a session that refuses until there is a file of
    /// that path.
    X11AccessibilityPermission(xcb_connection_t* connection,
                               Workspace& workspace,
                               QString withheldUntil);

    [[nodiscard]] bool isTrusted() const override;
    void prompt() override { }
    /// Opens the desktop's keyboard settings, where there are any.
    void openSettings() override;

private:
    Workspace& m_workspace;
    QString m_withheldUntil;
    bool m_canWatch;
};

} // namespace Tavik
