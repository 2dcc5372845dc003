// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QSet>

class QKeyEvent;
class QWidget;

namespace Tavik {

/// Keeps from a window the keys that were down already when it got the keyboard: they were meant
/// for something else, though the toolkit may report their next repeat as a press. Such a key
/// counts again once it has been let go. A member of the window.
class HeldKeyGuard final : public QObject
{
    Q_OBJECT

public:
    explicit HeldKeyGuard(QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool filter(QEvent& event);
    [[nodiscard]] bool isHeldOver(const QKeyEvent& press);

    QSet<quint32> m_pressed; ///< Since the window got the keyboard; native scan codes.
    QHash<quint32, quint64> m_released; ///< When last, on the events' own clock.
};

} // namespace Tavik
