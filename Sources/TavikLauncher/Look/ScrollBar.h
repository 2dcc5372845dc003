// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollBar>

namespace Tavik {

/// A thin scroll bar without buttons.
class ScrollBar final : public QScrollBar
{
    Q_OBJECT

public:
    explicit ScrollBar(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {breadth, breadth}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    static constexpr int breadth = 12;

    [[nodiscard]] QRectF thumb() const;

    double m_grip = -1; ///< Where the thumb was taken, from its top; negative while it is not.
};

} // namespace Tavik
