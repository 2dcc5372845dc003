// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/Symbol.h>

#include <QWidget>

namespace Tavik {

/// A miniature of the list in which the permission is switched on, with a callout at the right row.
/// A picture only: assistive technology is told by the paragraph above it.
class SettingsDiagram final : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsDiagram(QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct DiagramRow
    {
        QString label;
        Symbol icon;
        bool highlighted;
    };
    void paintRow(QPainter& painter, const DiagramRow& row, const QRectF& place) const;
    void paintCallout(QPainter& painter, const QRectF& row) const;
};

} // namespace Tavik
