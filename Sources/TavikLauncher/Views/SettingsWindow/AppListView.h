// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Catalog/AppIconCache.h>

#include <QListView>

namespace Tavik {

/// A list of applications with icons, as high as its content up to a few rows. In the `reorder`
/// form rows are dragged, or moved with Alt and an arrow key, and removed with Delete; in the
/// `pick` form a click or Return picks one.
class AppListView final : public QListView
{
    Q_OBJECT

public:
    enum class Form {
        reorder,
        pick,
    };

    struct Options
    {
        Form form = Form::reorder;
        QString placeholder; ///< Shown while there is nothing to list.
    };

    AppListView(AppIconCache& icons, Options options, QWidget* parent = nullptr);

    [[nodiscard]] Form form() const { return m_options.form; }
    [[nodiscard]] AppIconCache& icons() const { return m_icons; }
    void setModel(QAbstractItemModel* model) override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void moveRequested(int from, int to);
    void removeRequested(int row);
    void picked(int row);
    /// Escape during a drag: back to where the row was taken from.
    void dragCancelled(int from, int origin);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void dragTo(const QPoint& position);

    AppIconCache& m_icons;
    Options m_options;
    int m_dragOrigin = -1; ///< The row that was pressed; -1 without a drag.
    QPoint m_pressedAt;
    bool m_isDragging = false;
};

} // namespace Tavik
