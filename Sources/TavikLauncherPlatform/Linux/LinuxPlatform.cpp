// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>
#include <TavikLauncherPlatform/Linux/Applications/ApplicationWorkspace.h>
#include <TavikLauncherPlatform/Linux/Applications/LinuxFileManager.h>
#include <TavikLauncherPlatform/Linux/Applications/SessionIconTheme.h>
#include <TavikLauncherPlatform/Linux/Applications/ThemeIconDecoder.h>
#include <TavikLauncherPlatform/Linux/Desktops/DesktopShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/DesktopWindows.h>
#include <TavikLauncherPlatform/Linux/Desktops/NextBestWindows.h>
#include <TavikLauncherPlatform/Linux/Desktops/PortalShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutKeyEvents.h>
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutPermission.h>
#include <TavikLauncherPlatform/Linux/Desktops/ToolkitKeyEvents.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyListDefaults.h>
#include <TavikLauncherPlatform/Linux/LinuxStatusTray.h>
#include <TavikLauncherPlatform/Linux/Session/AutostartLoginItem.h>
#include <TavikLauncherPlatform/Linux/Session/OwnProgram.h>
#include <TavikLauncherPlatform/Linux/Session/PortalAppearance.h>
#include <TavikLauncherPlatform/Linux/Session/QtScreens.h>
#include <TavikLauncherPlatform/Linux/Session/SessionAccessibilityPermission.h>
#include <TavikLauncherPlatform/Linux/Session/SessionLockMonitor.h>
#include <TavikLauncherPlatform/Linux/Session/SessionNotices.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastUpdater.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateFolder.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>
#ifdef TAVIK_HAS_WAYLAND
#include <TavikLauncherPlatform/Linux/Wayland/ForeignToplevels.h>
#include <TavikLauncherPlatform/Linux/Wayland/HyprlandShortcuts.h>
#include <TavikLauncherPlatform/Linux/Wayland/WaylandWindowServer.h>
#endif
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11InputGrabs.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyEvents.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyboardLimit.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowServer.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowTracker.h>
#include <TavikLauncherPlatform/Null/NullServices.h>
#include <TavikLauncherPlatform/Platform.h>
#include <TavikLauncherPlatform/QtMainQueue.h>
#include <TavikLauncherPlatform/QtWorkQueue.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QRandomGenerator>

#include <malloc.h>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

QString currentDesktop()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP");
}

/// Who listens for the trigger in a Wayland session: the desktop by an interface of its own, else
/// its portal, if it has one.
std::unique_ptr<ShortcutSource> makeShortcutSource(Platform& platform)
{
    auto made = shortcutSourceOfDesktop(*platform.mainQueue,
                                        *platform.workQueue,
                                        *platform.userDefaults,
                                        OwnProgram::file(OwnProgram::Surroundings::ofProcess()));
#ifdef TAVIK_HAS_WAYLAND
    if (!made) {
        made = HyprlandShortcuts::make(*platform.userDefaults);
    }
#endif
    if (!made) {
        made = std::make_unique<PortalShortcuts>(PortalShortcuts::Dependencies{
            *platform.mainQueue, *platform.workQueue, *platform.userDefaults});
    }
    return made;
}

/// Returns what listens for the trigger in our place, where that is what the permission is about.
ShortcutSource* addPermission(Platform& platform,
                              const PlatformOptions& options,
                              const std::optional<QString>& limit,
                              bool isWayland)
{
    using Session = SessionAccessibilityPermission::Session;
    platform.accessibility = std::make_unique<SessionAccessibilityPermission>(
        *platform.workspace,
        Session{.limit = limit, .desktop = currentDesktop(), .command = platform.command});
    if (options.replacePermission) {
        platform.accessibility = options.replacePermission(std::move(platform.accessibility));
        return nullptr;
    }
    std::unique_ptr<ShortcutSource> made
        = isWayland && options.listens ? makeShortcutSource(platform) : nullptr;
    ShortcutSource* source = made.get();
    if (source) {
        platform.accessibility = std::make_unique<ShortcutPermission>(
            std::move(made), std::move(platform.accessibility));
    }
    return source;
}

X11WindowServer::Xwayland kindOfXwayland(bool isXwayland)
{
    using enum X11WindowServer::Xwayland;
    // Other compositors tell nothing, and would be waited for in vain.
    const bool isGnome = currentDesktop().split(u':').contains(u"GNOME"_s);
    return !isXwayland ? no : isGnome ? findsPointer : yes;
}

