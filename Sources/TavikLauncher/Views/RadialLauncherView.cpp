// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherPresentationState.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/CenterLayout.h>
#include <TavikLauncher/Views/FilterField.h>
#include <TavikLauncher/Views/RadialLauncherView.h>
#include <TavikLauncher/Views/RingPainter.h>
#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QEnterEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr double frameSeconds = 1.0 / 120.0;
constexpr double selectedIconScale = 1.08;
constexpr double spinnerTurnSeconds = 1.0;
constexpr double renderAheadDelay = 0.03;
constexpr int catalogHead = 24;
constexpr int wheelStep = 120;
constexpr qsizetype longestDrawnText = 256; // A bundle may call itself anything.

QString drawable(const QString& text)
{
    return text.left(longestDrawnText);
}

} // namespace

RadialLauncherView::RadialLauncherView(const Dependencies& dependencies, QWidget* parent)
    : QWidget(parent)
    , m_dependencies(dependencies)
    , m_sprites(dependencies.iconDecoder)
    , m_icons(m_sprites, dependencies.workQueue)
    , m_interaction(dependencies.ring, dependencies.ownIdentifier, dependencies.onClose)
    , m_filterField(new FilterField(this))
    , m_fieldFade(dependencies.ring.mainQueue, [this] { startFrames(); })
{
    setMouseTracking(true);
    setFocusProxy(m_filterField);
    setAccessibleName(u"Tavik Launcher"_s);
    connectInteraction();
    connectSurroundings();
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
        refreshAppearance();
    });
    connect(
        &m_dependencies.ring.catalog, &AppCatalog::appsChanged, this, [this] { prefetchIcons(); });
    connect(&m_dependencies.ring.catalog,
            &AppCatalog::foldersChanged,
            &m_icons,
            &AppIconCache::invalidate);
    connect(&m_icons, &AppIconCache::imageReady, this, [this] { refreshAppearance(); });
}

double RadialLauncherView::diameter() const
{
    return m_dependencies.ring.presentation.diameterOverride().value_or(
        m_dependencies.ring.settings.ringDiameter());
}

RingGeometry RadialLauncherView::geometryInPoints() const
{
    return RingGeometry::make({
        .area = QSizeF(diameter(), diameter()),
        .ringThickness = m_dependencies.ring.settings.ringThickness(),
        .iconSize = m_dependencies.ring.settings.iconSize(),
        .slotCount = static_cast<int>(m_interaction.ringApps().size()),
    });
}

QPointF RadialLauncherView::inRingPlane(QPointF position) const
{
    const double margin = (RingGeometry::panelSide(diameter()) - diameter()) / 2;
    return position - QPointF(margin, margin);
}

/// Device pixels of an icon at rest (width) and of a selected one (height).
QSize RadialLauncherView::spriteSides(double ratio) const
{
    const double side = geometryInPoints().effectiveIconSize * ratio;
    return {static_cast<int>(std::lround(side)),
            static_cast<int>(std::lround(side * selectedIconScale))};
}

RingScene RadialLauncherView::scene()
{
    RingScene scene;
    scene.geometry = geometryInPoints();
    scene.style = RingStyle::make(m_dependencies.ring.settings);
    scene.diameter = diameter();
    scene.devicePixelRatio = devicePixelRatioF();
    scene.wedgeDegrees = m_motion.highlightDegrees();
    scene.showsWedge = m_interaction.selectedIndex() < m_interaction.ringApps().size();
    scene.isOpaque = !m_dependencies.windowServer.isCompositing();
    scene.center = centerTexts();

    const QSize sides = spriteSides(scene.devicePixelRatio);
    const QList<IndexedApp>& apps = m_interaction.ringApps();
    scene.icons.reserve(apps.size());
    for (int slot = 0; slot < apps.size(); ++slot) {
        const IndexedApp& app = apps.at(slot);
        RingIcon icon;
        icon.center = scene.geometry.slotCenter(slot);
        icon.icon = m_icons.image(app.icon(), sides.width(), scene.devicePixelRatio);
        icon.emphasis = m_motion.emphasis(app.id());
        if (icon.emphasis != 0) {
            icon.emphasizedIcon = m_icons.image(app.icon(), sides.height(), scene.devicePixelRatio);
        }
        icon.isRunning = m_interaction.isRunning(app);
        icon.dimsWhenNotRunning = !m_interaction.isFiltering();
        scene.icons.append(icon);
    }
    return scene;
}

