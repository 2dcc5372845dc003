// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherPresentationState.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/Ring/CenterLayout.h>
#include <TavikLauncher/Views/Ring/FilterField.h>
#include <TavikLauncher/Views/Ring/RadialLauncherView.h>
#include <TavikLauncher/Views/Ring/RingPainter.h>
#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/WindowServer.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QEnterEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr double frameSeconds = 1.0 / 120.0;
constexpr double renderAheadDelay = 0.03;

} // namespace

RadialLauncherView::RadialLauncherView(const Dependencies& dependencies, QWidget* parent)
    : QWidget(parent)
    , m_dependencies(dependencies)
    , m_interaction(dependencies.ring, dependencies.ownIdentifier, dependencies.onClose)
    , m_pointer(m_interaction, dependencies.onClose)
    , m_filterField(new FilterField(this))
    , m_shape(*this,
              dependencies.windowServer,
              dependencies.ring.mainQueue,
              [this] { refreshAppearance(); })
    , m_stage(stageSources(), [this] { startFrames(); })
{
    setMouseTracking(true);
    setFocusProxy(m_filterField);
    setAccessibleName(u"Tavik Launcher"_s);
    connectInteraction();
    connectSurroundings();
    m_interaction.appear();
}

RadialLauncherView::~RadialLauncherView() = default;

RingStage::Sources RadialLauncherView::stageSources()
{
    const RingInteraction::Dependencies& ring = m_dependencies.ring;
    return {.interaction = m_interaction,
            .settings = ring.settings,
            .presentation = ring.presentation,
            .catalog = ring.catalog,
            .windowServer = m_dependencies.windowServer,
            .shape = m_shape,
            .field = *m_filterField,
            .view = *this,
            .iconDecoder = m_dependencies.iconDecoder,
            .workQueue = ring.workQueue,
            .mainQueue = ring.mainQueue};
}

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
        m_stage.refreshStyle();
        refreshAppearance();
    });
    connect(&m_dependencies.ring.catalog, &AppCatalog::appsChanged, this, [this] {
        m_stage.prefetchIcons();
    });
    connect(&m_dependencies.ring.catalog,
            &AppCatalog::foldersChanged,
            &m_stage.iconCache(),
            &AppIconCache::invalidate);
    connect(&m_stage.iconCache(), &AppIconCache::imageReady, this, [this] { refreshAppearance(); });
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
    m_stage.outdate();
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
            // The images of the ring that was shown have gone.
            m_dependencies.ring.workQueue.releaseMemory();
        }
    });
}

void RadialLauncherView::updateShape()
{
    m_stage.outdate(); // The compositor may have come or gone.
    m_shape.fit(scene());
}

void RadialLauncherView::refreshAppearance()
{
    m_stage.outdate();
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
    m_stage.followHighlight(false);
    m_stage.prefetchIcons();
    refreshAppearance();
    Q_EMIT slotsChanged();
}

void RadialLauncherView::highlightMoved(bool animated)
{
    if (animated && isVisible() && !m_dependencies.appearance.reducesMotion()) {
        m_stage.followHighlight(true);
        startFrames();
    } else {
        const RingScene before = scene();
        m_stage.followHighlight(false);
        if (isVisible()) {
            repaintHighlight(before);
        }
    }
    Q_EMIT selectionChanged();
}

void RadialLauncherView::centerChanged()
{
    m_stage.outdate();
    if (m_filterField->text() != m_interaction.query()) {
        m_filterField->setText(m_interaction.query());
    }
    m_stage.showField();
    setCursor(scene().center.isInvitation ? Qt::PointingHandCursor : Qt::ArrowCursor);
    const bool spins = m_interaction.isFiltering() && m_interaction.isIndexing();
    if (spins && isVisible()) {
        startFrames();
    }
    refreshAppearance();
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
    const bool goesOn = m_stage.advance(seconds);
    if (before.isOpaque && scene().center.fieldOpacity != before.center.fieldOpacity) {
        updateShape();
    }
    if (m_stage.isFieldFading()) {
        placeFilterField();
    }
    repaintHighlight(before);
    if (!isVisible() || !goesOn) {
        m_frames.cancel();
    }
}

void RadialLauncherView::repaintHighlight(const RingScene& before)
{
    update(RingPainter::dirtyRegion(before, scene()));
}

void RadialLauncherView::placeFilterField()
{
    const QPointF offset = m_stage.inRingPlane({0, 0});
    m_filterField->setGeometry(
        CenterLayout::fieldRect(scene()).translated(-offset).toAlignedRect());
}

bool RadialLauncherView::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::PaletteChange:
        m_stage.refreshStyle();
        [[fallthrough]];
    case QEvent::FontChange:
    case QEvent::ScreenChangeInternal:
        m_stage.prefetchIcons();
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
    m_stage.showField();
}

void RadialLauncherView::hideEvent(QHideEvent*)
{
    m_frames.cancel();
    m_stage.keepField();
    m_pointer.reset();
    m_shape.forget();
    // Resets what this summon left behind, so that the ring drawn ahead is the next summon's.
    m_interaction.prepareForShow(false);
    m_stage.followHighlight(false);
    scheduleRenderAhead();
}

void RadialLauncherView::enterEvent(QEnterEvent* event)
{
    m_interaction.hoverAt(m_stage.inRingPlane(event->position()), m_stage.geometry());
}

void RadialLauncherView::mouseMoveEvent(QMouseEvent* event)
{
    m_interaction.hoverAt(m_stage.inRingPlane(event->position()), m_stage.geometry());
}

void RadialLauncherView::mousePressEvent(QMouseEvent* event)
{
    const QPointF position = m_stage.inRingPlane(event->position());
    if (event->button() == Qt::LeftButton && isOnInvitation(position)) {
        m_dependencies.onClose();
        if (m_dependencies.onFillRing) {
            m_dependencies.onFillRing();
        }
        return;
    }
    // Without blending the ring is not seen to grow.
    const double scale = scene().isOpaque ? 1 : m_dependencies.ring.presentation.scale();
    m_pointer.press(position, event->button(), m_stage.geometry(), scale);
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
    m_pointer.release(m_stage.inRingPlane(event->position()), event->button(), m_stage.geometry());
}

void RadialLauncherView::wheelEvent(QWheelEvent* event)
{
    m_pointer.turnWheel(event->angleDelta().y());
    event->accept();
}

} // namespace Tavik
