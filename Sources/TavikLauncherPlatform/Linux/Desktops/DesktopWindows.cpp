// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/DesktopWindows.h>
#include <TavikLauncherPlatform/Linux/Desktops/KWinWindows.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayWindows.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>

namespace Tavik {

using namespace Qt::StringLiterals;

std::unique_ptr<WindowSource> windowSourceOfDesktop(MainQueue& mainQueue, WorkQueue& workQueue)
{
    if (const QString socket = qEnvironmentVariable("SWAYSOCK"); !socket.isEmpty()) {
        auto windows = std::make_unique<SwayWindows>(socket);
        if (windows->isOpen()) {
            return windows;
        }
    }
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    if (desktops.contains(u"KDE"_s) && SessionBus::isOffered()) {
        return std::make_unique<KWinWindows>(mainQueue, workQueue);
    }
    return nullptr;
}

} // namespace Tavik
