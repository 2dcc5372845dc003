// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/CommandLine.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>
#include <TavikLauncherPlatform/Linux/Applications/TerminalEmulator.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>
#include <TavikLauncherPlatform/Linux/Disk/KeyFile.h>
#include <TavikLauncherPlatform/Linux/Session/Gio.h>

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <memory>

namespace Tavik::TerminalEmulator {

namespace {

using namespace Qt::StringLiterals;

/// How a terminal is told what to run.
enum class Manner {
    rest, ///< The words as they are, behind nothing or behind the option.
    line, ///< One word, quoted for a shell.
};

struct Known
{
    QLatin1String program;
    QLatin1String option; ///< One or two words before the command.
    Manner manner = Manner::rest;
};

/// In the order in which they are tried: those of a desktop before those for all of them.
constexpr auto known = std::to_array<Known>({
    {"gnome-terminal"_L1, "--"_L1},
    {"ptyxis"_L1, "--"_L1},
    {"kgx"_L1, "--"_L1},
    {"konsole"_L1, "-e"_L1},
    {"xfce4-terminal"_L1, "-x"_L1},
    {"mate-terminal"_L1, "-x"_L1},
    {"lxterminal"_L1, "-e"_L1, Manner::line},
    {"qterminal"_L1, "-e"_L1},
    {"deepin-terminal"_L1, "-e"_L1},
    {"terminology"_L1, "-e"_L1, Manner::line},
    {"tilix"_L1, "-e"_L1, Manner::line},
    {"terminator"_L1, "-x"_L1},
    {"kitty"_L1, ""_L1},
    {"alacritty"_L1, "-e"_L1},
    {"foot"_L1, ""_L1},
    {"footclient"_L1, ""_L1},
    {"wezterm"_L1, "start --"_L1},
    {"ghostty"_L1, "-e"_L1},
    {"sakura"_L1, "-e"_L1, Manner::line},
    {"roxterm"_L1, "-e"_L1},
    {"cool-retro-term"_L1, "-e"_L1},
    {"urxvt"_L1, "-e"_L1},
    {"st"_L1, "-e"_L1},
    {"xterm"_L1, "-e"_L1},
});

QString quotedLine(const QStringList& command)
{
    QStringList quoted;
    for (const QString& word : command) {
        const std::unique_ptr<char, decltype(&g_free)> text(
            g_shell_quote(word.toUtf8().constData()), &g_free);
        quoted.append(QString::fromUtf8(text.get()));
    }
    return quoted.join(u' ');
}

/// `terminal` may bring words of its own. One that nobody knows is taken to be like the oldest.
QStringList wrapped(QStringList terminal, const QStringList& command)
{
    const QString name = QFileInfo(terminal.first()).fileName();
    const auto found = std::ranges::find(known, name, &Known::program);
    const Known& manner = found == known.end() ? known.back() : *found;
    terminal += QString(manner.option).split(u' ', Qt::SkipEmptyParts);
    return terminal + (manner.manner == Manner::line ? QStringList(quotedLine(command)) : command);
}

/// A text of the desktop's settings; empty where they, or the part of it, are not installed.
QString setting(const char* schema, const char* key)
{
    const Gio* gio = Gio::load();
    GSettingsSchemaSource* source = gio ? gio->g_settings_schema_source_get_default() : nullptr;
    const std::unique_ptr<GSettingsSchema, GioDeleter> found(
        source ? gio->g_settings_schema_source_lookup(source, schema, TRUE) : nullptr);
    if (!found || gio->g_settings_schema_has_key(found.get(), key) == FALSE) {
        return {};
    }
    const std::unique_ptr<GSettings, GioDeleter> settings(gio->g_settings_new(schema));
    const std::unique_ptr<char, decltype(&g_free)> text(
        gio->g_settings_get_string(settings.get(), key), &g_free);
    return QString::fromUtf8(text.get());
}

QString fromFile(const QString& name, const char* group, const char* key)
{
    constexpr qint64 largestFile = 256 * 1024;
    const QString path = QStandardPaths::locate(QStandardPaths::GenericConfigLocation, name);
    QByteArray bytes = BoundedFile::read(path, largestFile).value_or(QByteArray());
    // One of the files has no group.
    if (!bytes.trimmed().startsWith('[')) {
        bytes.prepend("[" + QByteArray(group) + "]\n");
    }
    const std::optional<KeyFile> file = KeyFile::parse(bytes);
    return file ? file->string(group, key).value_or(QString()) : QString();
}

QString choiceOfDesktop(const QString& desktop)
{
    if (desktop == "GNOME"_L1 || desktop == "Unity"_L1 || desktop == "Budgie"_L1) {
        return setting("org.gnome.desktop.default-applications.terminal", "exec");
    }
    if (desktop == "X-Cinnamon"_L1) {
        return setting("org.cinnamon.desktop.default-applications.terminal", "exec");
    }
    if (desktop == "MATE"_L1) {
        return setting("org.mate.applications-terminal", "exec");
    }
    if (desktop == "XFCE"_L1) {
        return fromFile(u"xfce4/helpers.rc"_s, "Helpers", "TerminalEmulator");
    }
    if (desktop == "KDE"_L1) {
        return fromFile(u"kdeglobals"_s, "General", "TerminalApplication");
    }
    if (desktop == "LXQt"_L1) {
        return fromFile(u"lxqt/session.conf"_s, "General", "terminal_manager");
    }
    return {};
}

} // namespace

Surroundings Surroundings::ofSession()
{
    Surroundings surroundings{.installed = DesktopEntryFile::installedProgram,
                              .desktopsChoice = {},
                              .usersChoice = qEnvironmentVariable("TERMINAL")};
    for (const QString& desktop : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':')) {
        surroundings.desktopsChoice = choiceOfDesktop(desktop);
        if (!surroundings.desktopsChoice.isEmpty()) {
            break;
        }
    }
    return surroundings;
}

std::optional<QStringList> around(const QStringList& command, const Surroundings& surroundings)
{
    const auto isInstalled = [&surroundings](const QString& program) {
        return !surroundings.installed(program).isEmpty();
    };
    if (isInstalled(u"xdg-terminal-exec"_s)) {
        return QStringList(u"xdg-terminal-exec"_s) + command;
    }
    for (const QString& choice : {surroundings.desktopsChoice, surroundings.usersChoice}) {
        const QStringList terminal = CommandLine::words(choice);
        if (!terminal.isEmpty() && isInstalled(terminal.first())) {
            return wrapped(terminal, command);
        }
    }
    constexpr auto alternative = "x-terminal-emulator"_L1;
    if (isInstalled(alternative)) {
        return QStringList{alternative, u"-e"_s} + command;
    }
    const auto found = std::ranges::find_if(
        known, [&](const Known& terminal) { return isInstalled(terminal.program); });
    return found == known.end() ? std::nullopt : std::optional(wrapped({found->program}, command));
}

} // namespace Tavik::TerminalEmulator
