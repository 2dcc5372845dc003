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
/// Goes over the toolkit's connection, since the surface is the toolkit's, and never waits for the
/// compositor.
class WaylandPanel
{
public:
    WaylandPanel();
    ~WaylandPanel();
    Q_DISABLE_COPY_MOVE(WaylandPanel)

    [[nodiscard]] bool isAvailable() const { return m_shell != nullptr; }
    /// Asks for the window's role. It has just been shown, and nothing may be painted before
    /// `onPlaced`. `place` is in points of the toolkit's plane.
    void attach(QWindow& window, const QRect& place, bool takesKeyboard);
    void move(const QRect& place);
    void takeKeyboard();
    /// Lets the pointer reach the window only there; points of the window. Counts with the next
    /// frame.
    void setInputRegion(const QRegion& region);
    /// Calls back once the compositor has handled, and told of, all that came before; not after
    /// `detach`.
    void whenAnswered(std::function<void()> answered);
    /// Takes the role away; the window is to be hidden afterwards.
    void detach();
    [[nodiscard]] bool isAttached() const { return m_layer != nullptr; }
    /// Whether the compositor has agreed.
    [[nodiscard]] bool isPlaced() const { return m_isPlaced; }

    /// The compositor has agreed, and the window may be painted.
    std::function<void()> onPlaced;
    /// The compositor has taken the surface off the screen, as when its output goes.
    std::function<void()> onClosed;

private:
    struct Listeners;

    wl_display* m_display = nullptr; ///< The toolkit's.
    wl_compositor* m_compositor = nullptr; ///< Likewise.
    WaylandObject<zwlr_layer_shell_v1> m_shell;
    WaylandLayer m_layer;
    wl_surface* m_surface = nullptr; ///< The window's, while it has the role.
    QPoint m_origin; ///< Of the window's screen in the toolkit's plane.
    WaylandObject<wl_callback> m_answer;
    std::function<void()> m_answered;
    bool m_isPlaced = false;
};

} // namespace Tavik
