// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/Symbol.h>
#include <TavikLauncher/Views/Ring/CenterLayout.h>
#include <TavikLauncher/Views/Ring/CenterPainter.h>
#include <TavikLauncher/Views/Ring/ToastPill.h>

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>
#include <numbers>

namespace Tavik::CenterPainter {

using CenterLayout::Label;
using CenterLayout::Row;

namespace {

constexpr QColor dimText(255, 255, 255, 178);

void paintPill(QPainter& painter, const RingScene& scene, const Label& label)
{
    const ToastPill pill{
        .isProminent = label.row != Row::indicator && label.row != Row::spinner,
        .opacity = scene.style.pillOpacity,
        .isOpaque = scene.isOpaque,
        .hasHardEdge = scene.hasHardEdge(),
        .cornerRadius = label.cornerRadius,
    };
    pill.paint(painter, label.rect);
}

QString elided(const Label& label, const QString& text, Qt::TextElideMode mode)
{
    // The label's width is that of the whole text, rounded.
    const double width = label.rect.width() - 2 * label.padding + 1;
    return QFontMetricsF(label.font).elidedText(text, mode, width);
}

void drawText(QPainter& painter, const QRectF& rect, const QString& text, QColor color)
{
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, text);
}

void paintIndicator(QPainter& painter, const Label& label)
{
    const QRectF& rect = label.rect;
    constexpr double pinSide = 12;
    paintSymbol(painter,
                Symbol::pin,
                QRectF(rect.left() + 6, rect.center().y() - pinSide / 2, pinSide, pinSide),
                Qt::white);
    drawText(painter, rect.adjusted(15, 0, 0, 0), label.text, Qt::white);
}

void paintField(QPainter& painter, const RingScene& scene, const Label& label)
{
    const QRectF& rect = label.rect;
    if (label.text.isEmpty()) {
        drawText(painter, rect, elided(label, scene.center.hint, Qt::ElideRight), dimText);
        return;
    }
    const QString text = elided(label, label.text, Qt::ElideLeft);
    drawText(painter, rect, text, Qt::white);
    const QFontMetricsF metrics(label.font);
    const double reach = metrics.horizontalAdvance(text) / 2 + 1;
    const double caret = rect.center().x() + (text.isRightToLeft() ? -reach - 1 : reach);
    painter.fillRect(QRectF(caret, rect.center().y() - metrics.height() / 2, 1.5, metrics.height()),
                     Qt::white); // The accent may be dark, as the label always is.
}

void paintSpinner(QPainter& painter, const QRectF& rect, int step)
{
    constexpr int spokes = 12;
    painter.setBrush(Qt::NoBrush);
    for (int i = 0; i < spokes; ++i) {
        const double angle = 2 * std::numbers::pi * i / spokes;
        const QPointF direction(std::sin(angle), -std::cos(angle));
        const int age = (step - i + spokes) % spokes;
        painter.setPen(
            QPen(withOpacity(Qt::white, 1.0 - 0.07 * age), 1.6, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(rect.center() + direction * 4, rect.center() + direction * 7.5);
    }
}

void paintLabel(QPainter& painter, const RingScene& scene, const Label& label)
{
    paintPill(painter, scene, label);
    painter.setFont(label.font);
    switch (label.row) {
    case Row::indicator:
        paintIndicator(painter, label);
        break;
    case Row::field:
        paintField(painter, scene, label);
        break;
    case Row::name:
        painter.setPen(Qt::white);
        painter.drawText(label.rect, Qt::AlignCenter, label.text);
        break;
    case Row::message:
        drawText(painter, label.rect, elided(label, label.text, Qt::ElideRight), dimText);
        break;
    case Row::spinner:
        paintSpinner(painter, label.rect, scene.center.spinnerStep);
        break;
    case Row::launchHint:
        painter.setPen(Qt::white);
        painter.drawText(
            label.rect.adjusted(8, 3, -8, -3), Qt::AlignCenter | Qt::TextWordWrap, label.text);
        break;
    }
}

} // namespace

void paint(QPainter& painter, const RingScene& scene, const IsDirty& isDirty)
{
    const double opacity = painter.opacity();
    for (const Label& label : CenterLayout::visibleLabels(scene)) {
        if (!isDirty(label.rect.adjusted(-1, -1, 1, 1))) {
            continue; // Text is not cheap, even where it is clipped away.
        }
        painter.setOpacity(label.row == Row::field ? opacity * scene.center.fieldOpacity : opacity);
        paintLabel(painter, scene, label);
    }
    painter.setOpacity(opacity);
}

} // namespace Tavik::CenterPainter
