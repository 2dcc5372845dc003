// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Wayland/WaylandSentinels.h>

#include <limits>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace Tavik {

namespace {

/// A compositor that has not told by then does not tell. Nothing else waits for it in a summon,
/// which may take 80 ms at most.
constexpr std::chrono::milliseconds longestSearch{70};
constexpr uint32_t allEdges = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM
    | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;

/// A transparent pixel, which the compositor stretches.
wl_buffer* makeClearPixel(wl_shm* memory)
{
    constexpr int32_t pixelBytes = 4;
    const int file = memfd_create("clear", MFD_CLOEXEC);
    if (file < 0 || ftruncate(file, pixelBytes) != 0) {
        close(file);
        return nullptr;
    }
    wl_shm_pool* pool = wl_shm_create_pool(memory, file, pixelBytes);
    wl_buffer* buffer
        = wl_shm_pool_create_buffer(pool, 0, 1, 1, pixelBytes, WL_SHM_FORMAT_ARGB8888);
    wl_shm_pool_destroy(pool);
    close(file);
    return buffer;
}

} // namespace

struct WaylandSentinels::Sentinel
{
    Sentinel(WaylandSentinels& owner, const WaylandConnection::Output& on)
        : sentinels(owner)
        , output(on.title)
        , surface(wl_compositor_create_surface(owner.m_connection.compositor()))
        , viewport(wp_viewporter_get_viewport(owner.m_connection.viewporter(), surface.get()))
        , layer(zwlr_layer_shell_v1_get_layer_surface(owner.m_connection.layerShell(),
                                                      surface.get(),
                                                      on.output.get(),
                                                      ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY,
                                                      WaylandLayers::scope))
    {
        static const zwlr_layer_surface_v1_listener listener{&configured, &closed};
        zwlr_layer_surface_v1_add_listener(layer.get(), &listener, this);
        zwlr_layer_surface_v1_set_anchor(layer.get(), allEdges);
        zwlr_layer_surface_v1_set_exclusive_zone(layer.get(), WaylandLayers::overPanels);
        wl_surface_commit(surface.get());
    }

    static void configured(
        void* data, zwlr_layer_surface_v1* layer, uint32_t serial, uint32_t width, uint32_t height)
    {
        const auto& self = *static_cast<Sentinel*>(data);
        zwlr_layer_surface_v1_ack_configure(layer, serial);
        constexpr uint32_t largest = std::numeric_limits<int16_t>::max();
        if (width == 0 || height == 0 || width > largest || height > largest) {
            return;
        }
        wp_viewport_set_destination(
            self.viewport.get(), static_cast<int32_t>(width), static_cast<int32_t>(height));
        wl_surface_attach(self.surface.get(), self.sentinels.m_clear.get(), 0, 0);
        wl_surface_damage(self.surface.get(),
                          0,
                          0,
                          std::numeric_limits<int32_t>::max(),
                          std::numeric_limits<int32_t>::max());
        wl_surface_commit(self.surface.get());
    }
    static void closed(void*, zwlr_layer_surface_v1*) { } // Its output has gone.

    WaylandSentinels& sentinels;
    QString output;
    // The part goes before what plays it.
    WaylandObject<wl_surface> surface;
    WaylandObject<wp_viewport> viewport;
    WaylandLayer layer;
};

WaylandSentinels::WaylandSentinels(WaylandConnection& connection, std::function<void()> clicked)
    : m_connection(connection)
    , m_clear(makeClearPixel(connection.sharedMemory()))
{
    m_connection.setPointerHandlers(
        {.entered = [this](wl_surface* surface, QPointF point) { entered(surface, point); },
         .pressed = std::move(clicked)});
}

WaylandSentinels::~WaylandSentinels()
{
    m_connection.setPointerHandlers({});
}

std::optional<WaylandSentinels::Place> WaylandSentinels::locate()
{
    m_place.reset();
    hide();
    show();
    m_connection.waitUntil([this] { return m_place.has_value(); }, longestSearch);
    return m_place;
}

void WaylandSentinels::show()
{
    if (!m_clear || !m_connection.isComplete()) {
        return;
    }
    for (const auto& output : m_connection.outputs()) {
        m_sentinels.push_back(std::make_unique<Sentinel>(*this, *output));
    }
    m_connection.flush();
}

void WaylandSentinels::spare(const QString& output, const QRegion& region)
{
    for (const auto& sentinel : m_sentinels) {
        const WaylandObject<wl_region> input(
            wl_compositor_create_region(m_connection.compositor()));
        constexpr int32_t everything = std::numeric_limits<int32_t>::max();
        wl_region_add(input.get(), 0, 0, everything, everything);
        if (sentinel->output == output) {
            for (const QRect& part : region) {
                wl_region_subtract(input.get(), part.x(), part.y(), part.width(), part.height());
            }
        }
        wl_surface_set_input_region(sentinel->surface.get(), input.get());
        wl_surface_commit(sentinel->surface.get());
    }
    m_connection.flush();
}

void WaylandSentinels::hide()
{
    m_sentinels.clear();
    m_connection.flush();
}

void WaylandSentinels::entered(wl_surface* surface, QPointF point)
{
    for (const auto& sentinel : m_sentinels) {
        if (sentinel->surface.get() == surface && !m_place) {
            m_place = {.output = sentinel->output, .point = point};
        }
    }
}

} // namespace Tavik
