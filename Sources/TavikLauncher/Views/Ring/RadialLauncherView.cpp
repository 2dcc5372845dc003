// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherPresentationState.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/Ring/CenterLayout.h>
#include <TavikLauncher/Views/Ring/FilterField.h>
#include <TavikLauncher/Views/Ring/RadialLauncherView.h>
#include <TavikLauncher/Views/Ring/RingCenterTexts.h>
#include <TavikLauncher/Views/Ring/RingPainter.h>
#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QEnterEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr double frameSeconds = 1.0 / 120.0;
constexpr double spinnerTurnSeconds = 1.0;
constexpr double renderAheadDelay = 0.03;

} // namespace

RadialLauncherView::RadialLauncherView(const Dependencies& dependencies, QWidget* parent)
    : QWidget(parent)
    , m_dependencies(dependencies)
    , m_icons(dependencies.iconDecoder, dependencies.ring.workQueue)
    , m_interaction(dependencies.ring, dependencies.ownIdentifier, dependencies.onClose)
    , m_pointer(m_interaction, dependencies.onClose)
    , m_filterField(new FilterField(this))
    , m_shape(*this,
              dependencies.windowServer,
              dependencies.ring.mainQueue,
              [this] { refreshAppearance(); })
    , m_fieldFade(dependencies.ring.mainQueue, [this] { startFrames(); })
{
    setMouseTracking(true);
    setFocusProxy(m_filterField);
    setAccessibleName(u"Tavik Launcher"_s);
    connectInteraction();
    connectSurroundings();
    refreshStyle();
    m_interaction.appear();
}

RadialLauncherView::~RadialLauncherView() = default;

void RadialLauncherView::connectInteraction()
{
    connect(&m_interaction, &RingInteraction::ringChanged, this, &RadialLauncherView::ringChanged);
    connect(&m_interaction,
            &RingInteraction::highlightMoved,
            this,
            &RadialLauncherView::highlightMoved);
    connect(
        &m_interaction, &RingInteraction::centerChanged, this, &RadialLauncherView::centerChanged);
    connect(m_filterField, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_interaction.editQuery(text);
    });
    connect(m_filterField, &FilterField::preeditChanged, this, [this] { centerChanged(); });
}

void RadialLauncherView::connectSurroundings()
{
    LauncherPresentationState& presentation = m_dependencies.ring.presentation;
    connect(
        &presentation, &LauncherPresentationState::appearanceChanged, this, [this] { update(); });
    connect(&presentation, &LauncherPresentationState::diameterOverrideChanged, this, [this] {
        refreshAppearance();
    });
    connect(&m_dependencies.ring.settings, &LauncherSettings::propertyChanged, this, [this] {
        refreshStyle();
        refreshAppearance();
    });
    connect(
        &m_dependencies.ring.catalog, &AppCatalog::appsChanged, this, [this] { prefetchIcons(); });
    connect(&m_dependencies.ring.catalog,
            &AppCatalog::foldersChanged,
            &m_icons.cache(),
            &AppIconCache::invalidate);
    connect(&m_icons.cache(), &AppIconCache::imageReady, this, [this] { refreshAppearance(); });
}

double RadialLauncherView::diameter() const
{
    return m_dependencies.ring.presentation.effectiveDiameter(
        m_dependencies.ring.settings.ringDiameter());
}

RingGeometry RadialLauncherView::geometryInPoints() const
{
    return RingGeometry::make({
        .area = QSizeF(diameter(), diameter()),
        .ringThickness = m_dependencies.ring.settings.ringThickness(),
        .iconSize = m_dependencies.ring.settings.iconSize(),
        .slotCount = static_cast<int>(m_interaction.ringApps().size()),
        .fullCount = m_interaction.fullCount(),
    });
}

QPointF RadialLauncherView::inRingPlane(QPointF position) const
{
    const double margin = (RingGeometry::panelSide(diameter()) - diameter()) / 2;
    return position - QPointF(margin, margin);
}

RingIcons::Measures RadialLauncherView::iconMeasures() const
{
    return {.side = geometryInPoints().drawnIconSize(), .ratio = devicePixelRatioF()};
}

const RingScene& RadialLauncherView::scene()
{
    if (!m_isSceneCurrent) {
        m_scene = sceneNow();
        m_isSceneCurrent = true;
    }
    return m_scene;
}

