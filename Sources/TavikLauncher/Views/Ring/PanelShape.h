// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Ring/RingScene.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QImage>
#include <QRegion>
#include <QtGui/qwindowdefs.h>

#include <functional>

class QWidget;

namespace Tavik {

class WindowServer;

/// What of the panel's square is to be seen. Where windows are blended that is all of it, with the
/// desktop blurred behind the band by a compositor that can. Elsewhere it is the ring's own
/// outline: hard in the first frame, and soon after smoothed with a picture of what lies around it,
/// which nobody has to wait for. Owned by the view; main thread only.
class PanelShape
{
public:
    /// `behindChanged` is told when `behind` has, so that the ring is drawn anew.
    PanelShape(QWidget& view,
               WindowServer& windowServer,
               MainQueue& mainQueue,
               std::function<void()> behindChanged);

    /// What the screen showed at the panel's place; null until it is known, and where windows are
    /// blended.
    [[nodiscard]] const QImage& behind() const { return m_behind; }
    /// Gives the panel the shape of `scene`.
    void fit(const RingScene& scene);
    /// The panel is shown, or stands somewhere else.
    void placed();
    /// What lies behind is not known any more, as when the panel is hidden.
    void forget();

private:
    void lookSoon();
    void look();

    QWidget& m_view;
    WindowServer& m_windowServer;
    MainQueue& m_mainQueue;
    std::function<void()> m_behindChanged;
    RingScene m_scene; ///< What the shape was made from.
    WId m_window = 0; ///< What was last asked for was for this window.
    QRegion m_shape;
    QRegion m_blurred;
    QImage m_behind;
    Task m_look;
};

} // namespace Tavik
