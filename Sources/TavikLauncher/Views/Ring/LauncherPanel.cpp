// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/KeyTranslation.h>
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherKeys.h>
#include <TavikLauncher/Ring/RingGeometry.h>
#include <TavikLauncher/Views/Ring/LauncherPanel.h>
#include <TavikLauncher/Views/Ring/RadialLauncherView.h>
#include <TavikLauncherPlatform/ScreenPlane.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include <array>
#include <cmath>
#include <utility>

namespace Tavik {

using ScreenPlane::primaryBottom;

using namespace Qt::StringLiterals;

namespace {

/// A window that no window manager places is the toolkit's word for one it does not manage.
Qt::WindowFlags panelFlags(bool isManaged)
{
    const Qt::WindowFlags flags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
    return isManaged ? flags : flags | Qt::BypassWindowManagerHint;
}

struct CommandKey
{
    int key;
    quint16 keyCode;
};

/// By symbol, not by position: who has remapped Escape means the remapped key.
constexpr std::array<CommandKey, 9> commandKeys{{
    {Qt::Key_Return, LauncherKeyCode::returnKey},
    {Qt::Key_Enter, LauncherKeyCode::returnKey},
    {Qt::Key_Backspace, LauncherKeyCode::deleteKey},
    {Qt::Key_Delete, LauncherKeyCode::forwardDelete},
    {Qt::Key_Escape, LauncherKeyCode::escape},
    {Qt::Key_Left, LauncherKeyCode::leftArrow},
    {Qt::Key_Right, LauncherKeyCode::rightArrow},
    {Qt::Key_Down, LauncherKeyCode::downArrow},
    {Qt::Key_Up, LauncherKeyCode::upArrow},
}};

LauncherKey launcherKey(const QKeyEvent& event, const KeyEvents& keys)
{
    LauncherKey key;
    for (const CommandKey& entry : commandKeys) {
        if (entry.key == event.key()) {
            key.keyCode = entry.keyCode;
        }
    }
    key.charactersIgnoringModifiers = KeyTranslation::charactersIgnoringModifiers(event, keys);
    key.hasCommand = (event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) != 0;
    key.isAutoRepeat = event.isAutoRepeat();
    // Some layouts have their digits above Shift; the key is meant all the same.
    if (key.hasCommand && (event.modifiers() & Qt::ShiftModifier) == 0) {
        const std::optional<quint16> code = KeyTranslation::keyCode(event, keys);
        if (const auto digit = code ? KeyTranslation::digitOfRow(*code) : std::nullopt) {
            key.charactersIgnoringModifiers = QString::number(*digit);
        }
    }
    return key;
}

} // namespace

LauncherPanel::LauncherPanel(const Dependencies& dependencies,
                             std::unique_ptr<RadialLauncherView> ring)
    : QWidget(nullptr, panelFlags(dependencies.windowServer.isPanelManaged()))
    , m_dependencies(dependencies)
    , m_ring(ring.release())
    , m_heldKeys(*this)
{
    m_ring->setParent(this);
    setWindowTitle(u"Tavik Launcher"_s);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusProxy(m_ring);
    m_dependencies.windowServer.onCompositingChanged = [this] {
        m_ring->updateShape();
        m_ring->update();
    };
    m_dependencies.windowServer.onPointerFound = [this] {
        if (onPointerFound) {
            onPointerFound();
        }
    };
    m_dependencies.windowServer.onPanelPlaced = [this] {
        setUpdatesEnabled(true);
        // What was to be painted meanwhile has asked in vain, and does not ask again.
        QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest));
    };
    m_dependencies.windowServer.onPanelLeft = [this] {
        if (onResignKey) {
            onResignKey();
        }
    };
}

LauncherPanel::~LauncherPanel()
{
    m_dependencies.windowServer.onPointerFound = nullptr;
    m_dependencies.windowServer.onPanelPlaced = nullptr;
    m_dependencies.windowServer.onPanelLeft = nullptr;
    m_dependencies.windowServer.onCompositingChanged = nullptr;
}

