// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyMonitors.h>
#include <TavikLauncherPlatform/Linux/X11/XkbProtocol.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#include <utility>

namespace Tavik {

X11LocalKeyMonitor::X11LocalKeyMonitor(X11KeyMonitorDependencies dependencies,
                                       KeyEvents::Kind kind,
                                       KeyEvents::Filter filter)
    : m_dependencies(std::move(dependencies))
    , m_kind(kind)
    , m_filter(std::move(filter))
{
    QCoreApplication::instance()->installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this] { m_reader.forget(); });
}

bool X11LocalKeyMonitor::eventFilter(QObject* watched, QEvent* event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    if ((!isPress && event->type() != QEvent::KeyRelease) || !watched->isWindowType()) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.nativeScanCode() == 0 || key.nativeScanCode() >= X11KeyboardMap::keyCount) {
        return false; // Not from the server: an input method wrote it.
    }
    const std::optional<KeyEvents::Event> meaning
        = m_reader.read({.isPress = isPress,
                         .key = static_cast<xcb_keycode_t>(key.nativeScanCode()),
                         .stateBefore = static_cast<quint16>(key.nativeModifiers()),
                         .time = static_cast<quint32>(key.timestamp())},
                        m_dependencies.map(),
                        m_dependencies.uptime());
    if (!meaning || meaning->kind != m_kind) {
        return false;
    }
    // A copy, because the filter may end its own monitor.
    const KeyEvents::Filter filter = m_filter;
    return filter(*meaning);
}

X11ModifierMonitor::X11ModifierMonitor(X11KeyMonitorDependencies dependencies,
                                       int keyboardEvent,
                                       KeyEvents::Observer observer)
    : m_dependencies(std::move(dependencies))
    , m_keyboardEvent(keyboardEvent)
    , m_observer(std::move(observer))
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool X11ModifierMonitor::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t") {
        return false;
    }
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if (x11EventType(event->response_type) != m_keyboardEvent || event->pad0 != XCB_XKB_STATE_NOTIFY
        || !m_dependencies.isTrusted()) {
        return false;
    }
    const auto* state = reinterpret_cast<const xcb_xkb_state_notify_event_t*>(event);
    const KeyEvents::Event change{
        .modifierFlags = m_dependencies.map().modifiers.flagsFor(state->mods),
        .time = uptimeOfServerTime(state->time, m_dependencies.uptime()),
    };
    const KeyEvents::Observer observer = m_observer;
    observer(change);
    return false;
}

X11FocusMonitor::X11FocusMonitor(std::function<void()> changed)
{
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [changed = std::move(changed)] {
        const std::function<void()> tell = changed;
        tell();
    });
}

} // namespace Tavik
