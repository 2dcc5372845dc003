// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Wayland/WaylandConnection.h>

#include <QLoggingCategory>
#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <string_view>
#include <utility>

namespace Tavik {

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.wayland")

constexpr uint32_t compositorVersion = 4;
constexpr uint32_t outputVersion = 4;
constexpr uint32_t seatVersion = 1;
constexpr std::chrono::milliseconds longestRoundTrip{1000};

} // namespace

/// What the compositor calls. Nothing may throw through it.
struct WaylandConnection::Listeners
{
    static WaylandConnection& self(void* data) { return *static_cast<WaylandConnection*>(data); }

    template <typename Object>
    static void bind(Object& object,
                     wl_registry* registry,
                     uint32_t name,
                     const wl_interface& interface,
                     uint32_t version)
    {
        if (!object) {
            object.reset(static_cast<typename Object::pointer>(
                wl_registry_bind(registry, name, &interface, version)));
        }
    }

    static void global(
        void* data, wl_registry* registry, uint32_t name, const char* interface, uint32_t offered)
    {
        WaylandConnection& connection = self(data);
        const std::string_view kind(interface);
        if (kind == wl_compositor_interface.name) {
            bind(connection.m_compositor,
                 registry,
                 name,
                 wl_compositor_interface,
                 std::min(offered, compositorVersion));
        } else if (kind == wl_shm_interface.name) {
            bind(connection.m_shm, registry, name, wl_shm_interface, 1);
        } else if (kind == zwlr_layer_shell_v1_interface.name) {
            bind(connection.m_layerShell, registry, name, zwlr_layer_shell_v1_interface, 1);
        } else if (kind == wp_viewporter_interface.name) {
            bind(connection.m_viewporter, registry, name, wp_viewporter_interface, 1);
        } else if (kind == zwlr_foreign_toplevel_manager_v1_interface.name) {
            connection.m_toplevels = name;
        } else if (kind == hyprland_global_shortcuts_manager_v1_interface.name) {
            connection.m_shortcuts = name;
        } else if (kind == "zxdg_decoration_manager_v1") {
            connection.m_drawsFrames = true;
        } else if (kind == wl_seat_interface.name && !connection.m_seat) {
            bind(connection.m_seat, registry, name, wl_seat_interface, seatVersion);
            static const wl_seat_listener listener{&capabilities, &seatName};
            wl_seat_add_listener(connection.m_seat.get(), &listener, data);
        } else if (kind == wl_output_interface.name) {
            auto output = std::make_unique<Output>();
            output->name = name;
            bind(output->output,
                 registry,
                 name,
                 wl_output_interface,
                 std::min(offered, outputVersion));
            static const wl_output_listener listener{
                &outputGeometry, &outputMode, &outputDone, &outputScale, &outputName, &outputText};
            wl_output_add_listener(output->output.get(), &listener, output.get());
            connection.m_outputs.push_back(std::move(output));
        }
    }

    static void globalRemove(void* data, wl_registry*, uint32_t name)
    {
        std::erase_if(self(data).m_outputs, [name](const std::unique_ptr<Output>& output) {
            return output->name == name;
        });
    }

    static void capabilities(void* data, wl_seat* seat, uint32_t offered)
    {
        WaylandConnection& connection = self(data);
        if ((offered & WL_SEAT_CAPABILITY_POINTER) == 0) {
            connection.m_pointer.reset();
        } else if (!connection.m_pointer) {
            connection.m_pointer.reset(wl_seat_get_pointer(seat));
            static const wl_pointer_listener listener{
                .enter = &pointerEnter,
                .leave = [](void*, wl_pointer*, uint32_t, wl_surface*) {},
                .motion = [](void*, wl_pointer*, uint32_t, wl_fixed_t, wl_fixed_t) {},
                .button = &pointerButton,
                .axis = [](void*, wl_pointer*, uint32_t, uint32_t, wl_fixed_t) {},
            };
            wl_pointer_add_listener(connection.m_pointer.get(), &listener, data);
        }
    }
    static void seatName(void*, wl_seat*, const char*) { }

    static void
    pointerEnter(void* data, wl_pointer*, uint32_t, wl_surface* surface, wl_fixed_t x, wl_fixed_t y)
    {
        if (self(data).m_pointerHandlers.entered) {
            self(data).m_pointerHandlers.entered(surface,
                                                 {wl_fixed_to_double(x), wl_fixed_to_double(y)});
        }
    }
    static void pointerButton(void* data, wl_pointer*, uint32_t, uint32_t, uint32_t, uint32_t state)
    {
        if (state == WL_POINTER_BUTTON_STATE_PRESSED && self(data).m_pointerHandlers.pressed) {
            self(data).m_pointerHandlers.pressed();
        }
    }

