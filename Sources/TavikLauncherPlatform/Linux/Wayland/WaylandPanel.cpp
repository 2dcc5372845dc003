// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Wayland/WaylandPanel.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

#include <utility>

namespace Tavik {

namespace {

template <typename T> T* resource(const char* name)
{
    QPlatformNativeInterface* native = QGuiApplication::platformNativeInterface();
    return native ? static_cast<T*>(native->nativeResourceForIntegration(name)) : nullptr;
}

} // namespace

struct WaylandPanel::Listeners
{
    static void
    global(void* data, wl_registry* registry, uint32_t name, const char* interface, uint32_t)
    {
        auto& shell = static_cast<WaylandPanel*>(data)->m_shell;
        if (!shell && qstrcmp(interface, zwlr_layer_shell_v1_interface.name) == 0) {
            shell.reset(static_cast<zwlr_layer_shell_v1*>(
                wl_registry_bind(registry, name, &zwlr_layer_shell_v1_interface, 1)));
        }
    }
    static void globalRemove(void*, wl_registry*, uint32_t) { }

    static void
    configured(void* data, zwlr_layer_surface_v1* layer, uint32_t serial, uint32_t, uint32_t)
    {
        zwlr_layer_surface_v1_ack_configure(layer, serial);
        auto& panel = *static_cast<WaylandPanel*>(data);
        if (!std::exchange(panel.m_isPlaced, true) && panel.onPlaced) {
            panel.onPlaced();
        }
    }
    static void closed(void* data, zwlr_layer_surface_v1*)
    {
        auto& panel = *static_cast<WaylandPanel*>(data);
        panel.m_isPlaced = false;
        if (panel.onClosed) {
            panel.onClosed();
        }
    }
};

WaylandPanel::WaylandPanel()
    : m_display(resource<wl_display>("wl_display"))
    , m_compositor(resource<wl_compositor>("compositor"))
{
    if (!m_display || !m_compositor) {
        return;
    }
    // Asked over a queue of its own, so that nothing of the toolkit's is handled meanwhile.
    const WaylandObject<wl_event_queue> queue(wl_display_create_queue(m_display));
    auto* wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(m_display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), queue.get());
    const WaylandObject<wl_registry> registry(wl_display_get_registry(wrapper));
    wl_proxy_wrapper_destroy(wrapper);
    static const wl_registry_listener listener{&Listeners::global, &Listeners::globalRemove};
    wl_registry_add_listener(registry.get(), &listener, this);
    wl_display_roundtrip_queue(m_display, queue.get());
    if (m_shell) {
        // What it makes is told of where the toolkit handles what comes.
        wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(m_shell.get()), nullptr);
    }
}

WaylandPanel::~WaylandPanel() = default;

void WaylandPanel::attach(QWindow& window, const QRect& place, bool takesKeyboard)
{
    QPlatformNativeInterface* native = QGuiApplication::platformNativeInterface();
    QScreen* screen = QGuiApplication::screenAt(place.center());
    if (!screen) {
        screen = window.screen();
    }
    m_surface = static_cast<wl_surface*>(native->nativeResourceForWindow("surface", &window));
    if (!m_shell || !m_surface || !screen) {
        return;
    }
    m_origin = screen->geometry().topLeft();
    m_isPlaced = false;
    m_layer.reset(zwlr_layer_shell_v1_get_layer_surface(
        m_shell.get(),
        m_surface,
        static_cast<wl_output*>(native->nativeResourceForScreen("output", screen)),
        ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY,
        WaylandLayers::scope));
    static const zwlr_layer_surface_v1_listener listener{&Listeners::configured,
                                                         &Listeners::closed};
    zwlr_layer_surface_v1_add_listener(m_layer.get(), &listener, this);
    zwlr_layer_surface_v1_set_anchor(
        m_layer.get(), ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    zwlr_layer_surface_v1_set_size(
        m_layer.get(), static_cast<uint32_t>(place.width()), static_cast<uint32_t>(place.height()));
    zwlr_layer_surface_v1_set_exclusive_zone(m_layer.get(), WaylandLayers::overPanels);
    if (takesKeyboard) {
        zwlr_layer_surface_v1_set_keyboard_interactivity(
            m_layer.get(), ZWLR_LAYER_SURFACE_V1_INTERACTIVITY_EXCLUSIVE);
    }
    move(place);
}

void WaylandPanel::move(const QRect& place)
{
    const QPoint corner = place.topLeft() - m_origin;
    zwlr_layer_surface_v1_set_margin(m_layer.get(), corner.y(), 0, 0, corner.x());
    wl_surface_commit(m_surface);
    wl_display_flush(m_display);
}

void WaylandPanel::takeKeyboard()
{
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_layer.get(),
                                                     ZWLR_LAYER_SURFACE_V1_INTERACTIVITY_EXCLUSIVE);
    wl_surface_commit(m_surface);
    wl_display_flush(m_display);
}

void WaylandPanel::whenAnswered(std::function<void()> answered)
{
    m_answered = std::move(answered);
    m_answer.reset(wl_display_sync(m_display));
    static const wl_callback_listener listener{[](void* data, wl_callback*, uint32_t) {
        auto& panel = *static_cast<WaylandPanel*>(data);
        panel.m_answer.reset();
        std::exchange(panel.m_answered, {})();
    }};
    wl_callback_add_listener(m_answer.get(), &listener, this);
    wl_display_flush(m_display);
}

void WaylandPanel::setInputRegion(const QRegion& region)
{
    const WaylandObject<wl_region> input(wl_compositor_create_region(m_compositor));
    for (const QRect& part : region) {
        wl_region_add(input.get(), part.x(), part.y(), part.width(), part.height());
    }
    wl_surface_set_input_region(m_surface, input.get());
}

void WaylandPanel::detach()
{
    m_answer.reset();
    m_layer.reset();
    m_surface = nullptr;
    m_isPlaced = false;
}

} // namespace Tavik
