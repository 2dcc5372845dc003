// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/ToolkitKeyEvents.h>
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/Session/KeySymbols.h>
#include <TavikLauncherPlatform/Linux/Session/SessionAccessibilityPermission.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>

#include <utility>

namespace Tavik {

namespace {

/// Where the third level of a key is chosen, in every layout in use.
constexpr quint32 levelModifier = 1U << 7U;
constexpr double millisecondsInSecond = 1000;

quint64 flagsOf(Qt::KeyboardModifiers modifiers)
{
    return (modifiers.testFlag(Qt::ShiftModifier) ? ModifierFlags::shift : 0)
        | (modifiers.testFlag(Qt::ControlModifier) ? ModifierFlags::control : 0)
        | (modifiers.testFlag(Qt::AltModifier) ? ModifierFlags::option : 0)
        | (modifiers.testFlag(Qt::MetaModifier) ? ModifierFlags::command : 0);
}

/// 0 for a key that is no modifier.
quint64 flagOf(int key)
{
    switch (key) {
    case Qt::Key_Shift:
        return ModifierFlags::shift;
    case Qt::Key_Control:
        return ModifierFlags::control;
    case Qt::Key_Alt:
        return ModifierFlags::option;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return ModifierFlags::command;
    default:
        return 0;
    }
}

/// The keys of our own windows, as the toolkit is about to hand them out.
class ToolkitKeyMonitor final : public QObject, public KeyMonitor
{
public:
    ToolkitKeyMonitor(KeyEvents::Kind kind, KeyEvents::Filter filter)
        : m_kind(kind)
        , m_filter(std::move(filter))
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isPress = event->type() == QEvent::KeyPress;
        if ((!isPress && event->type() != QEvent::KeyRelease) || !watched->isWindowType()) {
            return false;
        }
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const quint64 changed = flagOf(key.key());
        const bool isChange = changed != 0;
        if (isChange != (m_kind == KeyEvents::Kind::modifiersChanged) || (!isChange && !isPress)
            || key.nativeScanCode() < KeyCodes::x11Offset) {
            return false;
        }
        const std::optional<quint16> code = KeyCodes::virtualKeyCode(
            static_cast<quint16>(key.nativeScanCode() - KeyCodes::x11Offset));
        // The toolkit may tell what was in effect before or after the key.
        const quint64 told = flagsOf(key.modifiers());
        const quint64 flags = isPress ? told | changed : told & ~changed;
        // A copy, because the filter may end its own monitor.
        const KeyEvents::Filter filter = m_filter;
        const bool isTaken
            = filter({.kind = m_kind,
                      .keyCode = code.value_or(0),
                      .modifierFlags = flags,
                      .isRepeat = key.isAutoRepeat(),
                      .time = static_cast<double>(key.timestamp()) / millisecondsInSecond});
        return isTaken && !isChange && code;
    }

private:
    KeyEvents::Kind m_kind;
    KeyEvents::Filter m_filter;
};

} // namespace

Means ToolkitKeyEvents::triggerMeans(bool) const
{
    return {.way = Texts::tr("Only the keys of the launcher's own windows."),
            .lack = SessionAccessibilityPermission::waylandLimit()};
}

Means ToolkitKeyEvents::releaseMeans() const
{
    return {.way = Texts::tr("The ring's own keyboard, while it is open.")};
}

KeyEvents::HotKeyResult ToolkitKeyEvents::registerHotKey(const HotKey&, HotKeyHandlers)
{
    return {.registration = nullptr, .status = statusUnsupported};
}

std::unique_ptr<KeyMonitor> ToolkitKeyEvents::addLocalMonitor(Kind kind, Filter filter)
{
    return std::make_unique<ToolkitKeyMonitor>(kind, std::move(filter));
}

std::unique_ptr<KeyMonitor> ToolkitKeyEvents::addGlobalMonitor(Kind, Observer)
{
    return nullptr;
}

std::unique_ptr<EventTap> ToolkitKeyEvents::createEventTap(Kind, Observer, std::function<void()>)
{
    return nullptr;
}

std::optional<quint64> ToolkitKeyEvents::heldModifiers()
{
    return flagsOf(QGuiApplication::queryKeyboardModifiers());
}

std::optional<quint16> ToolkitKeyEvents::keyCode(const NativeKey& key) const
{
    if (key.scanCode < KeyCodes::x11Offset) {
        return std::nullopt;
    }
    return KeyCodes::virtualKeyCode(static_cast<quint16>(key.scanCode - KeyCodes::x11Offset));
}

std::optional<QString> ToolkitKeyEvents::characters(const NativeKey& key) const
{
    return KeySymbols::text(key.symbol);
}

KeyEvents::LevelUse ToolkitKeyEvents::levelUse(const NativeKey& key) const
{
    if (KeySymbols::choosesLevel(key.symbol)) {
        return LevelUse::chooser;
    }
    return (key.modifiers & levelModifier) != 0 ? LevelUse::chosen : LevelUse::none;
}

} // namespace Tavik
