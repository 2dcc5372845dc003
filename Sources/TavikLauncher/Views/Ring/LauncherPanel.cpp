// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/KeyTranslation.h>
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherKeys.h>
#include <TavikLauncher/Views/Ring/LauncherPanel.h>
#include <TavikLauncher/Views/Ring/RadialLauncherView.h>
#include <TavikLauncherPlatform/ScreenPlane.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QKeyEvent>
#include <QWindow>

#include <array>
#include <cmath>
#include <utility>

namespace Tavik {

using ScreenPlane::primaryBottom;

using namespace Qt::StringLiterals;

namespace {

constexpr double focusWatchSeconds = 0.2;
constexpr double grabRetrySeconds = 0.02;

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
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
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
}

LauncherPanel::~LauncherPanel()
{
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
    if (target != geometry()) {
        setGeometry(target);
    }
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
}

void LauncherPanel::makeKeyAndOrderFront()
{
    if (!isVisible()) {
        m_activates = true;
        orderFrontRegardless();
    }
    setAcceptsKeyboard(true);
    activateWindow();
    m_dependencies.windowServer.takeKeyboardFocus(winId());
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
    // Hiding reports a deactivation on its own.
    if (m_isOrderingOut || !isVisible()) {
        return;
    }
    m_isOrderingOut = true;
    m_focusWatch.cancel();
    setHoldsKeyboard(false);
    hide();
    if (m_activates) {
        m_dependencies.windowServer.returnKeyboardFocus(winId());
    }
    setAcceptsKeyboard(true);
    m_activates = false;
    m_isKey = false;
    m_isOrderingOut = false;
}

void LauncherPanel::setHoldsKeyboard(bool holds)
{
    m_holdsKeyboard = holds;
    updateKeyboardGrab();
}

void LauncherPanel::updateKeyboardGrab()
{
    QWindow* window = windowHandle();
    const bool wanted = m_holdsKeyboard && isVisible();
    if (window && wanted != m_grabsKeyboard) {
        m_grabsKeyboard = window->setKeyboardGrabEnabled(wanted) && wanted;
    }
    if (wanted == m_grabsKeyboard) {
        m_grabRetry.cancel();
    } else if (!m_grabRetry.isActive()) {
        // The window is not on the screen yet, or another program has the keyboard for a moment.
        m_grabRetry
            = m_dependencies.mainQueue.every(grabRetrySeconds, [this] { updateKeyboardGrab(); });
    }
}

bool LauncherPanel::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate) {
        deactivated();
    } else if (event->type() == QEvent::WindowActivate) {
        // The toolkit counts every window of the program as active while one of them is.
        m_isKey = m_activates || !hasLostKeyboard();
        m_focusWatch.cancel();
        updateKeyboardGrab();
    }
    return QWidget::event(event);
}

bool LauncherPanel::hasLostKeyboard() const
{
    return !m_dependencies.windowServer.hasKeyboardFocus(internalWinId());
}

void LauncherPanel::deactivated()
{
    // What never had the keyboard, as a preview, cannot lose it.
    if (m_isOrderingOut || !isVisible() || (!m_activates && !m_isKey)) {
        return;
    }
    if (hasLostKeyboard()) {
        if (onResignKey) {
            onResignKey();
        }
        return;
    }
    // Another program's grab looks like a deactivation but leaves the focus here. The toolkit
    // reports nothing more if the focus really goes while the grab lasts, so it has to be asked
    // for.
    m_focusWatch = m_dependencies.mainQueue.every(focusWatchSeconds, [this] {
        if (isActiveWindow()) {
            m_focusWatch.cancel();
        } else if (hasLostKeyboard()) {
            m_focusWatch.cancel();
            if (onResignKey) {
                onResignKey();
            }
        }
    });
}

void LauncherPanel::keyPressEvent(QKeyEvent* event)
{
    if (!dispatchLauncherKey(launcherKey(*event, m_dependencies.keyEvents),
                             m_dependencies.commands)) {
        QWidget::keyPressEvent(event);
    }
}

void LauncherPanel::resizeEvent(QResizeEvent*)
{
    m_ring->setGeometry(rect());
}

} // namespace Tavik
