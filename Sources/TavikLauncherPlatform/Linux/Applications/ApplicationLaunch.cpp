// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>
#include <TavikLauncherPlatform/Linux/Applications/CommandLine.h>
#include <TavikLauncherPlatform/Linux/Applications/TerminalEmulator.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QFile>
#include <QFileInfo>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <memory>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

struct ObjectDeleter
{
    void operator()(gpointer object) const { g_object_unref(object); }
};
using OwnedApplication = std::unique_ptr<GAppInfo, ObjectDeleter>;

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
                         .folder = entry.folder,
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
    OwnedApplication application;
    if (url.isLocalFile()) {
        const std::unique_ptr<GFile, ObjectDeleter> file(
            g_file_new_for_path(QFile::encodeName(url.toLocalFile()).constData()));
        application.reset(g_file_query_default_handler(file.get(), nullptr, nullptr));
    } else {
        application.reset(g_app_info_get_default_for_uri_scheme(url.scheme().toUtf8().constData()));
    }
    if (!G_IS_DESKTOP_APP_INFO(application.get())) {
        return {.error = Texts::tr("no program is installed for it")};
    }
    const QString path
        = QFile::decodeName(g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application.get())));
    const DesktopEntry entry = DesktopEntryFile::read(path, QFileInfo(path).completeBaseName());
    return launchEntry(entry, {}, QString::fromUtf8(url.toEncoded()));
}

bool hasInstallerFor(const QString& mimeType)
{
    const OwnedApplication application(
        g_app_info_get_default_for_type(mimeType.toUtf8().constData(), FALSE));
    if (!G_IS_DESKTOP_APP_INFO(application.get())) {
        return false;
    }
    // Most packages are archives too, and on a small desktop only a viewer of those knows them.
    const QByteArray categories(
        g_desktop_app_info_get_categories(G_DESKTOP_APP_INFO(application.get())));
    const QByteArrayList each = categories.split(';');
    return !each.contains("Archiving") && !each.contains("Compression");
}

} // namespace Tavik
