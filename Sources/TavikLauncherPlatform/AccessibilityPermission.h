// SPDX-License-Identifier: MIT
#pragma once

namespace Tavik {

/// Whether the session lets us watch modifier keys while other programs have the keyboard, and how
/// the user can change that. Main thread only.
class AccessibilityPermission
{
public:
    virtual ~AccessibilityPermission() = default;

    /// Asked once a second while the user is being waited for, so the answer has to be cheap.
    [[nodiscard]] virtual bool isTrusted() const = 0;
    /// Asks the system to show its own question, where it has one.
    virtual void prompt() = 0;
    /// Opens the place where the user gives the permission.
    virtual void openSettings() = 0;
};

} // namespace Tavik
