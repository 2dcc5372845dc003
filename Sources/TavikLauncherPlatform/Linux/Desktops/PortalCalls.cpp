// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/PortalCalls.h>

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString requestInterface = u"org.freedesktop.portal.Request"_s;

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

PortalCalls::PortalCalls(const QDBusConnection& bus)
    : m_bus(bus)
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
}

QString PortalCalls::pathOf(const QString& kind, const QString& token) const
{
    const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    return u"%1/%2/%3/%4"_s.arg(portalPath, kind, sender, token);
}

void PortalCalls::ask(const QString& interfaceName,
                      const QString& method,
                      const QVariantList& arguments,
                      QVariantMap options,
                      Answered answered)
{
    const QString token = u"tavik%1"_s.arg(++m_lastToken);
    const QString path = pathOf(u"request"_s, token);
    options.insert(u"handle_token"_s, token);
    m_waiting.insert(path, std::move(answered));
    listen(path, true);
    QDBusMessage message
        = QDBusMessage::createMethodCall(service, portalPath, interfaceName, method);
    message.setArguments(arguments + QVariantList{options});
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, path, watcher] {
        watcher->deleteLater();
        if (watcher->isError()) {
            finish(path, {.error = watcher->error().message()});
        }
    });
}

void PortalCalls::listen(const QString& path, bool listens)
{
    // No service name in the match: with one the toolkit would wait for the bus to name its owner.
    const char* slot = SLOT(responded(QDBusMessage));
    if (listens) {
        m_bus.connect({}, path, requestInterface, u"Response"_s, this, slot);
    } else {
        m_bus.disconnect({}, path, requestInterface, u"Response"_s, this, slot);
    }
}

void PortalCalls::responded(const QDBusMessage& message)
{
    if (message.service() != portal || message.signature() != u"ua{sv}") {
        return;
    }
    const QVariantList told = message.arguments();
    const uint response = told.value(0).toUInt();
    finish(message.path(),
           {.outcome = response == 0 ? Outcome::done
                : response == 1      ? Outcome::cancelled
                                     : Outcome::failed,
            .results = qdbus_cast<QVariantMap>(told.value(1)),
            .error = QStringLiteral("the request has ended with %1").arg(response)});
}

void PortalCalls::finish(const QString& path, const Answer& answer)
{
    if (const Answered answered = m_waiting.take(path)) {
        listen(path, false);
        answered(answer);
    }
}

void PortalCalls::forget()
{
    const QHash<QString, Answered> waiting = std::exchange(m_waiting, {});
    for (auto each = waiting.keyBegin(); each != waiting.keyEnd(); ++each) {
        listen(*each, false);
    }
}

} // namespace Tavik
