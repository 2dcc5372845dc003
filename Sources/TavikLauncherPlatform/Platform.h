// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/AccessibilityPermission.h>
#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/IconDecoder.h>
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/LoginItem.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/Notices.h>
#include <TavikLauncherPlatform/Screens.h>
#include <TavikLauncherPlatform/SessionLock.h>
#include <TavikLauncherPlatform/StatusTray.h>
#include <TavikLauncherPlatform/Updater.h>
#include <TavikLauncherPlatform/UserDefaults.h>
#include <TavikLauncherPlatform/WindowServer.h>
#include <TavikLauncherPlatform/WorkQueue.h>
#include <TavikLauncherPlatform/Workspace.h>

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

/// Everything the system underneath is to us; no pointer is ever null. Members are destroyed in
/// reverse order, so the queues outlive what uses them.
struct Platform
{
    std::unique_ptr<MainQueue> mainQueue;
    std::unique_ptr<WorkQueue> workQueue;
    std::unique_ptr<UserDefaults> userDefaults;
    std::unique_ptr<FileManager> fileManager;
    std::unique_ptr<IconDecoder> iconDecoder;
    std::unique_ptr<Workspace> workspace;
    std::unique_ptr<Screens> screens;
    std::unique_ptr<AccessibilityPermission> accessibility;
    std::unique_ptr<KeyEvents> keyEvents;
    std::unique_ptr<WindowServer> windowServer;
    std::unique_ptr<SessionLock> sessionLock;
    std::unique_ptr<DesktopAppearance> appearance;
    std::unique_ptr<LoginItem> loginItem;
    std::unique_ptr<StatusTray> statusTray;
    std::unique_ptr<Notices> notices;
    std::unique_ptr<Updater> updater;
    QString display; ///< What `chosenDisplay` says.
    QString command; ///< This program as the first word of a line that somebody pastes.
};

/// What a program has its platform made with.
struct PlatformOptions
{
    using Permission = std::unique_ptr<AccessibilityPermission>;

    UpdateSource updates;
    /// False for a platform that is only looked at: the desktop is asked for no shortcut.
    bool listens = true;
    /// Gives what stands in the place of the session's own permission; none leaves that there.
    std::function<Permission(Permission)> replacePermission;
};

/// Builds the platform for the running session. Call once, after the application object exists.
/// Implemented by the one system that the build contains.
[[nodiscard]] std::unique_ptr<Platform> makePlatform(const PlatformOptions& options);

/// Gives the main thread one heap and all other threads a second, both without the pictures. In a
/// common heap, what a walk makes and what the ring keeps would lie in each other's holes. A heap
/// for each thread would mostly be holes, as would one that large pictures come to and go from. To
/// be called before the first thread begins. Implemented beside `makePlatform`.
void saveMemory();

/// Chooses the window system for the toolkit, unless the user has. To be called before the
/// application object exists. The result tells why no window can be shown in this session, as a
/// clause for people; absent when one can. Implemented beside `makePlatform`.
[[nodiscard]] std::optional<QString> chooseDisplay();
/// The name of what `chooseDisplay` has chosen: "Wayland", "X11", or "Xwayland" for the X server
/// beside a compositor; else the toolkit's own word for what the user has.
[[nodiscard]] QString chosenDisplay();

} // namespace Tavik