void LauncherPanel::warmUp()
{
    if (isVisible()) {
        return; // A summon was faster.
    }
    // Shown to the toolkit only: style, layout and backing store are made without a flash.
    setAttribute(Qt::WA_DontShowOnScreen);
    show();
    hide();
    setAttribute(Qt::WA_DontShowOnScreen, false);
    m_ring->renderAhead();
}

QRectF LauncherPanel::frame() const
{
    return ScreenPlane::flipped(QRectF(geometry()), primaryBottom());
}

void LauncherPanel::setFrame(const QRectF& frame)
{
    const QRectF flipped = ScreenPlane::flipped(frame, primaryBottom());
    const QSize size(static_cast<int>(std::lround(flipped.width())),
                     static_cast<int>(std::lround(flipped.height())));
    const QRect target(flipped.topLeft().toPoint(), size);
    const QScreen* on = QGuiApplication::screenAt(flipped.center().toPoint());
    const bool isExact = !on || on->devicePixelRatio() == 1.0;
    if (isExact && target != geometry()) {
        setGeometry(target);
    } else if (!isExact && (frame != m_frame || size != this->size())) {
        // The toolkit rounds to points. The native window gets its place here, or the showing would
        // give it once more.
        setGeometry(target);
        winId();
        windowHandle()->setGeometry(target);
        m_dependencies.windowServer.movePanel(
            winId(), ScreenPlane::toDevice(flipped.topLeft(), *on).toPoint());
    }
    m_dependencies.windowServer.placePanel(internalWinId(), target);
    m_frame = frame;
}

bool LauncherPanel::isComposited() const
{
    return isVisible() && m_dependencies.windowServer.isOnScreen(internalWinId());
}

void LauncherPanel::activateApplication()
{
    m_activates = true;
}

void LauncherPanel::orderFrontRegardless()
{
    if (isVisible()) {
        raise();
        return;
    }
    setAttribute(Qt::WA_ShowWithoutActivating, !m_activates);
    setAcceptsKeyboard(m_activates);
    m_dependencies.windowServer.preparePanel(winId());
    show();
    setUpdatesEnabled(m_dependencies.windowServer.panelShown(winId()));
}

void LauncherPanel::makeKeyAndOrderFront()
{
    if (!isVisible()) {
        m_activates = true;
        orderFrontRegardless();
    }
    setAcceptsKeyboard(true);
    if (m_dependencies.windowServer.isPanelManaged()) {
        activateWindow();
    }
    m_isKey = true;
    m_dependencies.windowServer.takeKeyboardFocusForPanel();
}

void LauncherPanel::setAcceptsKeyboard(bool accepts)
{
    // Some window managers give the keyboard to every new window that would take it.
    winId();
    QWindow* window = windowHandle();
    if (window->flags().testFlag(Qt::WindowDoesNotAcceptFocus) == accepts) {
        window->setFlag(Qt::WindowDoesNotAcceptFocus, !accepts);
    }
}

void LauncherPanel::orderOut()
{
    if (!isVisible()) {
        return;
    }
    if (std::exchange(m_isKey, false)) {
        m_dependencies.windowServer.returnKeyboardFocus();
    }
    m_dependencies.windowServer.panelHides(winId());
    hide();
    m_activates = false;
}

void LauncherPanel::keyPressEvent(QKeyEvent* event)
{
    if (!dispatchLauncherKey(launcherKey(*event, m_dependencies.keyEvents),
                             m_dependencies.commands)) {
        QWidget::keyPressEvent(event);
    }
}

void LauncherPanel::moveEvent(QMoveEvent*)
{
    m_ring->panelMoved();
}

void LauncherPanel::resizeEvent(QResizeEvent*)
{
    m_ring->setGeometry(rect());
    m_ring->panelMoved();
    // What is clicked in the empty corners is what lies below.
    const double scale = devicePixelRatioF();
    const double side = width() * scale;
    const double diameter = side / RingGeometry::panelSide(1.0);
    const int margin = static_cast<int>(std::floor((side - diameter) / 2));
    const QRect whole(0, 0, static_cast<int>(side), static_cast<int>(side));
    m_dependencies.windowServer.setInputRegion(
        winId(), QRegion(whole.adjusted(margin, margin, -margin, -margin), QRegion::Ellipse));
}

} // namespace Tavik
