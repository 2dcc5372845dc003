// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ServiceCalls.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QRegularExpression>
#include <QVariantMap>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

/// The types of systemd's call; their names are not seen on the bus.
struct UnitProperty
{
    QString name;
    QDBusVariant value;
};
struct AuxiliaryUnit
{
    QString name;
    QList<UnitProperty> properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const UnitProperty& property)
{
    argument.beginStructure();
    argument << property.name << property.value;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, UnitProperty& property)
{
    argument.beginStructure();
    argument >> property.name >> property.value;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const AuxiliaryUnit& unit)
{
    argument.beginStructure();
    argument << unit.name << unit.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, AuxiliaryUnit& unit)
{
    argument.beginStructure();
    argument >> unit.name >> unit.properties;
    argument.endStructure();
    return argument;
}

} // namespace

} // namespace Tavik

Q_DECLARE_METATYPE(Tavik::UnitProperty)
Q_DECLARE_METATYPE(Tavik::AuxiliaryUnit)

namespace Tavik::ServiceCalls {

bool isBusName(const QString& id)
{
    static const QRegularExpression busName(
        u"^[A-Za-z_-][A-Za-z0-9_-]*(?:\\.[A-Za-z_-][A-Za-z0-9_-]*)+$"_s);
    constexpr qsizetype longestBusName = 255;
    return id.size() <= longestBusName && busName.match(id).hasMatch();
}

std::optional<QDBusMessage> activation(const QString& id, const LaunchTokens& tokens)
{
    if (!isBusName(id)) {
        return std::nullopt;
    }
    const QString path = u'/' + QString(id).replace(u'.', u'/').replace(u'-', u'_');
    QDBusMessage message
        = QDBusMessage::createMethodCall(id, path, u"org.freedesktop.Application"_s, u"Activate"_s);
    QVariantMap platformData;
    if (!tokens.startupId.isEmpty()) {
        platformData.insert(u"desktop-startup-id"_s, QString::fromUtf8(tokens.startupId));
    }
    if (!tokens.activationToken.isEmpty()) {
        platformData.insert(u"activation-token"_s, QString::fromUtf8(tokens.activationToken));
    }
    message << platformData;
    return message;
}

QDBusMessage scope(const QString& id, const QString& name, qint64 processId, quint32 random)
{
    qDBusRegisterMetaType<UnitProperty>();
    qDBusRegisterMetaType<QList<UnitProperty>>();
    qDBusRegisterMetaType<AuxiliaryUnit>();
    qDBusRegisterMetaType<QList<AuxiliaryUnit>>();
    qDBusRegisterMetaType<QList<quint32>>();
    QDBusMessage message = QDBusMessage::createMethodCall(u"org.freedesktop.systemd1"_s,
                                                          u"/org/freedesktop/systemd1"_s,
                                                          u"org.freedesktop.systemd1.Manager"_s,
                                                          u"StartTransientUnit"_s);
    message.setAutoStartService(false);
    const QList<UnitProperty> properties{
        {u"Description"_s, QDBusVariant(name)},
        {u"PIDs"_s,
         QDBusVariant(QVariant::fromValue(QList<quint32>{static_cast<quint32>(processId)}))},
        {u"Slice"_s, QDBusVariant(u"app.slice"_s)},
        // A scope that failed would stay behind until somebody looks at it.
        {u"CollectMode"_s, QDBusVariant(u"inactive-or-failed"_s)},
    };
    message << u"app-tavik-%1-%2.scope"_s.arg(escapedForUnit(id)).arg(random, 8, 16, QChar(u'0'))
            << u"fail"_s << QVariant::fromValue(properties)
            << QVariant::fromValue(QList<AuxiliaryUnit>());
    return message;
}

QDBusMessage failureNotice(const QString& name, const QString& error)
{
    QDBusMessage message = QDBusMessage::createMethodCall(u"org.freedesktop.Notifications"_s,
                                                          u"/org/freedesktop/Notifications"_s,
                                                          u"org.freedesktop.Notifications"_s,
                                                          u"Notify"_s);
    // Some servers read markup in the text.
    message << u"Tavik Launcher"_s << 0U << u"org.tavik.Launcher"_s
            << Texts::tr("“%1” could not be opened").arg(name) << error.toHtmlEscaped()
            << QStringList() << QVariantMap{{u"desktop-entry"_s, u"org.tavik.Launcher"_s}} << -1;
    return message;
}

QString escapedForUnit(const QString& text)
{
    QString escaped;
    for (const char byte : text.toUtf8()) {
        const bool isLetter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z')
            || (byte >= '0' && byte <= '9');
        if (isLetter || byte == ':' || byte == '_' || (byte == '.' && !escaped.isEmpty())) {
            escaped += QLatin1Char(byte);
        } else if (byte == '/') {
            escaped += u'-';
        } else {
            escaped += u"\\x%1"_s.arg(static_cast<quint8>(byte), 2, 16, QChar(u'0'));
        }
    }
    return escaped;
}

} // namespace Tavik::ServiceCalls
