// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Wayland/WaylandLayer.h>

#include <QRect>
#include <QRegion>

#include <functional>

class QWindow;

namespace Tavik {

/// A window of the toolkit's as a surface above all others, at a place of our choice. The toolkit
/// must have been told to give that window no role of its own. Main thread only.
///
/// Goes over the toolkit's connection, since the surface is the toolkit's; what the compositor
/// answers while we wait for it comes over a queue of our own, so that nothing of the toolkit's is
/// handled meanwhile.
class WaylandPanel
{
public:
    WaylandPanel();
    ~WaylandPanel();
    Q_DISABLE_COPY_MOVE(WaylandPanel)

    [[nodiscard]] bool isAvailable() const { return m_shell != nullptr; }
    /// Gives the window its role. It has just been shown and nothing has been painted yet. `place`
    /// is in points of the toolkit's plane. Returns whether the compositor agreed.
    bool attach(QWindow& window, const QRect& place, bool takesKeyboard);
    void move(const QRect& place);
    void takeKeyboard();
    /// Lets the pointer reach the window only there; points of the window. Counts with the next
    /// frame.
    void setInputRegion(const QRegion& region);
    /// Takes the role away; the window is to be hidden afterwards.
    void detach();
    [[nodiscard]] bool isAttached() const { return m_layer != nullptr; }

    /// The compositor has taken the surface off the screen, as when its output goes.
    std::function<void()> onClosed;

private:
    struct Listeners;

    bool waitUntilConfigured();

    wl_display* m_display = nullptr; ///< The toolkit's.
    wl_compositor* m_compositor = nullptr; ///< Likewise.
    WaylandObject<wl_event_queue> m_queue;
    WaylandObject<zwlr_layer_shell_v1> m_shell;
    WaylandLayer m_layer;
    wl_surface* m_surface = nullptr; ///< The window's, while it has the role.
    QPoint m_origin; ///< Of the window's screen in the toolkit's plane.
    bool m_isConfigured = false;
};

} // namespace Tavik
