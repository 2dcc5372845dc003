// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Pressable.h>

#include <QEvent>
#include <QKeyEvent>

namespace Tavik {

bool pressByKey(QAbstractButton& button, const QKeyEvent& event)
{
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool isSpace = event.key() == Qt::Key_Space;
    if (isReturn && !event.isAutoRepeat()) {
        button.click();
    }
    // The toolkit presses with Space as the key is let go.
    return isReturn || (isSpace && event.isAutoRepeat());
}

Pressable::Pressable(QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void Pressable::keyPressEvent(QKeyEvent* event)
{
    if (!pressByKey(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}

bool Pressable::event(QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        update();
    }
    return QAbstractButton::event(event);
}

} // namespace Tavik
