// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>
#include <TavikLauncherPlatform/Linux/Applications/RunningApplicationList.h>
#include <TavikLauncherPlatform/Linux/Applications/WindowMatching.h>
#include <TavikLauncherPlatform/Means.h>

#include <QList>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

namespace Tavik {

/// The windows of other programs as one window system tells of them, and the words that pass
/// between a program that starts another and the desktop. Knows nothing of applications. Main
/// thread only; every query answers from memory.
class WindowSource
{
public:
    struct Facts
    {
        WindowClues clues;
        bool isOnTaskbar = false; ///< A taskbar would show the window.
        qint64 processId = 0; ///< 0 when unknown or on another machine.

        bool operator==(const Facts&) const = default;
    };

    virtual ~WindowSource() = default;

    /// What the workspace says by the same names.
    [[nodiscard]] virtual Means runningMeans() const { return {}; }
    [[nodiscard]] virtual Means raisingMeans() const { return {}; }

    /// Whether it is known yet which windows there were at the start; `onWindowsChanged` tells.
    [[nodiscard]] virtual bool isReady() const { return true; }
    /// False where programs may have windows that nobody tells of.
    [[nodiscard]] virtual bool tellsOfAll() const { return true; }
    /// In the order in which they were first seen.
    [[nodiscard]] virtual QList<WindowId> windows() const = 0;
    /// The facts of one of `windows()`.
    [[nodiscard]] virtual Facts factsOf(WindowId window) const = 0;
    /// The window that has the focus, 0 for none. A moment without one between two is not told.
    [[nodiscard]] virtual WindowId activeWindow() const = 0;
    /// The one of `windows` that had the focus last, the newest if none had it.
    [[nodiscard]] virtual WindowId mostRecent(const QList<WindowId>& windows) const = 0;
    /// Where this program's window with that title is, with its frame, in points; absent where the
    /// desktop does not tell, or there is none. News come by `onOwnPlacesChanged`.
    [[nodiscard]] virtual std::optional<QRect> placeOfOwn(const QString&) { return std::nullopt; }
    /// Raises a window, focuses it, and shows it if it is minimised or on another desktop.
    virtual void activate(WindowId window) = 0;

    /// Tells the desktop that `entry` is about to be started at the user's wish. The tokens are
    /// for the program, and name the start in what follows.
    [[nodiscard]] virtual LaunchTokens beginStart(const DesktopEntry& entry) = 0;
    /// The program runs now.
    virtual void describeStart(const LaunchTokens& start, qint64 processId) = 0;
    /// Nothing more is to be waited for.
    virtual void endStart(const LaunchTokens& start) = 0;

    /// Called when windows came, went or changed their facts.
    std::function<void()> onWindowsChanged;
    /// Called when a window of this program has another place.
    std::function<void()> onOwnPlacesChanged;
    /// Called when another window, or after a while none, has the focus.
    std::function<void()> onActiveWindowChanged;
    /// Called when this can tell no more; the log says why.
    std::function<void()> onLost;
};

/// For a session in which nobody tells of other programs' windows: everything can be started, and
/// nothing is seen to run.
class NoWindows final : public WindowSource
{
public:
    [[nodiscard]] Means runningMeans() const override;
    [[nodiscard]] Means raisingMeans() const override;
    [[nodiscard]] bool tellsOfAll() const override { return false; }
    [[nodiscard]] QList<WindowId> windows() const override { return {}; }
    [[nodiscard]] Facts factsOf(WindowId) const override { return {}; }
    [[nodiscard]] WindowId activeWindow() const override { return 0; }
    [[nodiscard]] WindowId mostRecent(const QList<WindowId>&) const override { return 0; }
    void activate(WindowId) override { }
    [[nodiscard]] LaunchTokens beginStart(const DesktopEntry&) override { return {}; }
    void describeStart(const LaunchTokens&, qint64) override { }
    void endStart(const LaunchTokens&) override { }
};

} // namespace Tavik
