// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Wayland/WaylandWindowServer.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QScreen>
#include <QTransform>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.wayland")

/// What has not got the keyboard by then does not get it.
constexpr double takeSeconds = 0.25;
constexpr double toolkitSeconds = 0.02;
constexpr const char* activationToken = "XDG_ACTIVATION_TOKEN";

QWindow* windowOf(WId id)
{
    const QWindowList windows = QGuiApplication::allWindows();
    const auto found = std::ranges::find_if(
        windows, [id](const QWindow* window) { return window->handle() && window->winId() == id; });
    return found == windows.end() ? nullptr : *found;
}

QScreen* screenNamed(const QString& name)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto found = std::ranges::find(screens, name, &QScreen::name);
    return found == screens.end() ? QGuiApplication::primaryScreen() : *found;
}

} // namespace

std::unique_ptr<WaylandWindowServer> WaylandWindowServer::make(MainQueue& mainQueue)
{
    std::unique_ptr<WaylandWindowServer> server(new WaylandWindowServer(mainQueue));
    return server->m_connection.isComplete() && server->m_panel.isAvailable() ? std::move(server)
                                                                              : nullptr;
}

WaylandWindowServer::WaylandWindowServer(MainQueue& mainQueue)
    : m_mainQueue(mainQueue)
    , m_sentinels(m_connection, [this] { leave(); })
{
    m_connection.listen();
    m_panel.onPlaced = [this] {
        applyInputRegion();
        expectKeyboard();
        if (onPanelPlaced) {
            onPanelPlaced();
        }
    };
    m_panel.onClosed = [this] {
        leave();
    };
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        focusChanged(window);
    });
}

WaylandWindowServer::~WaylandWindowServer() = default;

Means WaylandWindowServer::pointerMeans() const
{
    return {.way = Texts::tr("An invisible surface on each screen, which the pointer enters."),
            .lack
            = m_connection.hasPointer() ? QString() : Texts::tr("This session has no pointer.")};
}

Means WaylandWindowServer::overlayMeans() const
{
    return {.way = Texts::tr("A surface in the compositor's layer above all windows.")};
}

std::optional<QRect> WaylandWindowServer::placeOf(const QString& title)
{
    return findPlace ? findPlace(title) : std::nullopt;
}

std::optional<QPointF> WaylandWindowServer::pointer()
{
    if (m_panel.isAttached() || !m_connection.hasPointer()) {
        return std::nullopt; // The sentinels are busy, or there is nothing to be seen.
    }
    const std::optional<WaylandSentinels::Place> place = m_sentinels.locate();
    m_unusedTask = m_mainQueue.after(0, [this] {
        if (!m_panel.isAttached()) {
            m_sentinels.hide();
        }
    });
    const QScreen* screen = place ? screenNamed(place->output) : nullptr;
    return screen ? std::optional(QPointF(screen->geometry().topLeft()) + place->point)
                  : std::nullopt;
}

void WaylandWindowServer::preparePanel(WId window)
{
    m_window = windowOf(window);
}

bool WaylandWindowServer::panelShown(WId)
{
    if (m_window && !m_panel.isAttached()) {
        const bool takesKeyboard = !m_window->flags().testFlag(Qt::WindowDoesNotAcceptFocus);
        m_panel.attach(*m_window, m_place, takesKeyboard);
    }
    return m_panel.isPlaced();
}

void WaylandWindowServer::placePanel(WId, const QRect& place)
{
    if (std::exchange(m_place, place) != place && m_panel.isAttached()) {
        m_panel.move(place);
        applyInputRegion();
    }
}

void WaylandWindowServer::panelHides(WId)
{
    m_isWatched = false;
    m_checkTask.cancel();
    m_panel.detach();
    m_sentinels.hide();
}

void WaylandWindowServer::setInputRegion(WId, const QRegion& region)
{
    m_inputRegion = region;
    if (m_panel.isAttached()) {
        applyInputRegion();
    }
}

void WaylandWindowServer::applyInputRegion()
{
    const double scale = m_window ? m_window->devicePixelRatio() : 1.0;
    const QRegion points = QTransform::fromScale(1 / scale, 1 / scale).map(m_inputRegion);
    m_panel.setInputRegion(points);
    // Compositors disagree on which of two surfaces of one layer is above.
    const QScreen* screen = QGuiApplication::screenAt(m_place.center());
    if (screen) {
        m_sentinels.spare(screen->name(),
                          points.translated(m_place.topLeft() - screen->geometry().topLeft()));
    }
}

void WaylandWindowServer::takeKeyboardFocus(WId window)
{
    if (QWindow* target = windowOf(window)) {
        target->requestActivate();
    }
}

void WaylandWindowServer::takeKeyboardFocusForPanel()
{
    if (std::exchange(m_isWatched, true)) {
        return;
    }
    m_hadFocus = QGuiApplication::focusWindow() == m_window;
    expectKeyboard();
    if (!m_panel.isAttached()) {
        return;
    }
    if (!m_sentinels.areShown()) {
        m_sentinels.show();
        applyInputRegion();
    }
    m_panel.takeKeyboard();
}

void WaylandWindowServer::expectKeyboard()
{
    if (!m_isWatched || !m_panel.isPlaced()) {
        return;
    }
    m_checkTask = m_mainQueue.after(takeSeconds, [this] {
        // The first frame may have taken us longer than that, and the toolkit tells later.
        m_panel.whenAnswered([this] {
            m_checkTask = m_mainQueue.after(toolkitSeconds, [this] {
                if (m_isWatched && QGuiApplication::focusWindow() != m_window) {
                    qCWarning(log, "The compositor gives the ring no keyboard");
                    leave();
                }
            });
        });
    });
}

void WaylandWindowServer::returnKeyboardFocus()
{
    m_isWatched = false;
}

void WaylandWindowServer::focusChanged(const QWindow* focused)
{
    if (!m_isWatched) {
        return;
    }
    if (focused == m_window) {
        m_hadFocus = true;
    } else if (m_hadFocus) {
        leave();
    }
}

void WaylandWindowServer::leave()
{
    if (m_isWatched && onPanelLeft) {
        onPanelLeft();
    }
}

bool WaylandWindowServer::hasKeyboardFocus(WId window) const
{
    return QGuiApplication::focusWindow() && QGuiApplication::focusWindow() == windowOf(window);
}

bool WaylandWindowServer::isOnScreen(WId) const
{
    return m_panel.isPlaced();
}

void WaylandWindowServer::beginActivation(const Activation& activation)
{
    // Where the toolkit looks for it when it asks for a window's activation.
    if (!activation.token.isEmpty()) {
        qputenv(activationToken, activation.token);
    }
}

void WaylandWindowServer::endActivation()
{
    qunsetenv(activationToken);
}

} // namespace Tavik