RingCenter RadialLauncherView::centerTexts() const
{
    const QList<IndexedApp>& apps = m_interaction.ringApps();
    RingCenter center;
    center.query = drawable(m_interaction.query() + m_filterField->preedit());
    center.hint = u"Type to filter..."_s;
    center.fieldOpacity = center.query.isEmpty() ? m_fieldFade.opacity() : 1.0;
    if (m_interaction.isPinnedForSearch()) {
        center.indicator = center.query.isEmpty() ? u"Pinned"_s : u"Search mode"_s;
    }
    if (m_dependencies.ring.settings.showsAppNames() && m_interaction.hasActiveSelection()
        && m_interaction.selectedIndex() < apps.size()) {
        center.selectedName = drawable(apps.at(m_interaction.selectedIndex()).name());
    }
    if (m_interaction.isFiltering() && apps.isEmpty()) {
        if (m_interaction.isIndexing()) {
            center.spinnerStep = static_cast<int>(m_spinnerTurns * 12) % 12;
        } else {
            center.message = u"No matches"_s;
        }
    }
    center.launchHint = m_interaction.launchHint().value_or(QString());
    return center;
}

QRect RadialLauncherView::slotRect(int slot)
{
    const RingGeometry ring = geometryInPoints();
    const QPointF center = ring.slotCenter(slot) - inRingPlane({0, 0});
    const double side = ring.effectiveIconSize;
    return QRectF(center.x() - side / 2, center.y() - side / 2, side, side).toAlignedRect();
}

void RadialLauncherView::paintEvent(QPaintEvent* event)
{
    const RingScene now = scene();
    QPainter painter(this);
    const LauncherPresentationState& presentation = m_dependencies.ring.presentation;
    const bool isInFlight = presentation.scale() != 1.0 || presentation.opacity() != 1.0;
    if (!isInFlight) {
        RingPainter::paint(painter, now, m_images.band(now), event->rect());
    } else if (now.isOpaque) {
        // Without blending there is no fading and no shape in flight: the ring stands at once.
        RingPainter::paintInFlight(painter, m_images.wholeRing(now), {});
    } else {
        RingPainter::paintInFlight(
            painter,
            m_images.wholeRing(now),
            {.scale = presentation.scale(), .opacity = presentation.opacity()});
    }
}

void RadialLauncherView::renderAhead()
{
    const RingScene next = scene();
    static_cast<void>(m_images.wholeRing(next));
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
    const RingScene now = scene();
    if (now == m_shapedScene) {
        return;
    }
    m_shapedScene = now;
    if (now.isOpaque) {
        window()->setMask(RingPainter::shape(now));
    } else if (!window()->mask().isEmpty()) {
        window()->clearMask();
    }
}

void RadialLauncherView::refreshAppearance()
{
    placeFilterField();
    if (isVisible()) {
        update();
        if (!m_dependencies.windowServer.isCompositing()) {
            updateShape();
        }
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
    const RingScene before = moves ? RingScene() : scene();
    m_motion.follow(m_interaction, moves);
    if (moves) {
        startFrames();
    } else if (isVisible()) {
        repaintHighlight(before);
    }
    Q_EMIT selectionChanged();
}

void RadialLauncherView::centerChanged()
{
    if (m_filterField->text() != m_interaction.query()) {
        m_filterField->setText(m_interaction.query());
    }
    showField();
    const bool spins = m_interaction.isFiltering() && m_interaction.isIndexing();
    if (spins && isVisible()) {
        startFrames();
    }
    refreshAppearance();
}

void RadialLauncherView::prefetchIcons()
{
    QList<AppIcon> ring;
    for (const IndexedApp& app : m_interaction.ringApps()) {
        ring << app.icon();
    }
    if (isVisible()) {
        prefetch(ring, devicePixelRatioF(), true);
        return;
    }
    const QList<IndexedApp>& apps = m_dependencies.ring.catalog.apps();
    QList<AppIcon> head;
    for (const IndexedApp& app : apps.first(std::min<qsizetype>(catalogHead, apps.size()))) {
        head << app.icon();
    }
    // The next summon may be on any screen; the present one's icons matter most and come last.
    QList<double> ratios{devicePixelRatioF()};
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (!ratios.contains(screen->devicePixelRatio())) {
            ratios.prepend(screen->devicePixelRatio());
        }
    }
    prefetch(head, devicePixelRatioF(), false);
    for (const double ratio : ratios) {
        prefetch(ring, ratio, true);
    }
}

