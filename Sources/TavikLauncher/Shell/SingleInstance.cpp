// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/SingleInstance.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QLoggingCategory>
#include <QThread>
#include <QVariantMap>

#include <algorithm>
#include <array>
#include <optional>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "tavik.shell")

constexpr auto serviceName = "org.tavik.Launcher";
constexpr auto objectPath = "/org/tavik/Launcher";
constexpr auto interfaceName = "org.freedesktop.Application";
constexpr int callTimeoutMilliseconds = 2000;
constexpr qsizetype longestArgument = 64;
constexpr qsizetype longestActivation = 256;

struct NamedAction
{
    AppAction action;
    const char16_t* name;
};
constexpr std::array<NamedAction, 8> namedActions{{
    {AppAction::showLauncher, u"show-launcher"},
    {AppAction::toggleLauncher, u"toggle-launcher"},
    {AppAction::hideLauncher, u"hide-launcher"},
    {AppAction::settings, u"settings"},
    {AppAction::reindex, u"reindex"},
    {AppAction::tour, u"tour"},
    {AppAction::checkForUpdates, u"check-for-updates"},
    {AppAction::quit, u"quit"},
}};

/// What a plain start sends over the socket.
constexpr QStringView plainStart = u"activate";
constexpr QChar argumentSeparator = u'=';
constexpr QChar fieldSeparator = u'\t';

std::optional<AppAction> namedAction(const QString& name)
{
    const auto found = std::ranges::find_if(namedActions, [&name](const NamedAction& entry) {
        return name == QStringView(entry.name);
    });
    return found == namedActions.end() ? std::nullopt : std::optional(found->action);
}

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

/// What the caller's desktop gave along, in the standard's names.
constexpr QLatin1String startupIdKey("desktop-startup-id");
constexpr QLatin1String tokenKey("activation-token");

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

QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

/// What other programs reach on the bus.
class ApplicationAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(SingleInstance& instance)
        : QDBusAbstractAdaptor(&instance)
        , m_instance(instance)
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
        if (m_instance.onRequest) {
            m_instance.onRequest(request);
        }
    }

    SingleInstance& m_instance;
};

} // namespace

QString actionName(AppAction action)
{
    const auto found = std::ranges::find(namedActions, action, &NamedAction::action);
    return found == namedActions.end() ? QString() : QString::fromUtf16(found->name);
}

SingleInstance::~SingleInstance()
{
    if (m_hasBusName) {
        QDBusConnection::sessionBus().unregisterService(latin1(serviceName));
    }
}

SingleInstance::Claim SingleInstance::claim()
{
    if (!SessionBus::isOffered()) {
        return claimSocket();
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return claimSocket();
    }
    new ApplicationAdaptor(*this);
    // The object first: whoever sees the name may call at once.
    bus.registerObject(latin1(objectPath), this);
    const auto reply
        = bus.interface()->registerService(latin1(serviceName),
                                           QDBusConnectionInterface::DontQueueService,
                                           QDBusConnectionInterface::DontAllowReplacement);
    m_hasBusName = reply == QDBusConnectionInterface::ServiceRegistered;
    return m_hasBusName ? Claim::first : Claim::taken;
}

SingleInstance::Claim SingleInstance::claimSocket()
{
    m_socket.onLine = [this](const QString& line) {
        perform(line);
    };
    switch (m_socket.claim()) {
    case InstanceSocket::Claim::taken:
        return Claim::taken;
    case InstanceSocket::Claim::unavailable:
        qCInfo(log, "neither a session bus nor a runtime folder: no other start reaches this one");
        break;
    case InstanceSocket::Claim::first:
        break;
    }
    return Claim::first;
}

void SingleInstance::perform(const QString& line)
{
    const QStringList fields = line.split(fieldSeparator);
    const QString name = fields.front().section(argumentSeparator, 0, 0);
    const std::optional<AppAction> action = namedAction(name);
    if (onRequest && (action || name == plainStart)) {
        onRequest({.action = action.value_or(AppAction::activate),
                   .argument = fields.front().section(argumentSeparator, 1).left(longestArgument),
                   .activation = {.startupId = shortText(fields.value(1)),
                                  .token = shortText(fields.value(2))}});
    }
}

QString SingleInstance::lineOf(const AppRequest& request)
{
    const bool isNamed = request.action != AppAction::activate;
    QString line = isNamed ? actionName(request.action) : plainStart.toString();
    if (!request.argument.isEmpty()) {
        line += argumentSeparator + request.argument;
    }
    return line + fieldSeparator + QString::fromUtf8(request.activation.startupId) + fieldSeparator
        + QString::fromUtf8(request.activation.token);
}

bool SingleInstance::forward(const AppRequest& request)
{
    if (forwardOverBus(request)) {
        return true;
    }
    return InstanceSocket::forward(lineOf(request));
}

bool SingleInstance::handOver(const AppRequest& request)
{
    constexpr unsigned long pauseMilliseconds = 20;
    const QDeadlineTimer patience(callTimeoutMilliseconds);
    while (!forward(request)) {
        if (patience.hasExpired()) {
            return false;
        }
        QThread::msleep(pauseMilliseconds);
    }
    return true;
}

bool SingleInstance::forwardOverBus(const AppRequest& request)
{
    if (!SessionBus::isOffered()) {
        return false;
    }
    // A connection of its own: this runs before there is an application object, and the one that
    // the toolkit shares must not be made before that.
    const QString connectionName = u"tavik-launcher-forward"_s;
    const bool isAnswered
        = call(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName), request);
    QDBusConnection::disconnectFromBus(connectionName);
    return isAnswered;
}

bool SingleInstance::call(const QDBusConnection& bus, const AppRequest& request)
{
    if (!bus.isConnected()) {
        return false;
    }
    const bool isNamed = request.action != AppAction::activate;
    QDBusMessage message
        = QDBusMessage::createMethodCall(latin1(serviceName),
                                         latin1(objectPath),
                                         latin1(interfaceName),
                                         isNamed ? u"ActivateAction"_s : u"Activate"_s);
    // Only who runs is asked; nobody is to be started by the bus.
    message.setAutoStartService(false);
    if (isNamed) {
        QVariantList parameters;
        if (!request.argument.isEmpty()) {
            parameters << QVariant::fromValue(QDBusVariant(request.argument));
        }
        message << actionName(request.action) << parameters;
    }
    message << platformDataOf(request.activation);
    const QDBusMessage reply = bus.call(message, QDBus::Block, callTimeoutMilliseconds);
    return reply.type() == QDBusMessage::ReplyMessage;
}

} // namespace Tavik

#include "SingleInstance.moc"