RingScene RadialLauncherView::sceneNow()
{
    RingScene scene;
    scene.geometry = geometryInPoints();
    scene.style = m_style;
    scene.diameter = diameter();
    scene.devicePixelRatio = devicePixelRatioF();
    scene.wedgeDegrees = m_motion.highlightDegrees();
    scene.showsWedge = m_interaction.selectedIndex() < m_interaction.ringApps().size();
    scene.isOpaque = !m_dependencies.windowServer.isCompositing();
    scene.behind = scene.isOpaque ? m_shape.behind() : QImage();
    scene.center = centerTexts();
    scene.selectedSlot = m_interaction.hasActiveSelection() ? m_interaction.selectedIndex() : -1;

    const RingIcons::Measures measures = iconMeasures();
    const QList<IndexedApp>& apps = m_interaction.ringApps();
    scene.icons.reserve(apps.size());
    for (int slot = 0; slot < apps.size(); ++slot) {
        const IndexedApp& app = apps.at(slot);
        RingIcon icon;
        icon.center = scene.geometry.slotCenter(slot);
        icon.icon = m_icons.image(app, RingIcons::Size::resting, measures);
        icon.emphasis = m_motion.emphasis(app.id());
        if (icon.emphasis != 0) {
            icon.emphasizedIcon = m_icons.image(app, RingIcons::Size::selected, measures);
        }
        icon.isRunning = m_interaction.isRunning(app);
        icon.isStarting = m_interaction.isStarting(app);
        icon.dimsWhenNotRunning = !m_interaction.isFiltering();
        scene.icons.append(icon);
    }
    return scene;
}

RingCenter RadialLauncherView::centerTexts() const
{
    return ringCenterTexts(m_interaction,
                           {.showsAppNames = m_dependencies.ring.settings.showsAppNames(),
                            .preedit = m_filterField->preedit(),
                            .emptyFieldOpacity = m_fieldFade.opacity(),
                            .spinnerStep = static_cast<int>(m_spinnerTurns * 12) % 12});
}

/// Parses the colours, which no frame is to do again.
void RadialLauncherView::refreshStyle()
{
    m_style = RingStyle::make(m_dependencies.ring.settings);
}

QRect RadialLauncherView::slotRect(int slot)
{
    const RingGeometry ring = geometryInPoints();
    const QPointF center = ring.slotCenter(slot) - inRingPlane({0, 0});
    const double side = ring.drawnIconSize();
    return QRectF(center.x() - side / 2, center.y() - side / 2, side, side).toAlignedRect();
}

void RadialLauncherView::paintEvent(QPaintEvent* event)
{
    const RingScene& now = scene();
    QPainter painter(this);
    const LauncherPresentationState& presentation = m_dependencies.ring.presentation;
    const bool isInFlight = presentation.scale() != 1.0 || presentation.opacity() != 1.0;
    if (!isInFlight) {
        RingPainter::paint(painter, now, m_images.band(now), event->region());
    } else if (now.isOpaque) {
        // Without blending there is no fading and no shape in flight: the ring stands at once.
        RingPainter::paintInFlight(painter, now, m_images.wholeRing(now), {});
    } else {
        RingPainter::paintInFlight(
            painter,
            now,
            m_images.wholeRing(now),
            {.scale = presentation.scale(), .opacity = presentation.opacity()});
    }
}

void RadialLauncherView::renderAhead()
{
    m_isSceneCurrent = false;
    static_cast<void>(m_images.wholeRing(scene()));
    m_images.forgetBand();
    updateShape();
}

void RadialLauncherView::scheduleRenderAhead()
{
    if (isVisible() || m_renderAhead.isActive()) {
        return;
    }
    m_renderAhead = m_dependencies.ring.mainQueue.after(renderAheadDelay, [this] {
        if (!isVisible()) {
            renderAhead();
        }
    });
}

void RadialLauncherView::updateShape()
{
    m_isSceneCurrent = false; // The compositor may have come or gone.
    m_shape.fit(scene());
}

void RadialLauncherView::refreshAppearance()
{
    m_isSceneCurrent = false;
    placeFilterField();
    if (isVisible()) {
        if (!m_dependencies.windowServer.isCompositing()) {
            updateShape();
        }
        update();
    } else {
        scheduleRenderAhead();
    }
}

void RadialLauncherView::ringChanged()
{
    m_motion.follow(m_interaction, false);
    prefetchIcons();
    refreshAppearance();
    Q_EMIT slotsChanged();
}

void RadialLauncherView::highlightMoved(bool animated)
{
    const bool moves = animated && isVisible() && !m_dependencies.appearance.reducesMotion();
    const RingScene before = m_scene;
    m_motion.follow(m_interaction, moves);
    m_isSceneCurrent = false;
    if (moves) {
        startFrames();
    } else if (isVisible()) {
        repaintHighlight(before);
    }
    Q_EMIT selectionChanged();
}

void RadialLauncherView::centerChanged()
{
    m_isSceneCurrent = false;
    if (m_filterField->text() != m_interaction.query()) {
        m_filterField->setText(m_interaction.query());
    }
    showField();
    setCursor(scene().center.isInvitation ? Qt::PointingHandCursor : Qt::ArrowCursor);
    const bool spins = m_interaction.isFiltering() && m_interaction.isIndexing();
    if (spins && isVisible()) {
        startFrames();
    }
    refreshAppearance();
}

