// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/HeldKeyGuard.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

namespace Tavik {

HeldKeyGuard::HeldKeyGuard(const WindowServer& windowServer, QWidget& window)
    : m_windowServer(windowServer)
{
    window.installEventFilter(this);
}

bool HeldKeyGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWidgetType()) {
        return filter(*event);
    }
    if (event->type() == QEvent::Show) {
        // All keys of a window come by here before any of its widgets has them.
        static_cast<QWidget*>(watched)->windowHandle()->installEventFilter(this);
    }
    return false;
}

bool HeldKeyGuard::filter(QEvent& event)
{
    switch (event.type()) {
    case QEvent::FocusIn:
        remember();
        return false;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (isHeldOver(static_cast<QKeyEvent&>(event))) {
            event.accept(); // Taken, it is no shortcut either.
            return true;
        }
        return false;
    case QEvent::KeyRelease: {
        const auto& release = static_cast<QKeyEvent&>(event);
        if (const auto held = m_held.find(release.nativeScanCode()); held != m_held.end()) {
            *held = release.timestamp();
        }
        return false;
    }
    default:
        return false;
    }
}

void HeldKeyGuard::remember()
{
    m_held.clear();
    for (const quint32 code : m_windowServer.heldKeys()) {
        m_held.insert(code, std::nullopt);
    }
}

bool HeldKeyGuard::isHeldOver(const QKeyEvent& press)
{
    const auto held = m_held.find(press.nativeScanCode());
    if (held == m_held.end()) {
        return false;
    }
    // A repeat is a release and a press at the same moment.
    const bool isRepeat = !*held || **held == press.timestamp();
    if (!isRepeat) {
        m_held.erase(held);
    }
    return isRepeat;
}

} // namespace Tavik