    static void outputGeometry(void*,
                               wl_output*,
                               int32_t,
                               int32_t,
                               int32_t,
                               int32_t,
                               int32_t,
                               const char*,
                               const char*,
                               int32_t)
    { }
    static void outputMode(void*, wl_output*, uint32_t, int32_t, int32_t, int32_t) { }
    static void outputDone(void*, wl_output*) { }
    static void outputScale(void*, wl_output*, int32_t) { }
    static void outputName(void* data, wl_output*, const char* name)
    {
        static_cast<Output*>(data)->title = QString::fromUtf8(name);
    }
    static void outputText(void*, wl_output*, const char*) { }
};

WaylandConnection::WaylandConnection()
    : m_display(wl_display_connect(nullptr))
    , m_isBroken(!m_display)
{
    if (m_isBroken) {
        return;
    }
    m_registry.reset(wl_display_get_registry(m_display.get()));
    static const wl_registry_listener listener{&Listeners::global, &Listeners::globalRemove};
    wl_registry_add_listener(m_registry.get(), &listener, this);
    // The first answer names what there is, the second what that is like.
    if (!roundTrip() || !roundTrip()) {
        fail();
    }
}

WaylandConnection::~WaylandConnection() = default;

void WaylandConnection::listen()
{
    if (m_isBroken) {
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(wl_display_get_fd(m_display.get()),
                                                   QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        dispatch(0);
        flush();
    });
}

bool WaylandConnection::isComplete() const
{
    return !m_isBroken && m_compositor && m_shm && m_seat && m_layerShell && m_viewporter;
}

WaylandObject<zwlr_foreign_toplevel_manager_v1> WaylandConnection::bindToplevels()
{
    WaylandObject<zwlr_foreign_toplevel_manager_v1> manager;
    if (m_toplevels != 0 && !m_isBroken) {
        Listeners::bind(
            manager, m_registry.get(), m_toplevels, zwlr_foreign_toplevel_manager_v1_interface, 1);
    }
    return manager;
}

WaylandObject<hyprland_global_shortcuts_manager_v1> WaylandConnection::bindShortcuts()
{
    WaylandObject<hyprland_global_shortcuts_manager_v1> manager;
    if (m_shortcuts != 0 && !m_isBroken) {
        Listeners::bind(manager,
                        m_registry.get(),
                        m_shortcuts,
                        hyprland_global_shortcuts_manager_v1_interface,
                        1);
    }
    return manager;
}

/// Waits until the compositor has handled what it was asked; not for one that never answers.
bool WaylandConnection::roundTrip()
{
    bool isDone = false;
    const WaylandObject<wl_callback> callback = askForAnswer();
    static const wl_callback_listener listener{[](void* data, wl_callback*, uint32_t) {
        *static_cast<bool*>(data) = true;
    }};
    wl_callback_add_listener(callback.get(), &listener, &isDone);
    return waitUntil([&isDone] { return isDone; }, longestRoundTrip);
}

WaylandObject<wl_callback> WaylandConnection::askForAnswer()
{
    return WaylandObject<wl_callback>(wl_display_sync(m_display.get()));
}

void WaylandConnection::flush()
{
    if (!m_isBroken && wl_display_flush(m_display.get()) < 0 && errno != EAGAIN) {
        fail();
    }
}

bool WaylandConnection::waitUntil(const std::function<bool()>& isDone,
                                  std::chrono::milliseconds longest)
{
    const auto deadline = std::chrono::steady_clock::now() + longest;
    while (!isDone()) {
        flush();
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0 || !dispatch(static_cast<int>(left.count()))) {
            return isDone();
        }
    }
    return true;
}

/// Handles what has come, waiting for it at most for so long. False when the connection is broken
/// or nothing came.
bool WaylandConnection::dispatch(int longestMilliseconds)
{
    if (m_isBroken) {
        return false;
    }
    wl_display* display = m_display.get();
    while (wl_display_prepare_read(display) != 0) {
        if (wl_display_dispatch_pending(display) < 0) {
            fail();
            return false;
        }
        if (longestMilliseconds > 0) {
            return true;
        }
    }
    wl_display_flush(display);
    pollfd waited{.fd = wl_display_get_fd(display), .events = POLLIN, .revents = 0};
    if (poll(&waited, 1, longestMilliseconds) <= 0) {
        wl_display_cancel_read(display);
        return false;
    }
    if (wl_display_read_events(display) < 0 || wl_display_dispatch_pending(display) < 0) {
        fail();
        return false;
    }
    return true;
}

/// The compositor has gone or will not have us; the toolkit notices by itself.
void WaylandConnection::fail()
{
    if (std::exchange(m_isBroken, true)) {
        return;
    }
    qCWarning(log, "The compositor's connection is broken: %s", std::strerror(errno));
    if (m_notifier) {
        m_notifier->setEnabled(false);
    }
    if (onBroken) {
        onBroken();
    }
}

} // namespace Tavik
