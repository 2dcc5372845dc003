// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Settings/ColorText.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/Ring/RingStyle.h>

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace Tavik {

RingStyle RingStyle::make(const LauncherSettings& settings)
{
    const QColor band = ColorText::color(settings.ringColorHex(), Qt::black);
    const double bandOpacity = settings.ringOpacity();
    const QColor highlight
        = ColorText::color(settings.highlightColorHex(), accentColor(QGuiApplication::palette()));
    const double highlightOpacity = settings.highlightOpacity();

    RingStyle style;
    style.bandTop = withOpacity(band, bandOpacity);
    style.bandBottom = withOpacity(band, std::max(bandOpacity * 0.7, 0.12));
    style.highlightTop = withOpacity(highlight, highlightOpacity);
    style.highlightBottom = withOpacity(highlight, std::max(highlightOpacity * 0.28, 0.08));
    style.accent = accentColor(QGuiApplication::palette());
    style.dot = ColorText::color(settings.runningDotColorHex(), systemBlue);
    style.pillOpacity = std::clamp(settings.pillOpacity(), 0.0, 1.0);
    style.showsRunningDot = settings.showsRunningDot();
    return style;
}

} // namespace Tavik
