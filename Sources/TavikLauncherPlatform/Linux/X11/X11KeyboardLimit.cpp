// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/SessionAccessibilityPermission.h>
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyboardLimit.h>
#include <TavikLauncherPlatform/Linux/X11/XkbProtocol.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QScreen>

#include <algorithm>
#include <string_view>

#include <xcb/record.h>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.x11")

bool hasExtension(xcb_connection_t* connection, xcb_extension_t& extension)
{
    const xcb_query_extension_reply_t* reply = xcb_get_extension_data(connection, &extension);
    return reply && reply->present != 0;
}

} // namespace

bool x11IsXwayland(xcb_connection_t* toolkit)
{
    // Newer ones say so by an extension without requests, older ones in the names of their outputs.
    constexpr std::string_view name = "XWAYLAND";
    const X11Reply<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(
        toolkit,
        xcb_query_extension(toolkit, static_cast<uint16_t>(name.size()), name.data()),
        nullptr));
    return (reply && reply->present != 0)
        || std::ranges::any_of(QGuiApplication::screens(), [](const QScreen* screen) {
               return screen->name().startsWith("XWAYLAND"_L1);
           });
}

std::optional<QString> x11KeyboardLimit(xcb_connection_t* toolkit)
{
    if (x11IsXwayland(toolkit)) {
        return SessionAccessibilityPermission::waylandLimit();
    }
    xcb_prefetch_extension_data(toolkit, &xcb_record_id);
    const bool hasKeyboard = hasExtension(toolkit, xcb_xkb_id);
    const bool hasRecording = hasExtension(toolkit, xcb_record_id);
    if (!hasKeyboard || !hasRecording) {
        qCWarning(log,
                  "The X server lacks extensions for the keyboard: XKEYBOARD=%d RECORD=%d",
                  hasKeyboard,
                  hasRecording);
    }
    if (hasKeyboard || hasRecording) {
        return std::nullopt;
    }
    return Texts::tr("This X server lacks the extensions, RECORD and XKEYBOARD, that tell a "
                     "program which keys are held.");
}

} // namespace Tavik
