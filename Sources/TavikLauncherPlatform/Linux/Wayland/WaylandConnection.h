// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointF>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include <wayland-client.h>
#include <wayland-foreign-toplevels.h>
#include <wayland-hyprland-shortcuts.h>
#include <wayland-layer-shell.h>
#include <wayland-viewporter.h>

class QSocketNotifier;

namespace Tavik {

/// Destroys an object of a protocol.
struct WaylandDestroyed
{
    void operator()(wl_display* object) const { wl_display_disconnect(object); }
    void operator()(wl_event_queue* object) const { wl_event_queue_destroy(object); }
    void operator()(wl_registry* object) const { wl_registry_destroy(object); }
    void operator()(wl_compositor* object) const { wl_compositor_destroy(object); }
    void operator()(wl_surface* object) const { wl_surface_destroy(object); }
    void operator()(wl_region* object) const { wl_region_destroy(object); }
    void operator()(wl_shm* object) const { wl_shm_destroy(object); }
    void operator()(wl_buffer* object) const { wl_buffer_destroy(object); }
    void operator()(wl_seat* object) const { wl_seat_destroy(object); }
    void operator()(wl_pointer* object) const { wl_pointer_destroy(object); }
    void operator()(wl_callback* object) const { wl_callback_destroy(object); }
    void operator()(wl_output* object) const { wl_output_destroy(object); }
    void operator()(wp_viewporter* object) const { wp_viewporter_destroy(object); }
    void operator()(wp_viewport* object) const { wp_viewport_destroy(object); }
    void operator()(zwlr_layer_shell_v1* object) const { zwlr_layer_shell_v1_destroy(object); }
    void operator()(zwlr_foreign_toplevel_manager_v1* object) const
    {
        zwlr_foreign_toplevel_manager_v1_destroy(object);
    }
    void operator()(zwlr_foreign_toplevel_handle_v1* object) const
    {
        zwlr_foreign_toplevel_handle_v1_destroy(object);
    }
    void operator()(hyprland_global_shortcuts_manager_v1* object) const
    {
        hyprland_global_shortcuts_manager_v1_destroy(object);
    }
    void operator()(hyprland_global_shortcut_v1* object) const
    {
        hyprland_global_shortcut_v1_destroy(object);
    }
    void operator()(zwlr_layer_surface_v1* object) const { zwlr_layer_surface_v1_destroy(object); }
};
template <typename T> using WaylandObject = std::unique_ptr<T, WaylandDestroyed>;

/// A connection of our own to the compositor, beside the toolkit's, for surfaces that are no window
/// of the toolkit. Main thread only.
class WaylandConnection final : public QObject
{
    Q_OBJECT

public:
    struct Output
    {
        uint32_t name = 0; ///< The registry's number.
        WaylandObject<wl_output> output;
        QString title; ///< As the toolkit calls its screen; empty from an old compositor.
    };
    /// What the pointer does on our surfaces; in points of the surface, y growing downwards.
    struct PointerHandlers
    {
        std::function<void(wl_surface*, QPointF)> entered;
        std::function<void()> pressed;
    };

    /// Connects and learns what is offered: two round trips. Needs no event loop.
    WaylandConnection();
    ~WaylandConnection() override;
    Q_DISABLE_COPY_MOVE(WaylandConnection)

    /// Whether a ring can be placed and the pointer be found: the layer shell and what it needs.
    [[nodiscard]] bool isComplete() const;

    /// Whether windows can leave their frames to the compositor.
    [[nodiscard]] bool drawsFrames() const { return m_drawsFrames; }
    [[nodiscard]] bool hasPointer() const { return m_pointer != nullptr; }
    [[nodiscard]] wl_compositor* compositor() const { return m_compositor.get(); }
    [[nodiscard]] wl_shm* sharedMemory() const { return m_shm.get(); }
    [[nodiscard]] zwlr_layer_shell_v1* layerShell() const { return m_layerShell.get(); }
    [[nodiscard]] wp_viewporter* viewporter() const { return m_viewporter.get(); }
    [[nodiscard]] wl_seat* seat() const { return m_seat.get(); }
    /// The compositor's list of windows, or null. It tells of all that there are from then on, so
    /// whoever takes it listens before the next events are handled.
    [[nodiscard]] WaylandObject<zwlr_foreign_toplevel_manager_v1> bindToplevels();
    /// What gives shortcuts to programs by a name, or null.
    [[nodiscard]] WaylandObject<hyprland_global_shortcuts_manager_v1> bindShortcuts();
    [[nodiscard]] bool isBroken() const { return m_isBroken; }
    /// Called once when the compositor has gone or has ended the connection.
    std::function<void()> onBroken;
    [[nodiscard]] const std::vector<std::unique_ptr<Output>>& outputs() const { return m_outputs; }

    /// Handles from now on what comes, as part of the main thread's event loop.
    void listen();
    void setPointerHandlers(PointerHandlers handlers) { m_pointerHandlers = std::move(handlers); }
    /// Sends what has been asked for.
    void flush();
    /// What is answered when the compositor has handled all that it was asked so far.
    [[nodiscard]] WaylandObject<wl_callback> askForAnswer();
    /// Waits until `isDone`, handling what comes meanwhile, at most for so long. Returns whether it
    /// is done.
    bool waitUntil(const std::function<bool()>& isDone, std::chrono::milliseconds longest);

private:
    struct Listeners;

    bool roundTrip();
    bool dispatch(int longestMilliseconds);
    void fail();

    WaylandObject<wl_display> m_display;
    WaylandObject<wl_registry> m_registry;
    WaylandObject<wl_compositor> m_compositor;
    WaylandObject<wl_shm> m_shm;
    WaylandObject<wl_seat> m_seat;
    WaylandObject<wl_pointer> m_pointer;
    WaylandObject<zwlr_layer_shell_v1> m_layerShell;
    WaylandObject<wp_viewporter> m_viewporter;
    std::vector<std::unique_ptr<Output>> m_outputs;
    uint32_t m_toplevels = 0; ///< The registry's number of the list of windows, or 0.
    uint32_t m_shortcuts = 0; ///< Likewise of Hyprland's shortcuts.
    PointerHandlers m_pointerHandlers;
    std::unique_ptr<QSocketNotifier> m_notifier;
    bool m_drawsFrames = false;
    bool m_isBroken = false;
};

} // namespace Tavik
