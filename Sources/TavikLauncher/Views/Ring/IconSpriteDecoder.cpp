// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Ring/IconSpriteDecoder.h>

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <vector>

namespace Tavik {

namespace {

constexpr double cornerRadius = 12; // Points.
constexpr double shadowOpacity = 0.22;
constexpr double shadowBlur = 5; // Points.
constexpr double shadowDrop = 2; // Points.

/// One pass of a box blur along lines of `count` values that lie `stride` apart.
void blurLine(uchar* values, int count, int stride, int radius, std::vector<uchar>& scratch)
{
    scratch.resize(static_cast<std::size_t>(count));
    const auto at = [&](int i) -> int {
        return values[i * stride];
    };
    const int window = 2 * radius + 1;
    int sum = 0;
    for (int i = 0; i <= std::min(radius, count - 1); ++i) {
        sum += at(i);
    }
    for (int i = 0; i < count; ++i) {
        scratch[static_cast<std::size_t>(i)] = static_cast<uchar>(sum / window);
        sum += i + radius + 1 < count ? at(i + radius + 1) : 0;
        sum -= i - radius >= 0 ? at(i - radius) : 0;
    }
    for (int i = 0; i < count; ++i) {
        values[i * stride] = scratch[static_cast<std::size_t>(i)];
    }
}

/// Three box passes come close enough to a Gaussian.
void blur(QImage& alpha, int radius)
{
    std::vector<uchar> scratch;
    for (int pass = 0; pass < 3; ++pass) {
        for (int y = 0; y < alpha.height(); ++y) {
            blurLine(alpha.scanLine(y), alpha.width(), 1, radius, scratch);
        }
        const int stride = static_cast<int>(alpha.bytesPerLine());
        for (int x = 0; x < alpha.width(); ++x) {
            blurLine(alpha.bits() + x, alpha.height(), stride, radius, scratch);
        }
    }
}

QImage shadowOf(const QImage& image, int radius)
{
    QImage alpha = image.convertToFormat(QImage::Format_Alpha8);
    blur(alpha, radius);
    QImage shadow(image.size(), QImage::Format_ARGB32_Premultiplied);
    shadow.fill(Qt::black);
    QPainter painter(&shadow);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, alpha);
    return shadow;
}

} // namespace

IconSpriteDecoder::IconSpriteDecoder(IconDecoder& icons)
    : m_icons(icons)
{ }

QImage IconSpriteDecoder::decode(const AppIcon& icon, int side, double scale) const
{
    QImage source = m_icons.decode(icon, side, scale);
    source.setDevicePixelRatio(1);
    const int margin = static_cast<int>(std::ceil((shadowBlur + shadowDrop) * scale));
    const int full = side + 2 * margin;

    QImage clipped(full, full, QImage::Format_ARGB32_Premultiplied);
    clipped.fill(Qt::transparent);
    {
        QPainter painter(&clipped);
        painter.setRenderHint(QPainter::Antialiasing);
        // A texture brush gives the rounded edge antialiasing that a clip path does not have.
        painter.translate(margin, margin);
        painter.setBrush(QBrush(source));
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(0, 0, side, side, cornerRadius * scale, cornerRadius * scale);
    }
    const int radius = std::max(1, static_cast<int>(std::lround(shadowBlur * scale / 3)));
    QImage sprite(full, full, QImage::Format_ARGB32_Premultiplied);
    sprite.fill(Qt::transparent);
    {
        QPainter painter(&sprite);
        painter.setOpacity(shadowOpacity);
        painter.drawImage(QPointF(0, std::round(shadowDrop * scale)), shadowOf(clipped, radius));
        painter.setOpacity(1);
        painter.drawImage(0, 0, clipped);
    }
    sprite.setDevicePixelRatio(scale);
    // An image that was painted on keeps what it was painted with; its copy does not.
    return sprite.copy();
}

} // namespace Tavik
