// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11AccessibilityPermission.h>
#include <TavikLauncherPlatform/Linux/X11/XkbProtocol.h>
#include <TavikLauncherPlatform/Workspace.h>

#include <QFile>
#include <QLoggingCategory>

#include <array>
#include <utility>

#include <xcb/record.h>

namespace Tavik {

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.x11")

constexpr auto keyboardSettings = std::to_array<QStringView>({
    u"gnome-keyboard-panel",
    u"systemsettings_keys",
    u"kcm_keys",
    u"xfce-keyboard-settings",
    u"cinnamon-settings-keyboard",
    u"mate-keybinding",
    u"lxqt-config-globalkeyshortcuts",
});

bool hasExtension(xcb_connection_t* connection, xcb_extension_t& extension)
{
    const xcb_query_extension_reply_t* reply = xcb_get_extension_data(connection, &extension);
    return reply && reply->present != 0;
}

} // namespace

X11AccessibilityPermission::X11AccessibilityPermission(xcb_connection_t* connection,
                                                       Workspace& workspace,
                                                       QString withheldUntil)
    : m_workspace(workspace)
    , m_withheldUntil(std::move(withheldUntil))
{
    xcb_prefetch_extension_data(connection, &xcb_record_id);
    const bool hasKeyboard = hasExtension(connection, xcb_xkb_id);
    const bool hasRecording = hasExtension(connection, xcb_record_id);
    if (!hasKeyboard || !hasRecording) {
        qCWarning(log,
                  "The X server lacks extensions for the keyboard: XKEYBOARD=%d RECORD=%d",
                  hasKeyboard,
                  hasRecording);
    }
    m_canWatch = hasKeyboard || hasRecording;
}

bool X11AccessibilityPermission::isTrusted() const
{
    return m_canWatch && (m_withheldUntil.isEmpty() || QFile::exists(m_withheldUntil));
}

void X11AccessibilityPermission::openSettings()
{
    for (const QStringView identifier : keyboardSettings) {
        if (const auto path = m_workspace.pathForApplication(identifier.toString())) {
            m_workspace.openApplication(*path, {.activates = true}, [](const auto& error) {
                if (error) {
                    qCWarning(
                        log, "The keyboard settings did not open: %ls", qUtf16Printable(*error));
                }
            });
            return;
        }
    }
    qCInfo(log, "This desktop has no keyboard settings that can be opened");
}

} // namespace Tavik
