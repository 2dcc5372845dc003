// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>
#include <TavikLauncherPlatform/Linux/Applications/CommandLine.h>
#include <TavikLauncherPlatform/Linux/Applications/TerminalEmulator.h>
#include <TavikLauncherPlatform/Linux/Session/Gio.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QFile>
#include <QFileInfo>

#include <memory>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

using OwnedApplication = std::unique_ptr<GAppInfo, GioDeleter>;

/// Null when there is no application, or it is another kind than a desktop entry.
GDesktopAppInfo* entryOf(const Gio& gio, const OwnedApplication& application)
{
    auto* instance = reinterpret_cast<GTypeInstance*>(application.get());
    const bool isEntry
        = instance && gio.g_type_check_instance_is_a(instance, gio.g_desktop_app_info_get_type());
    return isEntry ? reinterpret_cast<GDesktopAppInfo*>(instance) : nullptr;
}

OwnedApplication defaultFor(const Gio& gio, const QUrl& url)
{
    if (!url.isLocalFile()) {
        return OwnedApplication(
            gio.g_app_info_get_default_for_uri_scheme(url.scheme().toUtf8().constData()));
    }
    const std::unique_ptr<GFile, GioDeleter> file(
        gio.g_file_new_for_path(QFile::encodeName(url.toLocalFile()).constData()));
    return OwnedApplication(gio.g_file_query_default_handler(file.get(), nullptr, nullptr));
}

LaunchEnvironment::Variables environmentFor(const LaunchTokens& tokens)
{
    LaunchEnvironment::Variables variables
        = LaunchEnvironment::forOthers(LaunchEnvironment::atStart());
    if (!tokens.startupId.isEmpty()) {
        variables.insert("DESKTOP_STARTUP_ID", tokens.startupId);
    }
    if (!tokens.activationToken.isEmpty()) {
        variables.insert("XDG_ACTIVATION_TOKEN", tokens.activationToken);
    }
    return variables;
}

LaunchResult
launchEntry(const DesktopEntry& entry, const LaunchTokens& tokens, const QString& target = {})
{
    if (!entry.isApplication || entry.isDeleted) {
        return {.error = Texts::tr("It is no application that can be started.")};
    }
    if (entry.isImage && !QFileInfo(entry.path).isExecutable()) {
        return {
            .error
            = Texts::tr("The file “%1” may not be executed. Allow that in its properties first.")
                  .arg(entry.path)};
    }
    std::optional<QStringList> words = CommandLine::expanded(entry, target);
    if (!words) {
        return {.error = Texts::tr("It names no program to start.")};
    }
    if (entry.runsInTerminal) {
        words = TerminalEmulator::around(*words, TerminalEmulator::Surroundings::ofSession());
        if (!words) {
            return {.error = Texts::tr("It needs a terminal, and none is installed.")};
        }
    }
    return startProgram({.words = *words,
                         .folder = entry.folder.toString(),
                         .environment = environmentFor(tokens),
                         .entry = entry.isImage ? QString() : entry.path,
                         .name = entry.id});
}

} // namespace

LaunchResult launchApplication(const LaunchTarget& target, const LaunchTokens& tokens)
{
    if (!target.entry.path.isEmpty()) {
        return launchEntry(target.entry, tokens);
    }
    if (!target.program) {
        return {.error = Texts::tr("The application has no program to start.")};
    }
    return startProgram({.words = {*target.program},
                         .folder = {},
                         .environment = environmentFor(tokens),
                         .entry = {},
                         .name = QFileInfo(target.path).completeBaseName()});
}

LaunchResult openWithDefault(const QUrl& url)
{
    const Gio* gio = Gio::load();
    const OwnedApplication application = gio ? defaultFor(*gio, url) : nullptr;
    GDesktopAppInfo* found = gio ? entryOf(*gio, application) : nullptr;
    if (!found) {
        return {.error = Texts::tr("no program is installed for it")};
    }
    const QString path = QFile::decodeName(gio->g_desktop_app_info_get_filename(found));
    const DesktopEntry entry = DesktopEntryFile::read(path, QFileInfo(path).completeBaseName());
    return launchEntry(entry, {}, QString::fromUtf8(url.toEncoded()));
}

bool hasInstallerFor(const QString& mimeType)
{
    const Gio* gio = Gio::load();
    const OwnedApplication application(
        gio ? gio->g_app_info_get_default_for_type(mimeType.toUtf8().constData(), FALSE) : nullptr);
    GDesktopAppInfo* found = gio ? entryOf(*gio, application) : nullptr;
    if (!found) {
        return false;
    }
    // Most packages are archives too, and on a small desktop only a viewer of those knows them.
    const QByteArray categories(gio->g_desktop_app_info_get_categories(found));
    const QByteArrayList each = categories.split(';');
    return !each.contains("Archiving") && !each.contains("Compression");
}

} // namespace Tavik
