// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>

#include <optional>

class QKeyEvent;
class QWidget;

namespace Tavik {

class WindowServer;

/// Keeps from a window the keys that were down already when it got the keyboard: they were meant
/// for something else, though the toolkit may report their next repeat as a press. Such a key
/// counts again once it has been let go. A member of the window.
class HeldKeyGuard final : public QObject
{
    Q_OBJECT

public:
    HeldKeyGuard(const WindowServer& windowServer, QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool filter(QEvent& event);
    void remember();
    [[nodiscard]] bool isHeldOver(const QKeyEvent& press);

    const WindowServer& m_windowServer;
    /// When these keys, by their native scan codes, were last reported released, on the events' own
    /// clock.
    QHash<quint32, std::optional<quint64>> m_held;
};

} // namespace Tavik
