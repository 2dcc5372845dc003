// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/SingleInstance.h>
#include <TavikLauncherPlatform/Linux/Desktop/SessionBus.h>

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QDBusMessage>
#include <QLoggingCategory>
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

struct NamedAction
{
    AppAction action;
    const char16_t* name;
};
constexpr std::array<NamedAction, 4> namedActions{{
    {AppAction::showLauncher, u"show-launcher"},
    {AppAction::toggleLauncher, u"toggle-launcher"},
    {AppAction::hideLauncher, u"hide-launcher"},
    {AppAction::quit, u"quit"},
}};

/// What a plain start sends over the socket.
constexpr QStringView plainStart = u"activate";

std::optional<AppAction> namedAction(const QString& name)
{
    const auto found = std::ranges::find_if(namedActions, [&name](const NamedAction& entry) {
        return name == QStringView(entry.name);
    });
    return found == namedActions.end() ? std::nullopt : std::optional(found->action);
}

QString latin1(const char* text)
{
    return QString::fromLatin1(text);
}

/// What other programs reach on the bus. Their arguments are theirs: only the action's name is
/// read.
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
    void Activate(const QVariantMap&) { perform(AppAction::activate); }
    void Open(const QStringList&, const QVariantMap&) { perform(AppAction::activate); }
    void ActivateAction(const QString& name,
                        const QVariantList&,
                        const QVariantMap&,
                        const QDBusMessage& message)
    {
        if (const std::optional<AppAction> action = namedAction(name)) {
            perform(*action);
            return;
        }
        message.setDelayedReply(true);
        QDBusConnection::sessionBus().send(
            message.createErrorReply(QDBusError::InvalidArgs, u"No such action"_s));
    }

private:
    void perform(AppAction action)
    {
        if (m_instance.onAction) {
            m_instance.onAction(action);
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
    return reply == QDBusConnectionInterface::ServiceRegistered ? Claim::first : Claim::taken;
}

SingleInstance::Claim SingleInstance::claimSocket()
{
    m_socket.onAction = [this](const QString& name) {
        perform(name);
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

void SingleInstance::perform(const QString& name)
{
    const std::optional<AppAction> action = namedAction(name);
    if (onAction && (action || name == plainStart)) {
        onAction(action.value_or(AppAction::activate));
    }
}

bool SingleInstance::forward(AppAction action)
{
    return forwardOverBus(action)
        || InstanceSocket::forward(action == AppAction::activate ? plainStart.toString()
                                                                 : actionName(action));
}

bool SingleInstance::forwardOverBus(AppAction action)
{
    if (!SessionBus::isOffered()) {
        return false;
    }
    // A connection of its own: this runs before there is an application object, and the one that
    // the toolkit shares must not be made before that.
    const QString connectionName = u"tavik-launcher-forward"_s;
    const bool isAnswered
        = call(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName), action);
    QDBusConnection::disconnectFromBus(connectionName);
    return isAnswered;
}

bool SingleInstance::call(const QDBusConnection& bus, AppAction action)
{
    if (!bus.isConnected()) {
        return false;
    }
    const bool isNamed = action != AppAction::activate;
    QDBusMessage message
        = QDBusMessage::createMethodCall(latin1(serviceName),
                                         latin1(objectPath),
                                         latin1(interfaceName),
                                         isNamed ? u"ActivateAction"_s : u"Activate"_s);
    // Only who runs is asked; nobody is to be started by the bus.
    message.setAutoStartService(false);
    if (isNamed) {
        message << actionName(action) << QVariantList();
    }
    message << QVariantMap();
    const QDBusMessage reply = bus.call(message, QDBus::Block, callTimeoutMilliseconds);
    return reply.type() == QDBusMessage::ReplyMessage;
}

} // namespace Tavik

#include "SingleInstance.moc"
