// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/KdeShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/KeyNames.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QLoggingCategory>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.desktops")

const QString service = u"org.kde.kglobalaccel"_s;
const QString interfaceName = u"org.kde.KGlobalAccel"_s;
const QString component = u"org.tavik.Launcher"_s;
const QString action = u"summon"_s;
/// With `noAutoloading` what the user has set in the desktop's settings does not stand above it.
constexpr uint setPresent = 2;
constexpr uint noAutoloading = 4;
constexpr int patienceMilliseconds = 250;

/// Of our shortcut: the two names, and what people read.
QStringList actionId()
{
    return {component, action, u"Tavik Launcher"_s, Texts::tr("Summon the ring")};
}

QDBusMessage call(const QString& method, const QVariantList& arguments)
{
    QDBusMessage message
        = QDBusMessage::createMethodCall(service, u"/kglobalaccel"_s, interfaceName, method);
    message.setAutoStartService(false);
    message.setArguments(arguments);
    return message;
}

std::optional<int> keyOf(const KeyEvents::HotKey& hotKey)
{
    const std::optional<int> key
        = hotKey.keyCode ? KeyNames::toolkitKey(*hotKey.keyCode, hotKey.label) : std::nullopt;
    if (!key) {
        return std::nullopt;
    }
    const auto held = [&hotKey](quint64 flag, Qt::KeyboardModifier modifier) {
        return (hotKey.modifierFlags & flag) != 0 ? static_cast<int>(modifier) : 0;
    };
    return *key | held(ModifierFlags::shift, Qt::ShiftModifier)
        | held(ModifierFlags::control, Qt::ControlModifier)
        | held(ModifierFlags::option, Qt::AltModifier)
        | held(ModifierFlags::command, Qt::MetaModifier);
}

} // namespace

KdeShortcuts::KdeShortcuts(WorkQueue& workQueue)
    : m_fault(SessionBus::isOffered() ? 0 : statusGone)
{
    SessionBus::open(workQueue, this, [this](const QDBusConnection& bus) { opened(bus); });
}

KdeShortcuts::~KdeShortcuts()
{
    unbind();
}

Means KdeShortcuts::means() const
{
    return {.way = Texts::tr("A global shortcut of KDE, which System Settings › Shortcuts lists.")};
}

QString KdeShortcuts::request() const
{
    return Texts::tr("KDE gives programs no shortcut of modifiers alone, so it is asked for the "
                     "same modifiers with Space. System Settings › Shortcuts lists it.");
}

void KdeShortcuts::opened(const QDBusConnection& bus)
{
    m_bus = bus;
    const QString signalInterface = u"org.kde.kglobalaccel.Component"_s;
    // Whoever has the path: it is made when the shortcut is.
    m_bus->connect(service,
                   {},
                   signalInterface,
                   u"globalShortcutPressed"_s,
                   this,
                   SLOT(pressed(QString, QString)));
    m_bus->connect(service,
                   {},
                   signalInterface,
                   u"globalShortcutReleased"_s,
                   this,
                   SLOT(released(QString, QString)));
    // A service that starts again has forgotten who listens.
    auto* watcher
        = new QDBusServiceWatcher(service, *m_bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &KdeShortcuts::ask);
    ask();
}

int KdeShortcuts::bind(const KeyEvents::HotKey& hotKey, Handlers handlers)
{
    unbind();
    m_key = keyOf(hotKey);
    m_fault = !m_key ? statusNoSuchKey : SessionBus::isOffered() ? 0 : statusGone;
    if (m_fault != 0) {
        m_key.reset();
        return m_fault;
    }
    m_handlers = std::move(handlers);
    ask();
    return 0;
}

void KdeShortcuts::ask()
{
    if (!m_bus || !m_key) {
        return;
    }
    m_bus->asyncCall(call(u"doRegister"_s, {actionId()}));
    const QVariant keys = QVariant::fromValue(QList<int>{*m_key});
    const uint flags = setPresent | (std::exchange(m_hasAsked, true) ? noAutoloading : 0);
    auto* watcher = new QDBusPendingCallWatcher(
        m_bus->asyncCall(call(u"setShortcut"_s, {actionId(), keys, flags})), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &KdeShortcuts::answered);
}

void KdeShortcuts::answered(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    const QDBusPendingReply<QList<int>> reply = *call;
    if (!m_key) {
        return;
    }
    if (reply.isError()) {
        qCWarning(log,
                  "KDE's service for shortcuts does not answer: %ls",
                  qUtf16Printable(reply.error().message()));
        lose(statusGone);
    } else if (reply.value().count(0) == reply.value().size()) {
        lose(statusTaken);
    } else if (!reply.value().contains(*m_key)) {
        qCInfo(log, "The shortcut is the one that KDE's settings say");
    }
}

void KdeShortcuts::unbind()
{
    if (m_bus && m_key) {
        m_bus->asyncCall(call(u"setInactive"_s, {actionId()}));
    }
    m_key.reset();
    m_handlers = {};
}

int KdeShortcuts::status(const KeyEvents::HotKey& hotKey)
{
    const std::optional<int> key = keyOf(hotKey);
    if (!key) {
        return statusNoSuchKey;
    }
    if (!m_bus) {
        return 0; // What is not known yet is told when it is.
    }
    const QDBusMessage answer = m_bus->call(call(u"isGlobalShortcutAvailable"_s, {*key, component}),
                                            QDBus::Block,
                                            patienceMilliseconds);
    const bool isFree = answer.arguments().value(0).toBool();
    return answer.type() == QDBusMessage::ReplyMessage && isFree ? 0 : statusTaken;
}

void KdeShortcuts::lose(int status)
{
    m_fault = status;
    m_key.reset();
    if (const Handlers handlers = std::exchange(m_handlers, {}); handlers.lost) {
        handlers.lost(status);
    }
}

void KdeShortcuts::pressed(const QString& ofComponent, const QString& ofAction)
{
    const std::function<void()> tell = m_handlers.pressed;
    if (ofComponent == component && ofAction == action && tell) {
        tell();
    }
}

void KdeShortcuts::released(const QString& ofComponent, const QString& ofAction)
{
    const std::function<void()> tell = m_handlers.released;
    if (ofComponent == component && ofAction == action && tell) {
        tell();
    }
}

} // namespace Tavik
