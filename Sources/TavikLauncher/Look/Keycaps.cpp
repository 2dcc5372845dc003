// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Keycaps.h>
#include <TavikLauncher/Look/Look.h>

#include <QPainter>

#include <algorithm>

namespace Tavik {

namespace {

constexpr int sidePadding = 9;
constexpr int verticalPadding = 3;
constexpr int lip = 2; // The key's front edge.
constexpr int gap = 5;
constexpr double cornerRadius = 5;

} // namespace

Keycaps::Keycaps(const QStringList& keys, QWidget* parent)
    : QWidget(parent)
    , m_keys(keys)
{
    setFont(scaledFont(font(), 0.92, QFont::Medium));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Keycaps::setKeys(const QStringList& keys)
{
    m_keys = keys;
    updateGeometry();
    update();
}

int Keycaps::widthOf(const QString& key) const
{
    const int height = fontMetrics().height() + 2 * verticalPadding;
    return std::max(fontMetrics().horizontalAdvance(key) + 2 * sidePadding, height);
}

QSize Keycaps::sizeHint() const
{
    int width = -gap;
    for (const QString& key : m_keys) {
        width += widthOf(key) + gap;
    }
    return {std::max(width, 0), fontMetrics().height() + 2 * verticalPadding + lip};
}

void Keycaps::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    int left = 0;
    for (const QString& key : m_keys) {
        const QRectF cap(left, 0, widthOf(key), height() - lip);
        painter.setPen(Qt::NoPen);
        painter.setBrush(look.outline);
        painter.drawRoundedRect(cap.adjusted(0, lip, 0, lip), cornerRadius, cornerRadius);
        painter.setPen(QPen(look.outline, 1));
        painter.setBrush(look.isDark ? look.button : look.card);
        painter.drawRoundedRect(cap.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
        painter.setPen(look.text);
        painter.drawText(cap, Qt::AlignCenter, key);
        left += widthOf(key) + gap;
    }
}

} // namespace Tavik