void RadialLauncherView::prefetchIcons()
{
    if (isVisible()) {
        m_icons.prefetch(m_interaction.ringApps(), iconMeasures());
    } else {
        // What a search may show first, where it goes through the whole catalog.
        const LauncherSettings& settings = m_dependencies.ring.settings;
        const QList<IndexedApp>& found = m_dependencies.ring.catalog.apps();
        const qsizetype page = settings.searchesAllApps() ? settings.maxVisibleApps() : 0;
        m_icons.prefetchAhead(
            m_interaction.ringApps(), found.first(std::min(page, found.size())), iconMeasures());
    }
}

void RadialLauncherView::startFrames()
{
    if (m_frames.isActive()) {
        return;
    }
    m_lastFrame = m_dependencies.ring.mainQueue.systemUptime();
    m_frames = m_dependencies.ring.mainQueue.every(frameSeconds, [this] { stepFrame(); });
}

void RadialLauncherView::stepFrame()
{
    const double now = m_dependencies.ring.mainQueue.systemUptime();
    const double seconds = now - m_lastFrame;
    m_lastFrame = now;

    const RingScene before = scene();
    const bool turns = m_motion.advance(seconds);
    m_fieldFade.advance(seconds, !before.isOpaque);
    if (before.isOpaque && m_fieldFade.opacity() != before.center.fieldOpacity) {
        updateShape();
    }
    if (m_fieldFade.isFading()) {
        placeFilterField();
    }
    const bool spins = before.center.spinnerStep >= 0;
    m_spinnerTurns = spins ? m_spinnerTurns + seconds / spinnerTurnSeconds : 0;
    m_isSceneCurrent = false;

    repaintHighlight(before);
    if (!isVisible() || (!turns && !spins && !m_fieldFade.isFading())) {
        m_frames.cancel();
    }
}

void RadialLauncherView::repaintHighlight(const RingScene& before)
{
    update(RingPainter::dirtyRegion(before, scene()));
}

/// Shows the empty field, and lets it fade after a while unless the user wants it to stay.
void RadialLauncherView::showField()
{
    m_fieldFade.show(isVisible() && m_interaction.query().isEmpty()
                     && !m_dependencies.ring.settings.keepsCenterHintVisible());
}

void RadialLauncherView::placeFilterField()
{
    const QPointF offset = inRingPlane({0, 0});
    m_filterField->setGeometry(
        CenterLayout::fieldRect(scene()).translated(-offset).toAlignedRect());
}

bool RadialLauncherView::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::PaletteChange:
        refreshStyle();
        [[fallthrough]];
    case QEvent::FontChange:
    case QEvent::ScreenChangeInternal:
        prefetchIcons();
        refreshAppearance();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void RadialLauncherView::resizeEvent(QResizeEvent*)
{
    refreshAppearance();
}

void RadialLauncherView::showEvent(QShowEvent*)
{
    m_renderAhead.cancel();
    // What this summon says may differ from what was drawn ahead.
    updateShape();
    m_shape.placed();
    m_filterField->setFocus(Qt::OtherFocusReason);
    showField();
}

void RadialLauncherView::hideEvent(QHideEvent*)
{
    m_frames.cancel();
    m_fieldFade.cancel();
    m_pointer.reset();
    m_shape.forget();
    // Resets what this summon left behind, so that the ring drawn ahead is the next summon's.
    m_interaction.prepareForShow(false);
    m_motion.follow(m_interaction, false);
    scheduleRenderAhead();
}

void RadialLauncherView::enterEvent(QEnterEvent* event)
{
    m_interaction.hoverAt(inRingPlane(event->position()), geometryInPoints());
}

void RadialLauncherView::mouseMoveEvent(QMouseEvent* event)
{
    m_interaction.hoverAt(inRingPlane(event->position()), geometryInPoints());
}

void RadialLauncherView::mousePressEvent(QMouseEvent* event)
{
    const QPointF position = inRingPlane(event->position());
    if (event->button() == Qt::LeftButton && isOnInvitation(position)) {
        m_dependencies.onClose();
        if (m_dependencies.onFillRing) {
            m_dependencies.onFillRing();
        }
        return;
    }
    // Without blending the ring is not seen to grow.
    const double scale = scene().isOpaque ? 1 : m_dependencies.ring.presentation.scale();
    m_pointer.press(position, event->button(), geometryInPoints(), scale);
}

bool RadialLauncherView::isOnInvitation(QPointF position)
{
    const QList<CenterLayout::Label> labels = CenterLayout::visibleLabels(scene());
    return scene().center.isInvitation && std::ranges::any_of(labels, [&](const auto& label) {
               return label.row == CenterLayout::Row::launchHint && label.rect.contains(position);
           });
}

void RadialLauncherView::mouseReleaseEvent(QMouseEvent* event)
{
    m_pointer.release(inRingPlane(event->position()), event->button(), geometryInPoints());
}

void RadialLauncherView::wheelEvent(QWheelEvent* event)
{
    m_pointer.turnWheel(event->angleDelta().y());
    event->accept();
}

} // namespace Tavik
