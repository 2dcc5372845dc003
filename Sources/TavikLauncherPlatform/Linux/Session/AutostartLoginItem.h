// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/LoginItem.h>

#include <QString>

namespace Tavik {

/// Launch at login through a desktop entry in the user's autostart folder. An entry that the user
/// has switched off in the desktop's own settings awaits approval there; one whose program is gone
/// starts nothing and is none.
class AutostartLoginItem final : public LoginItem
{
public:
    struct Paths
    {
        QString entry; ///< The desktop entry in the autostart folder.
        QString program; ///< What it starts, an executable file.
        QString lineOfOwn{}; ///< See LoginItem.
    };

    explicit AutostartLoginItem(Paths paths);

    /// Where the desktop looks for the program's entry.
    [[nodiscard]] static QString defaultEntryPath();

    struct Session
    {
        QString desktop; ///< $XDG_CURRENT_DESKTOP.
        bool hasSessionManager = false;
        QString command; ///< See OwnProgram::command.
    };

    /// What `lineOfOwn` is in that session: empty where a session manager or a desktop is known to
    /// start what is in the folder.
    [[nodiscard]] static QString lineFor(const Session& session);

    [[nodiscard]] Status status() const override;
    [[nodiscard]] QString lineOfOwn() const override { return m_paths.lineOfOwn; }
    bool registerItem() override;
    bool unregisterItem() override;
    void mend() override;

private:
    Paths m_paths;
};

} // namespace Tavik
