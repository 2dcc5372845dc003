// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/WindowStyle.h>
#include <TavikLauncher/Views/Updates/UpdateProgressBar.h>
#include <TavikLauncherPlatform/DesktopAppearance.h>

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Tavik {

namespace {

constexpr int thickness = 6;
constexpr int fineness = 1000;
constexpr double glideLength = 0.3;
constexpr double stepSeconds = 1.0 / 30;
constexpr int stepsThereAndBack = 75;

} // namespace

UpdateProgressBar::UpdateProgressBar(MainQueue& mainQueue,
                                     const DesktopAppearance& appearance,
                                     QWidget* parent)
    : QProgressBar(parent)
    , m_mainQueue(mainQueue)
    , m_appearance(appearance)
{
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setRange(0, 0);
}

void UpdateProgressBar::setShare(double share)
{
    const bool wasKnown = isKnown();
    setRange(0, share < 0 ? 0 : fineness);
    if (isKnown()) {
        setValue(static_cast<int>(std::lround(std::min(share, 1.0) * fineness)));
    }
    if (isKnown() != wasKnown) {
        updateMotion();
    }
}

QSize UpdateProgressBar::sizeHint() const
{
    return {20 * thickness, thickness};
}

std::pair<double, double> UpdateProgressBar::piece() const
{
    if (isKnown()) {
        return {0, static_cast<double>(value()) / fineness};
    }
    const double turn = 2 * std::numbers::pi * m_step / stepsThereAndBack;
    return {(1 - glideLength) * (1 - std::cos(turn)) / 2, glideLength};
}

void UpdateProgressBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF track(0, (height() - thickness) / 2.0, width(), thickness);
    QPainterPath outline;
    outline.addRoundedRect(track, thickness / 2.0, thickness / 2.0);
    painter.fillPath(outline, WindowStyle::hairline(palette()));

    const auto [start, length] = piece();
    QPainterPath filled;
    filled.addRoundedRect(
        QRectF(
            track.left() + start * track.width(), track.top(), length * track.width(), thickness),
        thickness / 2.0,
        thickness / 2.0);
    painter.setClipPath(outline);
    painter.fillPath(filled, WindowStyle::tint(palette()));
}

void UpdateProgressBar::showEvent(QShowEvent* event)
{
    QProgressBar::showEvent(event);
    updateMotion();
}

void UpdateProgressBar::hideEvent(QHideEvent* event)
{
    QProgressBar::hideEvent(event);
    m_motion.cancel();
}

void UpdateProgressBar::updateMotion()
{
    update();
    if (isKnown() || !isVisible() || m_appearance.reducesMotion()) {
        m_motion.cancel();
    } else if (!m_motion.isActive()) {
        m_motion = m_mainQueue.every(stepSeconds, [this] {
            m_step = (m_step + 1) % stepsThereAndBack;
            update();
        });
    }
}

} // namespace Tavik
