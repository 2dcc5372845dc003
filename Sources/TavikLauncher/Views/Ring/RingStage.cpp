// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Ring/LauncherPresentationState.h>
#include <TavikLauncher/Ring/RingInteraction.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/Ring/FilterField.h>
#include <TavikLauncher/Views/Ring/PanelShape.h>
#include <TavikLauncher/Views/Ring/RingCenterTexts.h>
#include <TavikLauncher/Views/Ring/RingStage.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {
constexpr double spinnerTurnSeconds = 1.0;
constexpr int spinnerSteps = 12;
} // namespace

RingStage::RingStage(const Sources& sources, std::function<void()> fadeIsDue)
    : m_sources(sources)
    , m_icons(sources.iconDecoder, sources.workQueue)
    , m_fieldFade(sources.mainQueue, std::move(fadeIsDue))
{
    refreshStyle();
}

double RingStage::diameter() const
{
    return m_sources.presentation.effectiveDiameter(m_sources.settings.ringDiameter());
}

RingGeometry RingStage::geometry() const
{
    return RingGeometry::make({
        .area = QSizeF(diameter(), diameter()),
        .ringThickness = m_sources.settings.ringThickness(),
        .iconSize = m_sources.settings.iconSize(),
        .slotCount = static_cast<int>(m_sources.interaction.ringApps().size()),
    });
}

QPointF RingStage::inRingPlane(QPointF position) const
{
    const double margin = (RingGeometry::panelSide(diameter()) - diameter()) / 2;
    return position - QPointF(margin, margin);
}

QRect RingStage::slotRect(int slot) const
{
    const RingGeometry ring = geometry();
    const QPointF center = ring.slotCenter(slot) - inRingPlane({0, 0});
    const double side = ring.drawnIconSize();
    return QRectF(center.x() - side / 2, center.y() - side / 2, side, side).toAlignedRect();
}

RingIcons::Measures RingStage::iconMeasures() const
{
    return {.side = geometry().drawnIconSize(), .ratio = m_sources.view.devicePixelRatioF()};
}

const RingScene& RingStage::scene()
{
    if (!m_isCurrent) {
        m_scene = sceneNow();
        m_isCurrent = true;
    }
    return m_scene;
}

RingScene RingStage::sceneNow()
{
    const RingInteraction& ring = m_sources.interaction;
    RingScene scene;
    scene.geometry = geometry();
    scene.style = m_style;
    scene.diameter = diameter();
    scene.devicePixelRatio = m_sources.view.devicePixelRatioF();
    scene.wedgeDegrees = m_motion.highlightDegrees();
    scene.showsWedge = ring.selectedIndex() < ring.ringApps().size();
    scene.isOpaque = !m_sources.windowServer.isCompositing();
    scene.behind = scene.isOpaque ? m_sources.shape.behind() : QImage();
    scene.center = centerTexts();
    scene.selectedSlot = ring.hasActiveSelection() ? ring.selectedIndex() : -1;
    scene.icons = icons(scene.geometry);
    return scene;
}

QList<RingIcon> RingStage::icons(const RingGeometry& geometry)
{
    const RingInteraction& ring = m_sources.interaction;
    const RingIcons::Measures measures = iconMeasures();
    const QList<IndexedApp>& apps = ring.ringApps();
    QList<RingIcon> icons;
    icons.reserve(apps.size());
    for (int slot = 0; slot < apps.size(); ++slot) {
        const IndexedApp& app = apps.at(slot);
        RingIcon icon;
        icon.center = geometry.slotCenter(slot);
        icon.icon = m_icons.image(app, RingIcons::Size::resting, measures);
        icon.emphasis = m_motion.emphasis(app.id());
        if (icon.emphasis != 0) {
            icon.emphasizedIcon = m_icons.image(app, RingIcons::Size::selected, measures);
        }
        icon.isRunning = ring.isRunning(app);
        icon.isStarting = ring.isStarting(app);
        icon.dimsWhenNotRunning = !ring.isFiltering();
        icons.append(icon);
    }
    return icons;
}

RingCenter RingStage::centerTexts() const
{
    return ringCenterTexts(
        m_sources.interaction,
        {.showsAppNames = m_sources.settings.showsAppNames(),
         .preedit = m_sources.field.preedit(),
         .emptyFieldOpacity = m_fieldFade.opacity(),
         .spinnerStep = static_cast<int>(m_spinnerTurns * spinnerSteps) % spinnerSteps});
}

void RingStage::refreshStyle()
{
    m_style = RingStyle::make(m_sources.settings);
}

void RingStage::prefetchIcons()
{
    const QList<IndexedApp>& ring = m_sources.interaction.ringApps();
    if (m_sources.view.isVisible()) {
        m_icons.prefetch(ring, iconMeasures());
        return;
    }
    // What a search may show first, where it goes through the whole catalog.
    const LauncherSettings& settings = m_sources.settings;
    const QList<IndexedApp>& found = m_sources.catalog.apps();
    const qsizetype page = settings.searchesAllApps() ? settings.maxVisibleApps() : 0;
    m_icons.prefetchAhead(ring, found.first(std::min(page, found.size())), iconMeasures());
}

void RingStage::followHighlight(bool animated)
{
    m_motion.follow(m_sources.interaction, animated);
    outdate();
}

void RingStage::showField()
{
    m_fieldFade.show(m_sources.view.isVisible() && m_sources.interaction.query().isEmpty()
                     && !m_sources.settings.keepsCenterHintVisible());
}

bool RingStage::advance(double seconds)
{
    const bool spins = scene().center.spinnerStep >= 0;
    const bool turns = m_motion.advance(seconds);
    m_fieldFade.advance(seconds, !m_scene.isOpaque);
    m_spinnerTurns = spins ? m_spinnerTurns + seconds / spinnerTurnSeconds : 0;
    outdate();
    return turns || spins || isFieldFading();
}

} // namespace Tavik
