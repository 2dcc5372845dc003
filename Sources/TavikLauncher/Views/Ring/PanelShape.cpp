// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Ring/PanelShape.h>
#include <TavikLauncher/Views/Ring/RingPainter.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {

/// By then what lies around the ring has been repaired where something else had covered it: a menu,
/// or the ring itself at its last place.
constexpr double lookDelay = 0.06;

} // namespace

PanelShape::PanelShape(QWidget& view,
                       WindowServer& windowServer,
                       MainQueue& mainQueue,
                       std::function<void()> behindChanged)
    : m_view(view)
    , m_windowServer(windowServer)
    , m_mainQueue(mainQueue)
    , m_behindChanged(std::move(behindChanged))
{ }

void PanelShape::fit(const RingScene& scene)
{
    const WId panel = m_view.window()->internalWinId();
    if (!panel || (scene == m_scene && panel == m_window)) {
        return;
    }
    m_scene = scene;
    const bool isAnother = std::exchange(m_window, panel) != panel;
    const QRegion shape = scene.isOpaque ? RingPainter::shape(scene) : QRegion();
    if (std::exchange(m_shape, shape) != shape || isAnother) {
        m_windowServer.setShape(panel, shape);
        if (!m_behind.isNull()) {
            lookSoon(); // Labels have moved: what lay behind them can be seen now.
        }
    }
    // Asked for where the panel has its place: the window system forgets nothing of it in between.
    const QRegion band = scene.isOpaque ? QRegion() : RingPainter::bandRegion(scene);
    if (std::exchange(m_blurred, band) != band || isAnother) {
        m_windowServer.setBlurBehind(panel, band);
    }
}

void PanelShape::placed()
{
    forget();
    if (m_view.isVisible() && !m_windowServer.isCompositing()) {
        lookSoon();
    }
}

void PanelShape::lookSoon()
{
    m_look = m_mainQueue.after(lookDelay, [this] { look(); });
}

void PanelShape::forget()
{
    m_look.cancel();
    if (!std::exchange(m_behind, QImage()).isNull()) {
        m_behindChanged();
    }
}

void PanelShape::look()
{
    m_look.cancel();
    // The panel has its hard edge at first, so that what lies beyond it is seen.
    QImage seen = m_windowServer.pictureAt(m_view.window()->internalWinId());
    if (seen.isNull()) {
        return;
    }
    // Within the shape the screen shows ourselves. What was known there stays known; the rest is
    // taken to be as what is beside it, or old labels would peep out at the new ones' edges.
    QPainter painter(&seen);
    painter.setClipRegion(m_shape);
    if (m_behind.isNull()) {
        for (const QRect& covered : m_shape) {
            const QPoint beside(std::max(covered.left() - 1, 0), covered.top());
            painter.fillRect(covered, seen.pixelColor(beside));
        }
    } else {
        m_behind.setDevicePixelRatio(1);
        painter.drawImage(0, 0, m_behind);
    }
    painter.end();
    m_behind = seen;
    m_behind.setDevicePixelRatio(m_view.devicePixelRatioF());
    m_behindChanged();
}

} // namespace Tavik
