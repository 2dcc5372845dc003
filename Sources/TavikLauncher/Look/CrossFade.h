// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QPixmap>
#include <QWidget>

namespace Tavik {

/// Lets what a widget showed go over into what it shows now. It lies over the widget, takes no
/// input, and deletes itself at the end.
class CrossFade final : public QWidget
{
public:
    /// Takes the picture of what `widget` shows; does nothing for one that is not shown. Call it
    /// before the change.
    static void begin(QWidget& widget, MainQueue& mainQueue);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CrossFade(QWidget& widget, MainQueue& mainQueue);
    [[nodiscard]] double progress() const; ///< 0 to 1.
    void advance();

    MainQueue& m_mainQueue;
    QPixmap m_before;
    double m_startedAt;
    Task m_frames;
};

} // namespace Tavik
