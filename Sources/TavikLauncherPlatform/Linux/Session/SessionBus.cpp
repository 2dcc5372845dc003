// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QFile>
#include <QObject>
#include <QPointer>

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

} // namespace

bool isOffered()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")
        || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
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
