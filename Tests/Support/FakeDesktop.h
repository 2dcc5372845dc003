// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/IconDecoder.h>
#include <TavikLauncherPlatform/Screens.h>

#include <QPainter>

namespace Tavik::Test {

class FakeAppearance final : public DesktopAppearance
{
public:
    [[nodiscard]] bool reducesMotion() const override { return reduced; }
    [[nodiscard]] ColorScheme colorScheme() const override { return scheme; }
    [[nodiscard]] bool wantsHighContrast() const override { return contrast; }

    bool reduced = false;
    bool contrast = false;
    ColorScheme scheme = ColorScheme::noPreference;
};

class FakeScreens final : public Screens
{
public:
    [[nodiscard]] QList<Screen> all() const override { return screens; }
    [[nodiscard]] std::optional<Screen> main() const override
    {
        return screens.isEmpty() ? std::nullopt : std::optional(screens.first());
    }
    [[nodiscard]] QPointF mouseLocation() const override { return pointer; }

    QPointF pointer{960, 540};
    QList<Screen> screens{{QRectF(0, 0, 1920, 1080), QRectF(0, 0, 1920, 1040)}};
};

/// Every icon is a filled square in the colour that its source names; a letter after the colour is
/// drawn upon it.
class ColorIconDecoder final : public IconDecoder
{
public:
    [[nodiscard]] QImage decode(const AppIcon& icon, int side, double) const override
    {
        ++decodes;
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        const QStringList parts = icon.source.split(u' ');
        image.fill(icon.source.isEmpty() ? QColor(Qt::gray) : QColor(parts.front()));
        if (parts.size() > 1) {
            QPainter painter(&image);
            QFont font;
            font.setPixelSize(side * 3 / 5);
            painter.setFont(font);
            painter.setPen(Qt::white);
            painter.drawText(image.rect(), Qt::AlignCenter, parts.back());
        }
        return image;
    }

    mutable int decodes = 0;
};

} // namespace Tavik::Test
