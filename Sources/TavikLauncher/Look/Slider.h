// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractSlider>

namespace Tavik {

/// A horizontal slider over whole steps. A click on the line takes the knob there, and a knob
/// that is taken keeps to the pointer where it was gripped; arrow keys step,
/// Page Up and Page Down leap, Home and End go to the ends. The wheel moves it only while it has
/// the focus, so that a page can be scrolled over it.
class Slider final : public QAbstractSlider
{
    Q_OBJECT

public:
    explicit Slider(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// The middle of the knob at `value`.
    [[nodiscard]] QPoint knobCenter(int value) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void moveKnob(double x);

    double m_grip = 0; ///< Where the knob was taken, from its middle.
};

} // namespace Tavik
