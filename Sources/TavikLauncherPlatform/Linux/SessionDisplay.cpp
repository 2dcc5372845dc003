// SPDX-License-Identifier: MIT
#ifdef TAVIK_HAS_WAYLAND
#include <TavikLauncherPlatform/Linux/Wayland/WaylandConnection.h>
#endif
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Platform.h>

#include <QDir>
#include <QFile>
#include <QLibraryInfo>

#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* toolkitsChoice = "QT_QPA_PLATFORM";
[[maybe_unused]] constexpr const char* toolkitsFrames = "QT_WAYLAND_DISABLE_WINDOWDECORATION";

/// Whether somebody takes connections where the session says that its compositor does.
bool compositorAnswers()
{
    if (!qEnvironmentVariableIsEmpty("WAYLAND_SOCKET")) {
        return true; // A connection was handed over.
    }
    const QString name = qEnvironmentVariable("WAYLAND_DISPLAY");
    const QByteArray path
        = QFile::encodeName(QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).absoluteFilePath(name));
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    if (name.isEmpty() || path.size() >= qsizetype{sizeof address.sun_path}) {
        return false;
    }
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    // One that does not take it at once hangs.
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0) {
        return false;
    }
    const bool isTaken
        = connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(socket);
    return isTaken;
}

/// Without its plugin the toolkit would end the program by a signal.
bool toolkitSpeaksWayland()
{
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + u"/platforms"_s);
    return !plugins.entryList({u"libqwayland*.so"_s}, QDir::Files).isEmpty()
        || !qEnvironmentVariableIsEmpty("QT_PLUGIN_PATH")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM_PLUGIN_PATH");
}

/// Whether a window can choose its place without an X server; then the toolkit is told what that
/// takes. Not tried where one connection has been handed over, which is the toolkit's.
bool compositorPlacesRings()
{
#ifdef TAVIK_HAS_WAYLAND
    if (!qEnvironmentVariableIsEmpty("WAYLAND_SOCKET")) {
        return false;
    }
    const WaylandConnection connection;
    // To find out whether it could draw a window's frame, the toolkit would load a driver for
    // graphics when the ring is first shown.
    if (connection.drawsFrames() && !qEnvironmentVariableIsSet(toolkitsFrames)) {
        qputenv(toolkitsFrames, "1");
    }
    return connection.isComplete();
#else
    return false;
#endif
}

} // namespace

std::optional<QString> chooseDisplay()
{
    // Under Wayland the toolkit would give the panel a role that leaves no choice of its place.
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
    // Who names the toolkit's platform knows what there is.
    if (!qEnvironmentVariableIsEmpty(toolkitsChoice)) {
        return std::nullopt;
    }
    const QString display = qEnvironmentVariable("DISPLAY");
    const QString compositor = qEnvironmentVariable("WAYLAND_DISPLAY");
    const bool hasCompositor = compositorAnswers();
    const bool speaksWayland = hasCompositor && toolkitSpeaksWayland();
    if (speaksWayland && compositorPlacesRings()) {
        qputenv(toolkitsChoice, "wayland");
        return std::nullopt;
    }
    // Else only an X server lets a window choose its place.
    if (!display.isEmpty() && !X11Connection().isBroken()) {
        qputenv(toolkitsChoice, "xcb");
        return std::nullopt;
    }
    if (speaksWayland) {
        qputenv(toolkitsChoice, "wayland");
        return std::nullopt;
    }
    if (hasCompositor) {
        return u"this Wayland session has no X server, and Qt's plugin for Wayland "
               "(Debian: qt6-wayland) is not installed"_s;
    }
    if (display.isEmpty() && compositor.isEmpty()) {
        return u"there is no display; neither DISPLAY nor WAYLAND_DISPLAY is set"_s;
    }
    return u"the display %1 cannot be opened"_s.arg(display.isEmpty() ? compositor : display);
}

QString chosenDisplay()
{
    const QString platform = qEnvironmentVariable(toolkitsChoice).section(u':', 0, 0);
    if (platform.startsWith(u"wayland"_s)) {
        return u"Wayland"_s;
    }
    if (platform != u"xcb") {
        return platform;
    }
    return compositorAnswers() ? u"Xwayland"_s : u"X11"_s;
}

} // namespace Tavik
