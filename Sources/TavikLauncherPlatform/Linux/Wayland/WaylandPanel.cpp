// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Wayland/WaylandPanel.h>

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QScreen>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

#include <chrono>
#include <poll.h>

namespace Tavik {

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.wayland")

/// The compositor answers a new surface within a few milliseconds. One that hangs must not hang us.
constexpr std::chrono::milliseconds longestAnswer{250};

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
        static_cast<WaylandPanel*>(data)->m_isConfigured = true;
    }
    static void closed(void* data, zwlr_layer_surface_v1*)
    {
        auto& panel = *static_cast<WaylandPanel*>(data);
        panel.m_isConfigured = false;
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
    m_queue.reset(wl_display_create_queue(m_display));
    auto* wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(m_display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), m_queue.get());
    const WaylandObject<wl_registry> registry(wl_display_get_registry(wrapper));
    wl_proxy_wrapper_destroy(wrapper);
    static const wl_registry_listener listener{&Listeners::global, &Listeners::globalRemove};
    wl_registry_add_listener(registry.get(), &listener, this);
    wl_display_roundtrip_queue(m_display, m_queue.get());
}

WaylandPanel::~WaylandPanel() = default;

bool WaylandPanel::attach(QWindow& window, const QRect& place, bool takesKeyboard)
{
    QPlatformNativeInterface* native = QGuiApplication::platformNativeInterface();
    QScreen* screen = QGuiApplication::screenAt(place.center());
    if (!screen) {
        screen = window.screen();
    }
    m_surface = static_cast<wl_surface*>(native->nativeResourceForWindow("surface", &window));
    if (!m_shell || !m_surface || !screen) {
        return false;
    }
    m_origin = screen->geometry().topLeft();
    m_isConfigured = false;
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
    if (!waitUntilConfigured()) {
        qCWarning(log, "The compositor gives the ring no place");
        detach();
        return false;
    }
    // From now on the toolkit handles what comes.
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(m_layer.get()), nullptr);
    wl_display_dispatch_queue_pending(m_display, m_queue.get());
    return true;
}

/// Handles what comes over our own queue; the toolkit may read beside us, on a thread of its own.
bool WaylandPanel::waitUntilConfigured()
{
    const auto deadline = std::chrono::steady_clock::now() + longestAnswer;
    while (!m_isConfigured) {
        if (wl_display_prepare_read_queue(m_display, m_queue.get()) != 0) {
            if (wl_display_dispatch_queue_pending(m_display, m_queue.get()) < 0) {
                return false;
            }
            continue;
        }
        wl_display_flush(m_display);
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        pollfd waited{.fd = wl_display_get_fd(m_display), .events = POLLIN, .revents = 0};
        if (left.count() <= 0 || poll(&waited, 1, static_cast<int>(left.count())) == 0) {
            wl_display_cancel_read(m_display);
            return false;
        }
        if (wl_display_read_events(m_display) < 0
            || wl_display_dispatch_queue_pending(m_display, m_queue.get()) < 0) {
            return false;
        }
    }
    return true;
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
    m_layer.reset();
    m_surface = nullptr;
    m_isConfigured = false;
}

} // namespace Tavik
