// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationUnits.h>
#include <TavikLauncherPlatform/Linux/Applications/WindowMatching.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusServiceWatcher>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.systemd1"_s;
const QString managerPath = u"/org/freedesktop/systemd1"_s;
const QString managerInterface = u"org.freedesktop.systemd1.Manager"_s;

/// A start is told in several signals. All that come within this time, in seconds, are one reason
/// to ask, and a flood of units is one question each time.
constexpr double gathering = 0.1;
/// More units than anybody's applications have.
constexpr qsizetype mostUnits = 512;

QDBusMessage callOf(const QString& method)
{
    QDBusMessage call
        = QDBusMessage::createMethodCall(service, managerPath, managerInterface, method);
    call.setAutoStartService(false);
    return call;
}

/// One unit as systemd lists it, as far as it matters.
struct Unit
{
    QString name;
    QString activity;
    QString state; ///< Of its own kind, as "exited" for a service that is active without a process.
    QDBusObjectPath path;

    [[nodiscard]] bool runs() const
    {
        return (activity == "active"_L1 || activity == "reloading"_L1) && state != "exited"_L1;
    }
};

const QDBusArgument& operator>>(const QDBusArgument& argument, Unit& unit)
{
    QString passed; // The description, whether it could be loaded, which unit it follows.
    argument.beginStructure();
    argument >> unit.name >> passed >> passed >> unit.activity >> unit.state >> passed >> unit.path;
    argument.endStructure();
    return argument;
}

} // namespace

ApplicationUnits::ApplicationUnits(MainQueue& mainQueue,
                                   WorkQueue& workQueue,
                                   const QString& ownUnit)
    : m_mainQueue(mainQueue)
    , m_ownUnit(ownUnit)
    , m_watcher(new QDBusServiceWatcher(this))
{
    connect(m_watcher,
            &QDBusServiceWatcher::serviceOwnerChanged,
            this,
            [this](const QString&, const QString&, const QString& owner) {
                if (owner.isEmpty()) {
                    setRunning({});
                } else {
                    begin(); // Another one does not know who listens.
                }
            });
    SessionBus::open(workQueue, this, [this](const QDBusConnection& bus) {
        m_bus = bus;
        m_watcher->setConnection(bus);
        m_watcher->addWatchedService(service);
        // No service name in the matches: with one the toolkit would wait for the bus to name its
        // owner. Whoever lies only causes a question.
        m_bus->connect(
            QString(), managerPath, managerInterface, u"UnitNew"_s, this, SLOT(unitCame(QString)));
        begin();
    });
}

ApplicationUnits::~ApplicationUnits()
{
    if (m_bus) {
        m_bus->send(callOf(u"Unsubscribe"_s));
    }
}

void ApplicationUnits::follow(const QSet<QString>& ids)
{
    if (std::exchange(m_ids, ids) != ids) {
        askSoon();
    }
}

void ApplicationUnits::begin()
{
    // Without this it tells nobody anything.
    m_bus->asyncCall(callOf(u"Subscribe"_s));
    askSoon();
}

void ApplicationUnits::unitCame(const QString& unit)
{
    if (!followedIn(unit).isEmpty()) {
        askSoon();
    }
}

void ApplicationUnits::askSoon()
{
    if (m_bus && !m_askTask.isActive()) {
        m_askTask = m_mainQueue.after(gathering, [this] { ask(); });
    }
}

void ApplicationUnits::ask()
{
    QDBusMessage call = callOf(u"ListUnitsByPatterns"_s);
    // In whatever state: a service that stays loaded may be started again.
    call << QStringList() << QStringList{u"app-*"_s, u"flatpak-*"_s, u"snap.*"_s};
    // Slots are called in the order of the answers.
    m_bus->callWithCallback(call, this, SLOT(take(QDBusMessage)));
}

void ApplicationUnits::take(const QDBusMessage& answer)
{
    if (answer.signature() != "a(ssssssouso)"_L1) {
        return;
    }
    QSet<QString> running;
    QSet<QString> paths;
    const auto units = answer.arguments().constFirst().value<QDBusArgument>();
    units.beginArray();
    while (!units.atEnd() && paths.size() < mostUnits) {
        Unit unit;
        units >> unit;
        const QString id = followedIn(unit.name);
        if (id.isEmpty()) {
            continue;
        }
        paths.insert(unit.path.path());
        if (unit.runs()) {
            running.insert(id);
        }
    }
    watch(paths);
    setRunning(running);
}

void ApplicationUnits::watch(const QSet<QString>& paths)
{
    // One rule for each, so that the other units' changes wake nobody.
    const auto tell = [this](const QString& path, auto connectOrDisconnect) {
        ((*m_bus).*connectOrDisconnect)(QString(),
                                        path,
                                        u"org.freedesktop.DBus.Properties"_s,
                                        u"PropertiesChanged"_s,
                                        {u"org.freedesktop.systemd1.Unit"_s},
                                        QString(),
                                        this,
                                        SLOT(askSoon()));
    };
    using Rule = bool (QDBusConnection::*)(const QString&,
                                           const QString&,
                                           const QString&,
                                           const QString&,
                                           const QStringList&,
                                           const QString&,
                                           QObject*,
                                           const char*);
    const QSet<QString> before = std::exchange(m_paths, paths);
    for (const QString& path : before - paths) {
        tell(path, Rule(&QDBusConnection::disconnect));
    }
    for (const QString& path : paths - before) {
        tell(path, Rule(&QDBusConnection::connect));
        askSoon(); // It may have changed before that.
    }
}

void ApplicationUnits::setRunning(const QSet<QString>& running)
{
    if (std::exchange(m_running, running) != running) {
        Q_EMIT changed();
    }
}

/// The followed application that a unit's name is about, or nothing.
QString ApplicationUnits::followedIn(const QString& unit) const
{
    const QString id = unit == m_ownUnit ? QString() : WindowMatching::applicationIdOfUnit(unit);
    return m_ids.contains(id) ? id : QString();
}

} // namespace Tavik
