// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Session/NotifierTray.h>
#include <TavikLauncherPlatform/Linux/X11/X11Tray.h>
#include <TavikLauncherPlatform/StatusTray.h>

namespace Tavik {

class WorkQueue;

/// The trays of a Linux desktop: the session bus knows of the newer kind, the X server of the older
/// one. A tray that takes windows in also tells its colour, which then holds for both.
class LinuxStatusTray final : public StatusTray
{
public:
    struct Session
    {
        bool isX11 = true;
        QString desktop; ///< XDG_CURRENT_DESKTOP.
    };

    LinuxStatusTray(WorkQueue& workQueue, const Session& session);

    [[nodiscard]] Host host() const override;
    [[nodiscard]] std::optional<QColor> symbolColor() const override;

private:
    void changed() const;

    bool m_isAlwaysDark;
    NotifierTray m_notifier;
    std::optional<X11Tray> m_embedding; ///< Absent where there is no X server.
};

} // namespace Tavik
