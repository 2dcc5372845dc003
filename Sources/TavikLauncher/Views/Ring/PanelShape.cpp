// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Ring/PanelShape.h>
#include <TavikLauncher/Views/Ring/RingPainter.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QWidget>

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
        m_look = m_mainQueue.after(lookDelay, [this] { look(); });
    }
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
    // The panel has its hard edge now, so that what lies beyond it is seen.
    m_behind = m_windowServer.pictureAt(m_view.window()->internalWinId());
    m_behind.setDevicePixelRatio(m_view.devicePixelRatioF());
    if (!m_behind.isNull()) {
        m_behindChanged();
    }
}

} // namespace Tavik
