// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherPresentationState.h>
#include <TavikLauncher/Ring/PanelPlacement.h>
#include <TavikLauncher/Ring/PresentationAnimation.h>
#include <TavikLauncher/Ring/RingGeometry.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Shell/LauncherPanelController.h>
#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/Screens.h>

#include <QLoggingCategory>

#include <algorithm>
#include <chrono>
#include <utility>

namespace Tavik {

namespace {

Q_LOGGING_CATEGORY(log, "tavik.panel")

constexpr std::chrono::seconds catalogMaxAge{300};
constexpr double launcherCheckSeconds = 0.1;
constexpr int launcherCheckAttempts = 12;
constexpr double previewCheckSeconds = 0.05;
constexpr int previewCheckAttempts = 20;

} // namespace

LauncherPanelController::LauncherPanelController(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
{ }

LauncherPanelController::~LauncherPanelController() = default;

PanelSurface& LauncherPanelController::panel()
{
    if (!m_panel) {
        makePanel();
    }
    return *m_panel;
}

void LauncherPanelController::makePanel()
{
    m_dependencies.commands.pinForSearch = [this] {
        m_isPinnedForSearch = true;
    };
    m_panel = m_dependencies.makeSurface([this] { hide(); });
    m_dependencies.commands.close = [this] {
        hide();
    };
    m_panel->onPointerFound = [this] {
        pointerFound();
    };
    m_panel->onResignKey = [this] {
        hide();
    };
}

double LauncherPanelController::effectiveDiameter() const
{
    return m_dependencies.presentation.effectiveDiameter(m_dependencies.settings.ringDiameter());
}

QSizeF LauncherPanelController::panelSize() const
{
    const double side = RingGeometry::panelSide(effectiveDiameter());
    return {side, side};
}

void LauncherPanelController::show(const ShowOptions& options)
{
    PanelSurface& surface = panel();
    const bool wasVisible = surface.isVisible();
    if (wasVisible && m_isAnimatingPresentation) {
        return;
    }
    m_wantsPreview = options.prefersAvoidedFrameScreen;
    if (m_wantsPreview && !hasRoomForPreview()) {
        orderOut();
        return;
    }
    if (!wasVisible) {
        qCInfo(log, "Tavik Launcher panel: shown");
        m_isPinnedForSearch = false;
        if (m_dependencies.commands.prepareForShow) {
            m_dependencies.commands.prepareForShow(options.activatesApp);
        }
    }
    m_isAtPoint = options.centeredAt.has_value();
    updateDiameterOverride(options);
    m_dependencies.catalog.reindexIfStale(catalogMaxAge);
    place(options);
    if (!wasVisible) {
        preparePresentationAnimation();
    }
    if (options.activatesApp) {
        surface.activateApplication();
    }
    surface.orderFrontRegardless();
    if (options.makesKey) {
        surface.makeKeyAndOrderFront();
    }
    if (!wasVisible) {
        animatePresentation();
    }
    if (options.activatesApp) {
        m_ensureCompositedTask = m_dependencies.mainQueue.after(
            launcherCheckSeconds, [this] { checkLauncherComposited(1); });
    } else if (options.prefersAvoidedFrameScreen) {
        m_ensureCompositedTask
            = m_dependencies.mainQueue.after(0, [this] { checkPreviewComposited(1); });
    }
}

/// The opening begins anew, so that it is seen.
void LauncherPanelController::pointerFound()
{
    if (!isVisible() || !m_isAtPoint) {
        return;
    }
    place({.centeredAt = m_dependencies.screens.mouseLocation()});
    preparePresentationAnimation();
    animatePresentation();
}

void LauncherPanelController::followSettingsWindow()
{
    if (!m_wantsPreview) {
        return;
    }
    const ShowOptions preview{.prefersAvoidedFrameScreen = true};
    const bool isWindowShown = !m_dependencies.avoidedFrames().isEmpty();
    if (!isWindowShown || !hasRoomForPreview()) {
        orderOut();
    } else if (isVisible()) {
        // Also in the middle of the opening animation, whose steps go on at the new place.
        updateDiameterOverride(preview);
        place(preview);
    } else {
        show(preview);
    }
}

bool LauncherPanelController::hasRoomForPreview() const
{
    const auto layout = m_dependencies.settingsPreviewLayout();
    return !layout || layout->ringDiameterCap > 0;
}

void LauncherPanelController::updateDiameterOverride(const ShowOptions& options)
{
    std::optional<double> diameter;
    if (options.prefersAvoidedFrameScreen) {
        const auto layout = m_dependencies.settingsPreviewLayout();
        if (layout && layout->ringDiameterCap < m_dependencies.settings.ringDiameter()) {
            diameter = layout->ringDiameterCap;
        }
    }
    m_dependencies.presentation.setDiameterOverride(diameter);
}

void LauncherPanelController::place(const ShowOptions& options)
{
    const QSizeF size = panelSize();
    const std::optional<QPointF> origin = options.centeredAt
        ? PanelPlacement::originCenteredAt(*options.centeredAt, size, m_dependencies.screens.all())
        : originOnScreen(options);
    m_finalFrame = QRectF(origin.value_or(m_panel->frame().topLeft()), size);
    m_panel->setFrame(m_finalFrame);
}

std::optional<QPointF> LauncherPanelController::originOnScreen(const ShowOptions& options) const
{
    const QSizeF size = panelSize();
    const QList<QRectF> avoided = m_dependencies.avoidedFrames();
    std::optional<Screen> screen = m_dependencies.screens.main();
    if (options.prefersAvoidedFrameScreen) {
        if (const auto layout = m_dependencies.settingsPreviewLayout()) {
            return layout->ringCenter - QPointF(size.width() / 2, size.height() / 2);
        }
        const auto kept
            = std::ranges::find_if(avoided, [](const QRectF& frame) { return !frame.isEmpty(); });
        if (kept != avoided.end()) {
            const QList<Screen> screens = m_dependencies.screens.all();
            if (const Screen* around = PanelPlacement::screenShowing(kept->center(), screens)) {
                screen = *around;
            }
        }
    }
    if (!screen) {
        return std::nullopt;
    }
    return PanelPlacement::originOnScreen(screen->visibleFrame, size, avoided);
}

void LauncherPanelController::preparePresentationAnimation()
{
    LauncherPresentationState& presentation = m_dependencies.presentation;
    presentation.setAcceptsHover(false);
    const double scale = m_dependencies.appearance.reducesMotion()
        ? 1.0
        : PresentationAnimation::startScale(effectiveDiameter());
    presentation.setAppearance(scale, PresentationAnimation::opacity(0));
}

void LauncherPanelController::animatePresentation()
{
    m_isAnimatingPresentation = true;
    const double start = m_dependencies.mainQueue.systemUptime();
    m_presentationTask = m_dependencies.mainQueue.every(PresentationAnimation::step,
                                                        [this, start] { stepPresentation(start); });
}

void LauncherPanelController::stepPresentation(double start)
{
    const bool isReduced = m_dependencies.appearance.reducesMotion();
    const double duration
        = isReduced ? PresentationAnimation::reducedDuration : PresentationAnimation::duration;
    const double elapsed = m_dependencies.mainQueue.systemUptime() - start;
    const double progress = std::clamp(elapsed / duration, 0.0, 1.0);
    if (progress >= 1.0) {
        finishPresentation();
        return;
    }
    const double startScale = PresentationAnimation::startScale(effectiveDiameter());
    const double scale = isReduced ? 1.0 : PresentationAnimation::bounceScale(progress, startScale);
    // Again at every step: while a window manager takes the window over, the toolkit may believe it
    // on another screen, at that screen's scale.
    m_panel->setFrame(m_finalFrame);
    m_dependencies.presentation.setAppearance(scale, PresentationAnimation::opacity(progress));
}

void LauncherPanelController::finishPresentation()
{
    m_isAnimatingPresentation = false;
    m_panel->setFrame(m_finalFrame);
    m_dependencies.presentation.setAppearance(1.0, 1.0);
    m_dependencies.presentation.setAcceptsHover(true);
    m_presentationTask.cancel();
}

void LauncherPanelController::checkLauncherComposited(int attempt)
{
    if (!isVisible()) {
        return;
    }
    if (m_panel->isComposited()) {
        if (attempt >= 2) {
            qCInfo(log, "Tavik Launcher panel: composited after %d retries", attempt - 1);
        }
        m_ensureCompositedTask.cancel();
        return;
    }
    m_panel->activateApplication();
    m_panel->orderFrontRegardless();
    m_panel->makeKeyAndOrderFront();
    if (attempt >= launcherCheckAttempts) {
        qCWarning(log,
                  "Tavik Launcher panel: NOT composited after 1.2s of retries — hiding to release "
                  "keyboard focus");
        m_ensureCompositedTask.cancel();
        hide();
        return;
    }
    m_ensureCompositedTask = m_dependencies.mainQueue.after(
        launcherCheckSeconds, [this, attempt] { checkLauncherComposited(attempt + 1); });
}

void LauncherPanelController::checkPreviewComposited(int attempt)
{
    m_ensureCompositedTask.cancel();
    if (!isVisible() || m_panel->isComposited()) {
        return;
    }
    m_panel->orderFrontRegardless();
    if (attempt < previewCheckAttempts) {
        m_ensureCompositedTask = m_dependencies.mainQueue.after(
            previewCheckSeconds, [this, attempt] { checkPreviewComposited(attempt + 1); });
    }
}

void LauncherPanelController::hide()
{
    m_wantsPreview = false;
    orderOut();
}

void LauncherPanelController::orderOut()
{
    m_isAnimatingPresentation = false;
    m_isPinnedForSearch = false;
    m_ensureCompositedTask.cancel();
    m_presentationTask.cancel();
    if (m_panel) {
        // Off the screen first, so that resetting the ring is not seen.
        m_panel->orderOut();
    }
    m_dependencies.presentation.reset();
}

} // namespace Tavik
