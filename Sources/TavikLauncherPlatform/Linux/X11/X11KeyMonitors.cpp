// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyMonitors.h>
#include <TavikLauncherPlatform/Linux/X11/X11ModifierState.h>

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
    const xcb_key_press_event_t told{
        .response_type = static_cast<uint8_t>(isPress ? XCB_KEY_PRESS : XCB_KEY_RELEASE),
        .detail = static_cast<xcb_keycode_t>(key.nativeScanCode()),
        .time = static_cast<xcb_timestamp_t>(key.timestamp()),
        .state = static_cast<uint16_t>(key.nativeModifiers())};
    const double now = m_dependencies.uptime();
    // A copy, because the filter may end its own monitor.
    const KeyEvents::Filter filter = m_filter;
    if (m_kind == KeyEvents::Kind::modifiersChanged) {
        if (m_dependencies.map().modifiersOfKey.at(told.detail) != 0) {
            m_dependencies.modifiers.ask(
                this, uptimeOfServerTime(told.time, now), [filter](quint64 flags, double time) {
                    filter({.modifierFlags = flags, .time = time});
                });
        }
        return false;
    }
    const std::optional<KeyEvents::Event> meaning = m_reader.read(told, m_dependencies.map(), now);
    return meaning && filter(*meaning);
}

X11ModifierMonitor::X11ModifierMonitor(const X11KeyMonitorDependencies& dependencies,
                                       KeyEvents::Observer observer)
{
    dependencies.modifiers.follow(this,
                                  [isTrusted = dependencies.isTrusted,
                                   observer = std::move(observer)](quint64 flags, double time) {
                                      if (isTrusted()) {
                                          // A copy, because the observer may end its own monitor.
                                          const KeyEvents::Observer tell = observer;
                                          tell({.modifierFlags = flags, .time = time});
                                      }
                                  });
}

} // namespace Tavik
