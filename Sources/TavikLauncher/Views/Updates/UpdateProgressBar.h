// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QProgressBar>

#include <utility>

namespace Tavik {

class DesktopAppearance;

/// A slim bar that fills, or, while it is not known how long something takes, along which a piece
/// glides. Moves only while it can be seen, and not at all where the desktop asks for little
/// motion.
class UpdateProgressBar final : public QProgressBar
{
    Q_OBJECT

public:
    UpdateProgressBar(MainQueue& mainQueue, const DesktopAppearance& appearance, QWidget* parent);

    /// `share` of the whole, 0 to 1; below 0 when it is not known.
    void setShare(double share);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] bool isKnown() const { return maximum() > 0; }
    /// The filled piece, as shares of the length.
    [[nodiscard]] std::pair<double, double> piece() const;
    void updateMotion();

    MainQueue& m_mainQueue;
    const DesktopAppearance& m_appearance;
    Task m_motion;
    int m_step = 0;
};

} // namespace Tavik
