// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace Tavik {

/// Whether the session lets us watch modifier keys while other programs have the keyboard, and how
/// the user can change that. Main thread only.
class AccessibilityPermission
{
public:
    /// What there is to tell the user of a session that does not let us, each a whole sentence.
    struct Obstacle
    {
        QString limit; ///< What this desktop does not let a program do.
        QString remedy; ///< What to do instead, and where.
        bool hasSettings = false; ///< Whether `openSettings` has something to open.
        QString line{}; ///< The remedy as a line to paste.
        QString command{}; ///< What the remedy names.
        bool isLiftedByPrompt = false; ///< `prompt` asks for what is missing.
        bool isOfShortcut = false; ///< Another shortcut may be had.

        bool operator==(const Obstacle&) const = default;
    };

    virtual ~AccessibilityPermission() = default;

    /// Asked once a second while the user is being waited for, so the answer has to be cheap.
    [[nodiscard]] virtual bool isTrusted() const = 0;
    /// Whether shortcuts with a key need it, too, and not only chords of modifiers.
    [[nodiscard]] virtual bool isForKeys() const { return false; }
    /// Empty sentences where there is nothing to tell.
    [[nodiscard]] virtual Obstacle obstacle() const { return {}; }
    /// Asks the system to show its own question, where it has one.
    virtual void prompt() = 0;
    /// Opens the place where the user gives the permission; `failed` is called when it does not
    /// open.
    virtual void openSettings(std::function<void()> failed) = 0;
};

} // namespace Tavik
