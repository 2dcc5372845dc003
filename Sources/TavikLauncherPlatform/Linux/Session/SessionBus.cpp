// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/LocalSocket.h>
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

constexpr auto addressVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr int patienceSeconds = 1;

QString defaultSocket()
{
    return qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
}

/// Where the first socket of this machine is that a bus's address names, as in
/// "unix:abstract=%2ftmp%2fbus,guid=1;tcp:…"; empty when it names none.
QString socketIn(const QByteArray& address)
{
    for (const QByteArray& place : address.split(';')) {
        if (!place.startsWith("unix:")) {
            continue;
        }
        for (const QByteArray& pair : place.mid(place.indexOf(':') + 1).split(',')) {
            const QByteArray value
                = QByteArray::fromPercentEncoding(pair.mid(pair.indexOf('=') + 1));
            if (pair.startsWith("path=")) {
                return QFile::decodeName(value);
            }
            if (pair.startsWith("abstract=")) {
                return QChar() + QFile::decodeName(value);
            }
        }
    }
    return {};
}

/// True when somebody takes the connection and does not answer in time. Any bus answers this
/// question with the ways in which it can be greeted (D-Bus Specification, "Authentication
/// Protocol"). One that is elsewhere is not asked.
bool isMute(const QByteArray& address)
{
    const QString socket = socketIn(address);
    const QByteArray question("\0AUTH\r\n", 7);
    return LocalQuestion::ask(socket, question, 1, patienceSeconds).outcome
        == LocalQuestion::Outcome::silent;
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