void RadialLauncherView::prefetch(const QList<AppIcon>& icons, double ratio, bool alsoSelected)
{
    const QSize sides = spriteSides(ratio);
    if (alsoSelected) {
        m_icons.prefetch(icons, sides.height(), ratio);
    }
    m_icons.prefetch(icons, sides.width(), ratio);
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
    const bool spins = before.center.spinnerStep >= 0;
    m_spinnerTurns = spins ? m_spinnerTurns + seconds / spinnerTurnSeconds : 0;

    repaintHighlight(before);
    if (!isVisible() || (!turns && !spins && !m_fieldFade.isFading())) {
        m_frames.cancel();
    }
}

/// Repaints what differs from `before`: the wedge's old and new place, changed slots, the centre.
void RadialLauncherView::repaintHighlight(const RingScene& before)
{
    const RingScene now = scene();
    if (before.icons.size() != now.icons.size()) {
        update();
        return;
    }
    QRegion dirty;
    if (before.wedgeDegrees != now.wedgeDegrees || before.showsWedge != now.showsWedge) {
        dirty += RingPainter::wedgeBounds(before).toAlignedRect();
        dirty += RingPainter::wedgeBounds(now).toAlignedRect();
    }
    for (qsizetype slot = 0; slot < now.icons.size(); ++slot) {
        if (!(before.icons.at(slot) == now.icons.at(slot))) {
            dirty += RingPainter::slotBounds(now, now.icons.at(slot)).toAlignedRect();
        }
    }
    if (!(before.center == now.center)) {
        const double reach = now.geometry.innerRadius;
        const QPointF middle = now.geometry.center - inRingPlane({0, 0});
        dirty
            += QRectF(middle.x() - reach, middle.y() - reach, 2 * reach, 2 * reach).toAlignedRect();
    }
    update(dirty);
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
    m_interaction.setShown(true);
    m_filterField->setFocus(Qt::OtherFocusReason);
    showField();
}

void RadialLauncherView::hideEvent(QHideEvent*)
{
    m_frames.cancel();
    m_fieldFade.cancel();
    m_pressedSlot = -1;
    m_wheelDelta = 0;
    m_interaction.setShown(false);
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
    const std::optional<int> slot = geometryInPoints().slotAt(inRingPlane(event->position()));
    m_pressedSlot = event->button() == Qt::LeftButton ? slot.value_or(-1) : -1;

    const RingGeometry ring = geometryInPoints();
    const QPointF offset = inRingPlane(event->position()) - ring.center;
    const bool isOutside = std::hypot(offset.x(), offset.y()) > ring.outerRadius;
    if (isOutside) {
        // The panel's transparent corners look like what lies below: a click there is outside.
        m_dependencies.onClose();
    }
}

void RadialLauncherView::mouseReleaseEvent(QMouseEvent* event)
{
    const int pressed = std::exchange(m_pressedSlot, -1);
    const std::optional<int> slot = geometryInPoints().slotAt(inRingPlane(event->position()));
    if (event->button() == Qt::LeftButton && slot && *slot == pressed) {
        m_interaction.clickSlot(*slot);
    }
}

void RadialLauncherView::wheelEvent(QWheelEvent* event)
{
    m_wheelDelta += event->angleDelta().y();
    for (; m_wheelDelta >= wheelStep; m_wheelDelta -= wheelStep) {
        m_interaction.moveSelectionLeft();
    }
    for (; m_wheelDelta <= -wheelStep; m_wheelDelta += wheelStep) {
        m_interaction.moveSelectionRight();
    }
    event->accept();
}

} // namespace Tavik
