// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QWidget>

namespace Tavik {

/// A small turning wheel: something is going on. Turns only while it can be seen.
class BusyIndicator final : public QWidget
{
    Q_OBJECT

public:
    BusyIndicator(MainQueue& mainQueue, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override { return {side, side}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    static constexpr int side = 16;

    MainQueue& m_mainQueue;
    Task m_turns;
    int m_step = 0;
};

} // namespace Tavik
