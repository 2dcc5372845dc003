// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11KeyReader.h>

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace Tavik {

/// What the monitors need to read an event; valid as long as they are.
struct X11KeyMonitorDependencies
{
    std::function<const X11KeyboardMap&()> map;
    std::function<double()> uptime; ///< The main queue's clock.
    std::function<bool()> isTrusted; ///< Whether other programs' keys may be looked at.
};

/// The key events of our own windows, as the toolkit is about to hand them out.
class X11LocalKeyMonitor final : public QObject, public KeyMonitor
{
public:
    X11LocalKeyMonitor(X11KeyMonitorDependencies dependencies,
                       KeyEvents::Kind kind,
                       KeyEvents::Filter filter);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    X11KeyMonitorDependencies m_dependencies;
    KeyEvents::Kind m_kind;
    KeyEvents::Filter m_filter;
    X11KeyReader m_reader;
};

/// Changes of the modifiers as the keyboard extension tells them to the toolkit's connection,
/// whoever has the keyboard. Unlike key events these carry the state after the change.
class X11ModifierMonitor final : public KeyMonitor, public QAbstractNativeEventFilter
{
public:
    /// `keyboardEvent` is the number of the keyboard extension's events.
    X11ModifierMonitor(X11KeyMonitorDependencies dependencies,
                       int keyboardEvent,
                       KeyEvents::Observer observer);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    X11KeyMonitorDependencies m_dependencies;
    int m_keyboardEvent;
    KeyEvents::Observer m_observer;
};

/// Tells that one of our windows has taken or lost the keyboard.
class X11FocusMonitor final : public QObject, public KeyMonitor
{
public:
    explicit X11FocusMonitor(std::function<void()> changed);
};

} // namespace Tavik
