// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/OwnProgram.h>
#include <TavikLauncherPlatform/Linux/Session/SessionAccessibilityPermission.h>
#include <TavikLauncherPlatform/Texts.h>
#include <TavikLauncherPlatform/Workspace.h>

#include <QLoggingCategory>

#include <algorithm>
#include <array>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.session")

/// Where a desktop keeps its own shortcuts.
struct ShortcutSettings
{
    QStringView desktop; ///< A name in $XDG_CURRENT_DESKTOP.
    const char* place; ///< For `Texts::tr`.
    QStringView program; ///< The identifier of what opens there; empty when nothing does.
    QStringView line = u"%1 --summon"; ///< In that desktop's words, with the program as %1.
};

constexpr std::array shortcutSettings{
    ShortcutSettings{
        u"GNOME",
        QT_TRANSLATE_NOOP("Tavik::Texts", "in Settings › Keyboard › View and Customize Shortcuts"),
        u"gnome-keyboard-panel"},
    ShortcutSettings{
        u"KDE", QT_TRANSLATE_NOOP("Tavik::Texts", "in System Settings › Shortcuts"), u"kcm_keys"},
    ShortcutSettings{
        u"XFCE",
        QT_TRANSLATE_NOOP("Tavik::Texts", "in Settings › Keyboard › Application Shortcuts"),
        u"xfce-keyboard-settings"},
    ShortcutSettings{u"X-Cinnamon",
                     QT_TRANSLATE_NOOP("Tavik::Texts", "in System Settings › Keyboard › Shortcuts"),
                     u"cinnamon-settings-keyboard"},
    ShortcutSettings{u"MATE",
                     QT_TRANSLATE_NOOP("Tavik::Texts", "in Control Center › Keyboard Shortcuts"),
                     u"mate-keybinding"},
    ShortcutSettings{u"LXQt",
                     QT_TRANSLATE_NOOP("Tavik::Texts", "in Configuration Center › Shortcut Keys"),
                     u"lxqt-config-globalkeyshortcuts"},
    ShortcutSettings{u"sway",
                     QT_TRANSLATE_NOOP("Tavik::Texts", "with bindsym in the configuration of sway"),
                     {},
                     u"bindsym Mod4+space exec %1 --summon"},
    ShortcutSettings{
        u"Hyprland",
        QT_TRANSLATE_NOOP("Tavik::Texts", "with bind in the configuration of Hyprland"),
        {},
        u"bind = SUPER, SPACE, exec, %1 --summon"},
};
constexpr ShortcutSettings unknownDesktop{
    {},
    QT_TRANSLATE_NOOP("Tavik::Texts", "where your desktop or window manager keeps its shortcuts"),
    {}};

const ShortcutSettings& settingsOf(const QString& desktop)
{
    // The most special name stands first.
    for (const QString& name : desktop.split(u':')) {
        const auto* found
            = std::ranges::find_if(shortcutSettings, [&](const ShortcutSettings& known) {
                  return known.desktop.compare(name, Qt::CaseInsensitive) == 0;
              });
        if (found != shortcutSettings.end()) {
            return *found;
        }
    }
    return unknownDesktop;
}

} // namespace

SessionAccessibilityPermission::SessionAccessibilityPermission(Workspace& workspace,
                                                               Session session)
    : m_workspace(workspace)
    , m_session(std::move(session))
{ }

QString SessionAccessibilityPermission::waylandLimit()
{
    return Texts::tr(
        "A Wayland desktop tells no program which keys are held while another one is in front.");
}

AccessibilityPermission::Obstacle SessionAccessibilityPermission::obstacle() const
{
    if (!m_session.limit) {
        return {};
    }
    const ShortcutSettings& settings = settingsOf(m_session.desktop);
    const QString command = u"%1 --summon"_s.arg(m_session.command);
    return {.limit = *m_session.limit,
            .remedy = Texts::tr("Bind the command %1 to a key of your choice %2.")
                          .arg(command, Texts::tr(settings.place)),
            .hasSettings = settingsPath().has_value(),
            .line = settings.line.arg(settings.desktop == u"Hyprland"
                                          ? OwnProgram::forHyprland(m_session.command)
                                          : m_session.command),
            .command = command};
}

std::optional<QString> SessionAccessibilityPermission::settingsPath() const
{
    const QStringView program = settingsOf(m_session.desktop).program;
    return program.isEmpty() ? std::nullopt : m_workspace.pathForApplication(program.toString());
}

void SessionAccessibilityPermission::openSettings(std::function<void()> failed)
{
    const std::optional<QString> path = settingsPath();
    if (!path) {
        failed();
        return;
    }
    m_workspace.openApplication(
        *path, {.activates = true}, [failed = std::move(failed)](const auto& error) {
            if (error) {
                qCWarning(log, "The keyboard settings did not open: %ls", qUtf16Printable(*error));
                failed();
            }
        });
}

} // namespace Tavik
