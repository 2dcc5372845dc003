// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11KeyReader.h>

#include <QObject>

namespace Tavik {

class X11ModifierState;

/// What the monitors need to read an event; valid as long as they are.
struct X11KeyMonitorDependencies
{
    std::function<const X11KeyboardMap&()> map;
    std::function<double()> uptime; ///< The main queue's clock.
    std::function<bool()> isTrusted; ///< Whether other programs' keys may be looked at.
    X11ModifierState& modifiers;
};

/// The key events of our own windows, as the toolkit is about to hand them out. Changes of the
/// modifiers are only told, never swallowed.
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

/// Changes of the modifiers as the keyboard extension tells them, whoever has the keyboard.
class X11ModifierMonitor final : public QObject, public KeyMonitor
{
public:
    X11ModifierMonitor(const X11KeyMonitorDependencies& dependencies, KeyEvents::Observer observer);
};

} // namespace Tavik
