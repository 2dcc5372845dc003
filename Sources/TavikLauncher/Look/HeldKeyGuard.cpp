// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/HeldKeyGuard.h>

#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

namespace Tavik {

HeldKeyGuard::HeldKeyGuard(QWidget& window)
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
        m_pressed.clear();
        m_released.clear();
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
        m_released.insert(release.nativeScanCode(), release.timestamp());
        return false;
    }
    default:
        return false;
    }
}

bool HeldKeyGuard::isHeldOver(const QKeyEvent& press)
{
    // A repeat is a release and a press at the same moment.
    const quint32 key = press.nativeScanCode();
    const auto released = m_released.constFind(key);
    const bool isRepeat
        = released != m_released.cend() && *released == press.timestamp() && press.timestamp() != 0;
    if (!isRepeat) {
        m_pressed.insert(key);
    }
    return isRepeat && !m_pressed.contains(key);
}

} // namespace Tavik
