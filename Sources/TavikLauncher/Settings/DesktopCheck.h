// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncherPlatform/AccessibilityPermission.h>
#include <TavikLauncherPlatform/LoginItem.h>
#include <TavikLauncherPlatform/Means.h>
#include <TavikLauncherPlatform/StatusTray.h>

#include <QList>
#include <QString>

namespace Tavik {

/// What the launcher needs of a desktop, how it has it there, and what to do where it has not.
/// Values in, values out: the parts that know have been asked before.
namespace DesktopCheck {

/// What can be done at a click.
enum class Repair {
    none,
    setUpTrigger, ///< Asks the desktop for the shortcut.
    chooseShortcut,
    launchAtLogin,
};

struct Finding
{
    QString name; ///< Of what is needed.
    QString mechanism; ///< How it is had, in a sentence.
    QString advice{}; ///< What is missing, and what to do; empty when nothing is.
    Repair repair = Repair::none;
    QString line{}; ///< To be pasted where the advice says; empty for none.

    [[nodiscard]] bool isGood() const { return advice.isEmpty(); }
    bool operator==(const Finding&) const = default;
};

/// What has become of the trigger shortcut.
enum class Trigger {
    notRunning, ///< Nobody has asked for it: this is not the launcher that runs.
    heard,
    refused, ///< Somebody else has it, or the keyboard cannot give it.
    unheard, ///< Nobody tells of it but our own windows.
};

/// As it stands, of a desktop where all works.
struct Facts
{
    Trigger trigger = Trigger::heard;
    HotKeyConfig shortcut{};
    bool isTrusted = true; ///< The permission that this shortcut needs is there.
    AccessibilityPermission::Obstacle obstacle{};
    Means triggerMeans{};
    Means releaseMeans{};
    Means pointer{};
    Means overlay{};
    Means running{};
    Means raising{};
    StatusTray::Host tray = StatusTray::Host::notifier;
    LoginItem::Status login = LoginItem::Status::enabled;
    QString loginLine{}; ///< See LoginItem::lineOfOwn.
    QString command{}; ///< See Platform.
    bool isStartedAtLogin = false; ///< This run was.
};

/// One for each thing, in the order in which the user meets them.
[[nodiscard]] QList<Finding> findings(const Facts& facts);

/// What the button says.
[[nodiscard]] QString nameOf(Repair repair);
/// What there is to say of all of them together.
[[nodiscard]] QString summary(const QList<Finding>& findings);
/// All of it for a terminal.
[[nodiscard]] QString text(const QList<Finding>& findings);

} // namespace DesktopCheck

} // namespace Tavik
