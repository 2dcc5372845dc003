// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QFile>
#include <QObject>
#include <QPointer>

#include <gio/gio.h>
#include <memory>
#include <utility>

namespace Tavik::SessionBus {

namespace {

void openBus(WorkQueue& workQueue,
             QDBusConnection (*connectionOf)(),
             QObject* context,
             Opened opened)
{
    workQueue.run(WorkPriority::userInitiated,
                  connectionOf,
                  [opened = std::move(opened),
                   alive = QPointer<QObject>(context)](const QDBusConnection& connection) {
                      if (alive && connection.isConnected()) {
                          opened(connection);
                      }
                  });
}

constexpr auto addressVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr guint patienceMilliseconds = 1000;

QString defaultSocket()
{
    return qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
}

/// A greeting, as it is seen from the main context that it runs in.
struct Greeting
{
    GCancellable* cancellable = g_cancellable_new();
    bool isMute = false;
    bool isOver = false;
};

void greeted(GObject*, GAsyncResult* result, gpointer data)
{
    auto* greeting = static_cast<Greeting*>(data);
    greeting->isOver = true;
    if (GDBusConnection* bus = g_dbus_connection_new_for_address_finish(result, nullptr)) {
        g_object_unref(bus); // Which also closes it.
    }
}

gboolean lostPatience(gpointer data)
{
    auto* greeting = static_cast<Greeting*>(data);
    greeting->isMute = true;
    g_cancellable_cancel(greeting->cancellable);
    return G_SOURCE_REMOVE;
}

/// True when somebody takes the connection and does not answer in time.
bool isMute(const QByteArray& address)
{
    GMainContext* context = g_main_context_new();
    g_main_context_push_thread_default(context);
    Greeting greeting;
    GSource* timer = g_timeout_source_new(patienceMilliseconds);
    g_source_set_callback(timer, lostPatience, &greeting, nullptr);
    g_source_attach(timer, context);
    constexpr auto asClient
        = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT
                                            | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    g_dbus_connection_new_for_address(
        address.constData(), asClient, nullptr, greeting.cancellable, greeted, &greeting);
    while (!greeting.isOver) {
        g_main_context_iteration(context, TRUE);
    }
    g_source_destroy(timer);
    g_source_unref(timer);
    g_object_unref(greeting.cancellable);
    g_main_context_pop_thread_default(context);
    g_main_context_unref(context);
    return greeting.isMute;
}

} // namespace

bool isOffered()
{
    return !qEnvironmentVariableIsEmpty(addressVariable) || QFile::exists(defaultSocket());
}

void forgetIfMute()
{
    QByteArray address = qgetenv(addressVariable);
    if (address.isEmpty()) {
        address = "unix:path=" + QFile::encodeName(defaultSocket());
    }
    // Where there is none the toolkit's library would start one that nobody ends.
    if (!isOffered() || isMute(address)) {
        // Programs that are started from here have the session's own environment.
        qputenv(addressVariable, "disabled:");
    }
}

void open(WorkQueue& workQueue, QObject* context, Opened opened)
{
    if (!isOffered()) {
        return;
    }
    openBus(workQueue, &QDBusConnection::sessionBus, context, std::move(opened));
}

void openSystemBus(WorkQueue& workQueue, QObject* context, Opened opened)
{
    openBus(workQueue, &QDBusConnection::systemBus, context, std::move(opened));
}

} // namespace Tavik::SessionBus
