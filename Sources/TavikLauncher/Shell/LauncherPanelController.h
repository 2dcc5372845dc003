// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/SettingsPreviewLayout.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/PanelSurface.h>

#include <QList>
#include <QPointF>
#include <QRectF>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

class AppCatalog;
class DesktopAppearance;
class LauncherPresentationState;
class LauncherSettings;
class Screens;
struct LauncherCommands;

/// Creates, places, animates and hides the panel that holds the ring. Frames are in points, y
/// growing upwards. Owned by the application delegate; main thread only.
class LauncherPanelController
{
public:
    struct Dependencies
    {
        AppCatalog& catalog;
        LauncherSettings& settings;
        Screens& screens;
        DesktopAppearance& appearance;
        MainQueue& mainQueue;
        LauncherCommands& commands;
        LauncherPresentationState& presentation;
        /// Builds the panel with the ring in it; the argument is what dismisses it.
        std::function<std::unique_ptr<PanelSurface>(std::function<void()> dismiss)> makeSurface;
        /// Windows that the panel keeps clear of.
        std::function<QList<QRectF>()> avoidedFrames;
        /// Where the preview beside the settings window goes, while there is such a window.
        std::function<std::optional<SettingsPreviewLayout::Result>()> settingsPreviewLayout;
    };
    struct ShowOptions
    {
        std::optional<QPointF>
            centeredAt; ///< Without it: on the main or the avoided frame's screen.
        bool activatesApp = false;
        bool makesKey = false;
        bool prefersAvoidedFrameScreen = false; ///< The live preview beside the settings window.
    };

    explicit LauncherPanelController(Dependencies dependencies);
    ~LauncherPanelController();
    LauncherPanelController(const LauncherPanelController&) = delete;
    LauncherPanelController& operator=(const LauncherPanelController&) = delete;

    void show(const ShowOptions& options);
    void hide();
    /// Keeps the preview beside the settings window, which has been moved, resized, minimised or
    /// brought back. Nothing while no preview is wanted.
    void followSettingsWindow();

    [[nodiscard]] bool isVisible() const { return m_panel && m_panel->isVisible(); }
    /// A pinned panel stays open when a held chord is released.
    [[nodiscard]] bool isPinnedForSearch() const { return m_isPinnedForSearch; }
    void setPinnedForSearch(bool isPinned) { m_isPinnedForSearch = isPinned; }

    /// The panel, made if it does not exist yet, so that the first summon finds it ready.
    PanelSurface& panel();

private:
    void makePanel();
    void orderOut();
    [[nodiscard]] bool hasRoomForPreview() const;
    void updateDiameterOverride(const ShowOptions& options);
    void place(const ShowOptions& options);
    [[nodiscard]] std::optional<QPointF> originOnScreen(const ShowOptions& options) const;
    [[nodiscard]] double effectiveDiameter() const;
    [[nodiscard]] QSizeF panelSize() const;
    void preparePresentationAnimation();
    void animatePresentation();
    void pointerFound();
    void stepPresentation(double start);
    void finishPresentation();
    void checkLauncherComposited(int attempt);
    void checkPreviewComposited(int attempt);

    Dependencies m_dependencies;
    std::unique_ptr<PanelSurface> m_panel;
    QRectF m_finalFrame; ///< Where the panel belongs while it is shown.
    bool m_isAtPoint = false; ///< It was asked for there, not on a screen.
    bool m_isAnimatingPresentation = false;
    Task m_ensureCompositedTask;
    Task m_presentationTask;
    bool m_isPinnedForSearch = false;
    /// The preview was asked for and not dismissed; without room beside the window it is not shown.
    bool m_wantsPreview = false;
};

} // namespace Tavik
