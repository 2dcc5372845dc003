// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/AccessibilityPermission.h>

#include <xcb/xcb.h>

namespace Tavik {

class Workspace;

/// An X server asks nobody: whoever is connected may watch the keyboard, provided that it has one
/// of the extensions which tell about it.
class X11AccessibilityPermission final : public AccessibilityPermission
{
public:
    /// `isWithheld` plays a session that refuses.
    X11AccessibilityPermission(xcb_connection_t* connection, Workspace& workspace, bool isWithheld);

    [[nodiscard]] bool isTrusted() const override { return m_isTrusted; }
    void prompt() override { }
    /// Opens the desktop's keyboard settings, where there are any.
    void openSettings() override;

private:
    Workspace& m_workspace;
    bool m_isTrusted;
};

} // namespace Tavik
