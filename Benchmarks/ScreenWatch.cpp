// SPDX-License-Identifier: MIT
#include "ScreenWatch.h"

#include <cstdlib>
#include <memory>
#include <poll.h>

namespace Tavik::Benchmarks {

namespace {

template <typename Reply> using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply> Owned<Reply> owned(Reply* reply)
{
    return Owned<Reply>(reply, &std::free);
}

} // namespace

ScreenWatch::ScreenWatch(xcb_connection_t* connection)
    : m_connection(connection)
    , m_screen(xcb_setup_roots_iterator(xcb_get_setup(connection)).data)
    , m_damage(xcb_generate_id(connection))
    , m_damageEvent(0)
{
    const auto* extension = xcb_get_extension_data(connection, &xcb_damage_id);
    if (!extension || !extension->present) {
        return;
    }
    m_damageEvent = static_cast<std::uint8_t>(extension->first_event + XCB_DAMAGE_NOTIFY);
    owned(xcb_damage_query_version_reply(
        connection, xcb_damage_query_version(connection, 1, 1), nullptr));
    xcb_damage_create(connection, m_damage, m_screen->root, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    xcb_flush(connection);
}

ScreenWatch::Area ScreenWatch::middle(std::uint16_t side) const
{
    return {
        .x = static_cast<std::int16_t>((m_screen->width_in_pixels - side) / 2),
        .y = static_cast<std::int16_t>((m_screen->height_in_pixels - side) / 2),
        .side = side,
    };
}

ScreenWatch::Pixels ScreenWatch::pixels(const Area& area) const
{
    const auto request = xcb_get_image(m_connection,
                                       XCB_IMAGE_FORMAT_Z_PIXMAP,
                                       m_screen->root,
                                       area.x,
                                       area.y,
                                       area.side,
                                       area.side,
                                       ~0U);
    const auto reply = owned(xcb_get_image_reply(m_connection, request, nullptr));
    if (!reply) {
        return {};
    }
    const auto* first = xcb_get_image_data(reply.get());
    return {first, first + xcb_get_image_data_length(reply.get())};
}

void ScreenWatch::forget()
{
    while (owned(xcb_poll_for_event(m_connection))) { }
}

std::optional<ScreenWatch::Clock::time_point> ScreenWatch::waitForChange(
    const Area& area, const Pixels& before, std::chrono::milliseconds timeout)
{
    const auto deadline = Clock::now() + timeout;
    while (waitForEvent(deadline)) {
        const auto seen = Clock::now();
        if (takeDamage(area) && pixels(area) != before) {
            return seen;
        }
    }
    return std::nullopt;
}

bool ScreenWatch::waitForLook(const Area& area,
                              const Pixels& wanted,
                              std::chrono::milliseconds timeout)
{
    const auto deadline = Clock::now() + timeout;
    while (pixels(area) != wanted) {
        if (!waitForEvent(deadline)) {
            return false;
        }
        forget();
    }
    return true;
}

bool ScreenWatch::waitForEvent(Clock::time_point deadline) const
{
    const auto left
        = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0) {
        return false;
    }
    pollfd connection{xcb_get_file_descriptor(m_connection), POLLIN, 0};
    return poll(&connection, 1, static_cast<int>(left.count())) > 0;
}

// Reads everything that has arrived; true when some of it was drawn inside the area.
bool ScreenWatch::takeDamage(const Area& area)
{
    bool touched = false;
    while (const auto event = owned(xcb_poll_for_event(m_connection))) {
        if ((event->response_type & 0x7f) != m_damageEvent) {
            continue;
        }
        const auto* damage = reinterpret_cast<const xcb_damage_notify_event_t*>(event.get());
        touched = touched
            || (damage->area.x < area.x + area.side && damage->area.x + damage->area.width > area.x
                && damage->area.y < area.y + area.side
                && damage->area.y + damage->area.height > area.y);
    }
    return touched;
}

} // namespace Tavik::Benchmarks
