// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/DesktopShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/GnomeShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/KdeShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayShortcuts.h>

#include <QGuiApplication>

namespace Tavik {

using namespace Qt::StringLiterals;

std::unique_ptr<ShortcutSource> shortcutSourceOfDesktop(MainQueue& mainQueue,
                                                        WorkQueue& workQueue,
                                                        UserDefaults& userDefaults,
                                                        const QString& program)
{
    const QString swaySocket = qEnvironmentVariable("SWAYSOCK");
    if (!swaySocket.isEmpty()) {
        return std::make_unique<SwayShortcuts>(swaySocket);
    }
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    if (desktops.contains(u"KDE"_s)) {
        return std::make_unique<KdeShortcuts>(workQueue);
    }
    if (desktops.contains(u"GNOME"_s) && GnomeShortcuts::isOffered()) {
        using Chords = GnomeShortcuts::Chords;
        const bool isNative = QGuiApplication::platformName() == u"wayland"_s;
        return std::make_unique<GnomeShortcuts>(
            mainQueue, userDefaults, program, isNative ? Chords::missed : Chords::heard);
    }
    return nullptr;
}

} // namespace Tavik
