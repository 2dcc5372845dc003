// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11StartupNotification.h>

#include <algorithm>
#include <cstring>

namespace Tavik::X11StartupNotification {

namespace {

constexpr qsizetype longestId = 256;

/// Sends a text in as many messages as it takes, its terminating zero included.
void broadcast(xcb_connection_t* connection, xcb_window_t root, const QByteArray& text)
{
    // The messages of one text are told from those of others by a window of their own.
    const xcb_window_t sender = xcb_generate_id(connection);
    xcb_create_window(connection,
                      XCB_COPY_FROM_PARENT,
                      sender,
                      root,
                      -1,
                      -1,
                      1,
                      1,
                      0,
                      XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT,
                      0,
                      nullptr);
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 8;
    message.window = sender;
    message.type = x11Atom(connection, "_NET_STARTUP_INFO_BEGIN");
    constexpr qsizetype partSize = sizeof(message.data);
    for (qsizetype sent = 0; sent <= text.size(); sent += partSize) {
        const qsizetype length = std::min(partSize, text.size() + 1 - sent);
        std::memset(&message.data, 0, sizeof(message.data));
        std::memcpy(&message.data, text.constData() + sent, static_cast<std::size_t>(length));
        sendEvent(connection, root, XCB_EVENT_MASK_PROPERTY_CHANGE, message);
        message.type = x11Atom(connection, "_NET_STARTUP_INFO");
    }
    xcb_destroy_window(connection, sender);
    xcb_flush(connection);
}

QByteArray quoted(const QByteArray& text)
{
    QByteArray result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            result += '\\';
        }
        result += c;
    }
    return result + '"';
}

} // namespace

bool isValid(const QByteArray& startupId)
{
    return !startupId.isEmpty() && startupId.size() <= longestId
        && std::ranges::all_of(startupId, [](char c) { return c > ' ' && c <= '~'; });
}

void mark(xcb_connection_t* connection, xcb_window_t window, const QByteArray& startupId)
{
    if (startupId.isEmpty()) {
        return;
    }
    xcb_change_property(connection,
                        XCB_PROP_MODE_REPLACE,
                        window,
                        x11Atom(connection, "_NET_STARTUP_ID"),
                        x11Atom(connection, "UTF8_STRING"),
                        8,
                        static_cast<uint32_t>(startupId.size()),
                        startupId.constData());
}

void tell(xcb_connection_t* connection,
          xcb_window_t root,
          const QByteArray& kind,
          const QByteArray& startupId,
          const Words& words)
{
    QByteArray text = kind + ": ID=" + quoted(startupId);
    for (const auto& [key, value] : words) {
        if (!value.isEmpty()) {
            text += ' ' + key + '=' + quoted(value);
        }
    }
    broadcast(connection, root, text);
}

void complete(xcb_connection_t* connection, xcb_window_t root, const QByteArray& startupId)
{
    if (startupId.isEmpty()) {
        return;
    }
    tell(connection, root, "remove", startupId, {});
}

} // namespace Tavik::X11StartupNotification