void addX11Services(Platform& platform,
                    LinuxFileManager& files,
                    const PlatformOptions& options,
                    xcb_connection_t* toolkit)
{
    const bool isXwayland = x11IsXwayland(toolkit);
    auto source = std::make_unique<X11WindowTracker>(*platform.mainQueue, isXwayland);
    X11WindowTracker& windows = *source;
    platform.workspace = std::make_unique<ApplicationWorkspace>(
        *platform.mainQueue, *platform.workQueue, files, std::move(source));
    auto windowServer = std::make_unique<X11WindowServer>(
        toolkit, *platform.mainQueue, kindOfXwayland(isXwayland));
    platform.screens = std::make_unique<QtScreens>(QtScreens::Hooks{
        .pointer = [&server = *windowServer] { return server.pointer(); },
        .focusedPoint = [&windows] { return windows.focusedPoint(); },
        .availableArea = [&windows](const QRect& screen) { return windows.availableArea(screen); },
    });
    ShortcutSource* shortcuts
        = addPermission(platform, options, x11KeyboardLimit(toolkit), isXwayland);
    auto keyEvents = std::make_unique<X11KeyEvents>(X11KeyEvents::Dependencies{
        .toolkit = toolkit,
        .mainQueue = *platform.mainQueue,
        .permission = *platform.accessibility,
        .ringGotKey
        = [&server = *windowServer](xcb_keycode_t key,
                                    xcb_timestamp_t time) { return server.panelGotKey(key, time); },
        .whenSettled = [&server = *windowServer](
                           const std::function<void()>& done) { server.whenSettled(done); },
        .isXwayland = isXwayland,
    });
    platform.sessionLock = std::make_unique<SessionLockMonitor>(
        *platform.workQueue, [&keys = *keyEvents, grabs = X11InputGrabs(toolkit)] {
            // A hot key is a grab of our own, and proves that nobody else has one.
            return !keys.isAnsweringHotKey() && grabs.areHeldElsewhere();
        });
    platform.windowServer = std::move(windowServer);
    platform.keyEvents = std::move(keyEvents);
    if (shortcuts) {
        // Of a change of the focus the server hears twice, by two ways; the compositor may draw a
        // picture in between.
        constexpr double settlingSeconds = 0.15;
        platform.keyEvents = std::make_unique<ShortcutKeyEvents>(
            ShortcutKeyEvents::Dependencies{
                *platform.mainQueue,
                *shortcuts,
                shortcuts->hidesKeys() ? std::nullopt : std::optional(settlingSeconds)},
            std::move(platform.keyEvents));
    }
}

/// Who tells of windows in a Wayland session: the desktop or the compositor, of all; else an X
/// server beside it, of its programs'. Without any applications can still be started.
std::unique_ptr<WindowSource> windowSourceOfSession(MainQueue& mainQueue, WorkQueue& workQueue)
{
    using Made = std::unique_ptr<WindowSource>;
    std::vector<NextBestWindows::Maker> makers;
    makers.emplace_back(
        [&mainQueue, &workQueue] { return windowSourceOfDesktop(mainQueue, workQueue); });
#ifdef TAVIK_HAS_WAYLAND
    makers.emplace_back([] { return Made(ForeignToplevels::make()); });
#endif
    makers.emplace_back([&mainQueue] {
        const bool hasXServer
            = !qEnvironmentVariableIsEmpty("DISPLAY") && !X11Connection().isBroken();
        return hasXServer ? Made(std::make_unique<X11WindowTracker>(mainQueue, true)) : nullptr;
    });
    return std::make_unique<NextBestWindows>(mainQueue, std::move(makers));
}

/// For a session without an X server that the toolkit speaks to.
void addWaylandServices(Platform& platform, LinuxFileManager& files, const PlatformOptions& options)
{
    const bool isWayland = QGuiApplication::platformName() == u"wayland"_s;
    platform.screens = std::make_unique<QtScreens>();
    platform.windowServer = std::make_unique<NullWindowServer>();
    std::unique_ptr<WindowSource> source;
    if (isWayland) {
        source = windowSourceOfSession(*platform.mainQueue, *platform.workQueue);
    } else {
        source = std::make_unique<NoWindows>();
    }
#ifdef TAVIK_HAS_WAYLAND
    if (auto server = isWayland ? WaylandWindowServer::make(*platform.mainQueue) : nullptr) {
        server->findPlace = [&windows = *source](const QString& title) {
            return windows.placeOfOwn(title);
        };
        source->onOwnPlacesChanged = [&server = *server] {
            if (server.onPlacesChanged) {
                server.onPlacesChanged();
            }
        };
        platform.screens
            = std::make_unique<QtScreens>(QtScreens::Hooks{.pointerInPoints = [&server = *server] {
                  return server.pointer();
              }});
        platform.windowServer = std::move(server);
    }
#endif
    platform.workspace = std::make_unique<ApplicationWorkspace>(
        *platform.mainQueue, *platform.workQueue, files, std::move(source));
    ShortcutSource* shortcuts
        = addPermission(platform, options, SessionAccessibilityPermission::waylandLimit(), true);
    platform.keyEvents = std::make_unique<ToolkitKeyEvents>();
    if (shortcuts) {
        platform.keyEvents = std::make_unique<ShortcutKeyEvents>(
            ShortcutKeyEvents::Dependencies{*platform.mainQueue, *shortcuts, 0},
            std::move(platform.keyEvents));
    }
    platform.sessionLock
        = std::make_unique<SessionLockMonitor>(*platform.workQueue, [] { return false; });
}

