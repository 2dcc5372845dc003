// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/InstanceBus.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QVariantMap>

#include <optional>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

const QString serviceName = u"org.tavik.Launcher"_s;
const QString objectPath = u"/org/tavik/Launcher"_s;
const QString interfaceName = u"org.freedesktop.Application"_s;
const QString ownInterface = u"org.tavik.Launcher"_s;
constexpr int callTimeoutMilliseconds = 5000;

/// What the caller's desktop gave along, in the standard's names.
constexpr QLatin1String startupIdKey("desktop-startup-id");
constexpr QLatin1String tokenKey("activation-token");

/// The action's argument, if it has one that is a text of a sensible length.
QString argumentIn(const QVariantList& parameters)
{
    if (parameters.isEmpty()) {
        return {};
    }
    const QVariant& first = parameters.front();
    const QVariant value
        = first.canConvert<QDBusVariant>() ? first.value<QDBusVariant>().variant() : first;
    const bool isText = value.typeId() == QMetaType::QString;
    return isText && value.toString().size() <= longestArgument ? value.toString() : QString();
}

QByteArray shortText(const QVariant& value)
{
    const bool isText = value.typeId() == QMetaType::QString;
    const QByteArray text = isText ? value.toString().toUtf8() : QByteArray();
    return text.size() <= longestActivation ? text : QByteArray();
}

Activation activationIn(const QVariantMap& platformData)
{
    return {.startupId = shortText(platformData.value(startupIdKey)),
            .token = shortText(platformData.value(tokenKey))};
}

QVariantMap platformDataOf(const Activation& activation)
{
    QVariantMap data;
    if (!activation.startupId.isEmpty()) {
        data.insert(startupIdKey, QString::fromUtf8(activation.startupId));
    }
    if (!activation.token.isEmpty()) {
        data.insert(tokenKey, QString::fromUtf8(activation.token));
    }
    return data;
}

/// What other programs reach on the bus.
class ApplicationAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(InstanceBus& bus)
        : QDBusAbstractAdaptor(&bus)
        , m_bus(bus)
    { }

public Q_SLOTS:
    void Activate(const QVariantMap& platformData)
    {
        perform({.activation = activationIn(platformData)});
    }
    void Open(const QStringList&, const QVariantMap& platformData) { Activate(platformData); }
    void ActivateAction(const QString& name,
                        const QVariantList& parameters,
                        const QVariantMap& platformData,
                        const QDBusMessage& message)
    {
        if (const std::optional<AppAction> action = namedAction(name)) {
            perform({.action = *action,
                     .argument = argumentIn(parameters),
                     .activation = activationIn(platformData)});
            return;
        }
        message.setDelayedReply(true);
        QDBusConnection::sessionBus().send(
            message.createErrorReply(QDBusError::InvalidArgs, u"No such action"_s));
    }

private:
    void perform(const AppRequest& request)
    {
        if (const auto onRequest = m_bus.onRequest) { // It may be the request that takes it away.
            onRequest(request);
        }
    }

    InstanceBus& m_bus;
};

/// What the standard's interface has no answer for.
class OwnAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.tavik.Launcher")

public:
    explicit OwnAdaptor(InstanceBus& bus)
        : QDBusAbstractAdaptor(&bus)
        , m_bus(bus)
    { }

public Q_SLOTS:
    QString CheckDesktop() { return m_bus.onCheckDesktop ? m_bus.onCheckDesktop() : QString(); }

private:
    InstanceBus& m_bus;
};

QDBusMessage messageOf(const AppRequest& request)
{
    const bool isNamed = request.action != AppAction::activate;
    QDBusMessage message = QDBusMessage::createMethodCall(
        serviceName, objectPath, interfaceName, isNamed ? u"ActivateAction"_s : u"Activate"_s);
    if (isNamed) {
        QVariantList parameters;
        if (!request.argument.isEmpty()) {
            parameters << QVariant::fromValue(QDBusVariant(request.argument));
        }
        message << actionName(request.action) << parameters;
    }
    message << platformDataOf(request.activation);
    return message;
}

InstanceAnswer call(const QDBusConnection& bus, const AppRequest& request, QString* text)
{
    if (!bus.isConnected()) {
        return InstanceAnswer::none;
    }
    const QDeadlineTimer patience(callTimeoutMilliseconds);
    QDBusMessage message = text
        ? QDBusMessage::createMethodCall(serviceName, objectPath, ownInterface, u"CheckDesktop"_s)
        : messageOf(request);
    // Only who runs is asked; nobody is to be started by the bus.
    message.setAutoStartService(false);
    const QDBusMessage reply = bus.call(message, QDBus::Block, callTimeoutMilliseconds);
    if (reply.type() == QDBusMessage::ReplyMessage) {
        if (text) {
            *text = reply.arguments().value(0).toString();
        }
        return InstanceAnswer::given;
    }
    // An early error says that nobody has the name, or that who had it is ending.
    return patience.hasExpired() ? InstanceAnswer::silent : InstanceAnswer::none;
}

} // namespace

InstanceBus::~InstanceBus()
{
    giveUp();
}

InstanceBus::Claim InstanceBus::claim()
{
    if (!SessionBus::isOffered()) {
        return Claim::unavailable;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return Claim::unavailable;
    }
    if (!findChild<ApplicationAdaptor*>()) {
        new ApplicationAdaptor(*this);
        new OwnAdaptor(*this);
    }
    // The object first: whoever sees the name may call at once.
    bus.registerObject(objectPath, this);
    const auto reply
        = bus.interface()->registerService(serviceName,
                                           QDBusConnectionInterface::DontQueueService,
                                           QDBusConnectionInterface::DontAllowReplacement);
    if (!reply.isValid()) {
        return Claim::unavailable;
    }
    m_hasName = reply == QDBusConnectionInterface::ServiceRegistered;
    return m_hasName ? Claim::first : Claim::taken;
}

void InstanceBus::giveUp()
{
    if (std::exchange(m_hasName, false)) {
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.unregisterObject(objectPath);
        bus.unregisterService(serviceName);
    }
    onRequest = nullptr;
    onCheckDesktop = nullptr;
}

InstanceAnswer InstanceBus::send(const AppRequest& request, QString* text)
{
    if (!SessionBus::isOffered()) {
        return InstanceAnswer::none;
    }
    // A connection of its own: this runs before there is an application object, and the one that
    // the toolkit shares must not be made before that.
    const QString connectionName = u"tavik-launcher-forward"_s;
    const InstanceAnswer answer = call(
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName), request, text);
    QDBusConnection::disconnectFromBus(connectionName);
    return answer;
}

} // namespace Tavik

#include "InstanceBus.moc"
