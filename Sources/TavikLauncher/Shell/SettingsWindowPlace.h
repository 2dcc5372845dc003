// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/SettingsPreviewLayout.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/Screens.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QPoint>
#include <QRectF>
#include <QSize>

#include <optional>

namespace Tavik {

class AuxiliaryWindow;
class LauncherSettings;

/// Where the settings window stands, where it belongs on its screen, and where the ring preview
/// goes beside it. Frames are in points, y growing upwards. Lives as long as the window; main
/// thread only.
class SettingsWindowPlace
{
public:
    struct Dependencies
    {
        const Screens& screens;
        WindowServer& windowServer;
        MainQueue& mainQueue;
        const LauncherSettings& settings;
    };
    SettingsWindowPlace(const Dependencies& dependencies, AuxiliaryWindow& window);

    /// Puts the window where it belongs on that screen.
    void place(const Screen& screen);
    /// From the event loop: places the shown window again until it stands there with its manager's
    /// frame.
    void settle();

    /// The window with its manager's frame. Where nobody tells its place, that is taken to be the
    /// middle of its screen.
    [[nodiscard]] QRectF frame() const;
    /// Where the window belongs on its screen, and the ring preview beside it wherever it stands
    /// now; absent without a screen.
    [[nodiscard]] std::optional<SettingsPreviewLayout::Result> previewLayout() const;

private:
    void settle(int attempt);
    void move();
    /// What the window manager has put around the window; invalid while it is at it.
    [[nodiscard]] QSize border() const;
    [[nodiscard]] SettingsPreviewLayout::Request layoutOn(const QRectF& visibleFrame) const;

    Dependencies m_dependencies;
    AuxiliaryWindow& m_window;
    QRectF m_visibleFrame; ///< Of the screen that it was placed on.
    QSize m_placedBorder; ///< The window's when it was placed.
    QPoint m_placedAt; ///< Where its frame was put; in the toolkit's plane.
    Task m_settling;
};

} // namespace Tavik
