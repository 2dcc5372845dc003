// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>
#include <TavikLauncherPlatform/Linux/Applications/LaunchEnvironment.h>

#include <QByteArrayList>
#include <QFile>

#include <array>
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <memory>
#include <vector>

#include <unistd.h>

namespace Tavik {

namespace {

struct ObjectDeleter
{
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename T> using Owned = std::unique_ptr<T, ObjectDeleter>;

/// Without G_SPAWN_DO_NOT_REAP_CHILD glib forks twice, so the child never becomes ours to wait for.
constexpr GSpawnFlags spawnFlags
    = GSpawnFlags(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);

/// Runs in the child between fork and exec.
void startOwnSession(gpointer)
{
    setsid();
}

QString takeMessage(GError* error)
{
    const QString message = error ? QString::fromUtf8(error->message)
                                  : QStringLiteral("The application cannot be started.");
    g_clear_error(&error);
    return message;
}

LaunchEnvironment::Variables environmentFor(const LaunchRequest& request)
{
    LaunchEnvironment::Variables variables
        = LaunchEnvironment::forOthers(LaunchEnvironment::atStart());
    if (!request.startupId.isEmpty()) {
        variables.insert("DESKTOP_STARTUP_ID", request.startupId);
    }
    return variables;
}

Owned<GAppLaunchContext> launchContext(const LaunchRequest& request)
{
    Owned<GAppLaunchContext> context(g_app_launch_context_new());
    const LaunchEnvironment::Variables variables = environmentFor(request);
    char** names = g_listenv();
    for (char** name = names; *name; ++name) {
        if (!variables.contains(*name)) {
            g_app_launch_context_unsetenv(context.get(), *name);
        }
    }
    g_strfreev(names);
    for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable) {
        g_app_launch_context_setenv(
            context.get(), variable.key().constData(), variable.value().constData());
    }
    return context;
}

/// Why GIO would not even take the entry, which it does not tell itself.
QString entryFault(const QByteArray& path)
{
    GKeyFile* file = g_key_file_new();
    GError* error = nullptr;
    g_key_file_load_from_file(file, path.constData(), G_KEY_FILE_NONE, &error);
    g_key_file_unref(file);
    return takeMessage(error);
}

void storeProcessId(GDesktopAppInfo*, GPid processId, gpointer result)
{
    static_cast<LaunchResult*>(result)->processId = processId;
}

LaunchResult launchEntry(const LaunchRequest& request)
{
    const QByteArray path = QFile::encodeName(request.path);
    const Owned<GDesktopAppInfo> entry(g_desktop_app_info_new_from_filename(path.constData()));
    LaunchResult result;
    if (!entry) {
        result.error = entryFault(path);
        return result;
    }
    const Owned<GAppLaunchContext> context = launchContext(request);
    GError* error = nullptr;
    if (g_desktop_app_info_launch_uris_as_manager(entry.get(),
                                                  nullptr,
                                                  context.get(),
                                                  spawnFlags,
                                                  startOwnSession,
                                                  nullptr,
                                                  storeProcessId,
                                                  &result,
                                                  &error)
        == FALSE) {
        result.error = takeMessage(error);
    }
    return result;
}

LaunchResult launchProgram(const LaunchRequest& request)
{
    QByteArrayList lines;
    const LaunchEnvironment::Variables variables = environmentFor(request);
    for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable) {
        lines.append(variable.key() + '=' + variable.value());
    }
    std::vector<char*> environment;
    for (QByteArray& line : lines) {
        environment.push_back(line.data());
    }
    environment.push_back(nullptr);

    QByteArray program = QFile::encodeName(*request.executable);
    std::array<char*, 2> arguments{program.data(), nullptr};
    LaunchResult result;
    GPid processId = 0;
    GError* error = nullptr;
    if (g_spawn_async(g_get_home_dir(),
                      arguments.data(),
                      environment.data(),
                      spawnFlags,
                      startOwnSession,
                      nullptr,
                      &processId,
                      &error)
        == FALSE) {
        result.error = takeMessage(error);
        return result;
    }
    result.processId = processId;
    return result;
}

} // namespace

LaunchResult launchApplication(const LaunchRequest& request)
{
    if (request.path.endsWith(QLatin1String(".desktop"))) {
        return launchEntry(request);
    }
    if (!request.executable) {
        return {.error = QStringLiteral("The application has no program to start.")};
    }
    return launchProgram(request);
}

LaunchResult openWithDefault(const QUrl& url)
{
    const Owned<GAppLaunchContext> context = launchContext({});
    GError* error = nullptr;
    LaunchResult result;
    if (g_app_info_launch_default_for_uri(url.toEncoded().constData(), context.get(), &error)
        == FALSE) {
        result.error = takeMessage(error);
    }
    return result;
}

bool hasInstallerFor(const QString& mimeType)
{
    const Owned<GAppInfo> application(
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