std::optional<QString> openOnDesktop(const QUrl& url)
{
    const LaunchResult result = openWithDefault(url);
    return result.error
        ? std::optional(Texts::tr("“%1” could not be opened: %2.")
                            .arg(url.toDisplayString(QUrl::PreferLocalFile), *result.error))
        : std::nullopt;
}

/// Beside this program where that was built, or else where both are installed.
QString fetchProgram()
{
    // The kernel's link holds also when another version has been put in the place of this file.
    const QDir folder = QFileInfo(QFile::symLinkTarget(u"/proc/self/exe"_s)).dir();
    const QString beside = folder.filePath(u"tavik-launcher-fetch"_s);
    return QFile::exists(beside) ? beside : folder.filePath(QStringLiteral(TAVIK_FETCH_PROGRAM));
}

std::unique_ptr<Updater> makeUpdater(const UpdateSource& source, Platform& platform)
{
    if (std::optional<QString> reason = AppcastUpdater::whyNotUpdating(source)) {
        return std::make_unique<NullUpdater>(*reason);
    }
    return std::make_unique<AppcastUpdater>(AppcastUpdater::Dependencies{
        .userDefaults = *platform.userDefaults,
        .networkState = std::make_unique<SystemNetworkState>(),
        .random = [] { return QRandomGenerator::global()->generateDouble(); },
        .environment = {
            .mainQueue = *platform.mainQueue,
            .workQueue = *platform.workQueue,
            .feedUrl = QUrl(source.feedUrl),
            .publicKey
            = *UpdateSignature::fromBase64(source.publicKey, UpdateSignature::publicKeySize),
            .fetchProgram = fetchProgram(),
            .version = source.version,
            .processor = QSysInfo::buildCpuArchitecture(),
            .pageHosts = QStringList(QUrl(source.feedUrl).host()) + source.pageHosts,
            .image = OwnProgram::image(OwnProgram::Surroundings::ofProcess()),
            .folder = UpdateFolder::defaultPath(),
            .wallClock = [] { return QDateTime::currentDateTimeUtc(); },
            .hasInstaller = hasInstallerFor,
            .open = openOnDesktop,
        }});
}

} // namespace

void saveMemory()
{
    mallopt(M_ARENA_MAX, 2);
    // Left alone, the limit grows with each picture that is freed, and later ones leave their holes
    // in the heap. Above it memory goes back at once.
    constexpr int mapsFrom = 128 * 1024;
    mallopt(M_MMAP_THRESHOLD, mapsFrom);
}

std::unique_ptr<Platform> makePlatform(const PlatformOptions& options)
{
    auto platform = std::make_unique<Platform>();
    const auto surroundings = OwnProgram::Surroundings::ofProcess();
    platform->command = OwnProgram::command(surroundings);
    platform->mainQueue = std::make_unique<QtMainQueue>();
    // A walk over thousands of entries leaves many small holes in the heap.
    platform->workQueue = std::make_unique<QtWorkQueue>([] { malloc_trim(0); });
    platform->userDefaults = std::make_unique<PropertyListDefaults>(
        PropertyListDefaults::defaultPath(), *platform->mainQueue, *platform->workQueue);
    auto fileManager
        = std::make_unique<LinuxFileManager>(*platform->mainQueue, *platform->workQueue);
    LinuxFileManager& files = *fileManager;
    platform->fileManager = std::move(fileManager);
    platform->iconDecoder = std::make_unique<ThemeIconDecoder>(
        [] { return sessionIconTheme(QIcon::themeName(), IconFolders::ofSession()); },
        [&files](const QString& source) { return files.iconSource(source); });
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 && x11->connection()) {
        addX11Services(*platform, files, options, x11->connection());
    } else {
        addWaylandServices(*platform, files, options);
    }
    platform->appearance = std::make_unique<PortalAppearance>(*platform->workQueue);
    platform->loginItem = std::make_unique<AutostartLoginItem>(AutostartLoginItem::Paths{
        .entry = AutostartLoginItem::defaultEntryPath(),
        .program = OwnProgram::file(surroundings),
        .lineOfOwn = AutostartLoginItem::lineFor(
            {.desktop = currentDesktop(),
             .hasSessionManager = !qEnvironmentVariableIsEmpty("SESSION_MANAGER"),
             .command = platform->command})});
    platform->statusTray = std::make_unique<LinuxStatusTray>(
        *platform->workQueue,
        LinuxStatusTray::Session{.isX11 = x11 && x11->connection(), .desktop = currentDesktop()});
    platform->notices = std::make_unique<SessionNotices>(*platform->workQueue);
    platform->updater = makeUpdater(options.updates, *platform);
    platform->display = chosenDisplay();
    return platform;
}

} // namespace Tavik
