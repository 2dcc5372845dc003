// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/KWinWindows.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QStandardPaths>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.desktops")

const QString service = u"org.kde.KWin"_s;
const QString objectPath = u"/org/tavik/Launcher/Windows"_s;
const QString scriptName = u"tavik-launcher"_s;
/// Seconds. A script that has not spoken by then has failed; at a login there is much to do.
constexpr double longestSilence = 10;

/// Some of KWin's texts are bytes to a script, so each is made a text. Names of version 6 come
/// first, those of version 5 after them.
const QString script = uR"(
const told = (method, text) => callDBus("%1", "%2", "org.tavik.Launcher.Windows", method, text);
const all = () => workspace.windowList ? workspace.windowList() : workspace.clientList();
const active = () => workspace.activeWindow || workspace.activeClient || null;
const id = window => window ? String(window.internalId) : "";
const isOwn = window => Number(window.pid) === %3;
const place = window => ["x", "y", "width", "height"].map(name => Math.round(window.frameGeometry[name]));
const facts = window => ({
    id: id(window), desktopFile: String(window.desktopFileName), name: String(window.resourceName),
    className: String(window.resourceClass), pid: Number(window.pid), isSkipped: window.skipTaskbar,
    title: isOwn(window) ? String(window.caption) : "", place: isOwn(window) ? place(window) : []});
const tell = gone => told("tellWindows", JSON.stringify(
    {windows: all().filter(window => window !== gone).map(facts), active: id(active())}));
const follow = window => ["desktopFileNameChanged", "windowClassChanged", "skipTaskbarChanged"].concat(
    isOwn(window) ? ["frameGeometryChanged", "captionChanged"] : []).forEach(
    name => window[name] && window[name].connect(() => tell(null)));
all().forEach(follow);
(workspace.windowAdded || workspace.clientAdded).connect(window => { follow(window); tell(null); });
(workspace.windowRemoved || workspace.clientRemoved).connect(tell);
(workspace.windowActivated || workspace.clientActivated).connect(window => told("tellActive", id(window)));
tell(null);
)"_s;

QRect placeIn(const QJsonArray& told)
{
    return {told.at(0).toInt(), told.at(1).toInt(), told.at(2).toInt(), told.at(3).toInt()};
}

QDBusMessage scriptingCall(const QString& method, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, u"/Scripting"_s, u"org.kde.kwin.Scripting"_s, method);
    message.setAutoStartService(false);
    message.setArguments(arguments);
    return message;
}

} // namespace

KWinWindows::KWinWindows(MainQueue& mainQueue, WorkQueue& workQueue)
    : m_mainQueue(mainQueue)
{
    SessionBus::open(workQueue, this, [this](const QDBusConnection& bus) { opened(bus); });
}

KWinWindows::~KWinWindows()
{
    if (m_bus) {
        m_bus->send(scriptingCall(u"unloadScript"_s, {scriptName}));
        m_bus->unregisterObject(objectPath);
    }
}

Means KWinWindows::runningMeans() const
{
    // It is told anew when KWin starts again, and until then nobody speaks for it.
    const bool isTold = isReady() && !m_kwin.isEmpty();
    return {.way = Texts::tr("A script inside of KWin lists its windows."),
            .lack = isTold ? QString() : Texts::tr("The desktop does not answer.")};
}

Means KWinWindows::raisingMeans() const
{
    return {.way = Texts::tr("KWin brings a window forward as for KDE's own search."),
            .lack = runningMeans().lack};
}

void KWinWindows::opened(const QDBusConnection& bus)
{
    m_bus = bus;
    m_bus->registerObject(objectPath, this, QDBusConnection::ExportScriptableSlots);
    auto* watcher
        = new QDBusServiceWatcher(service, *m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &KWinWindows::load);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, &KWinWindows::forget);
    load();
}

/// Gives KWin the script, in the place of one that a killed run has left there.
void KWinWindows::load()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    m_script = folder.isEmpty()
        ? std::make_unique<QTemporaryFile>()
        : std::make_unique<QTemporaryFile>(folder + u"/tavik-windows-XXXXXX.js"_s);
    if (!m_script->open()
        || m_script->write(script.arg(m_bus->baseService(), objectPath)
                               .arg(QCoreApplication::applicationPid())
                               .toUtf8())
            < 0
        || !m_script->flush()) {
        giveUp(m_script->errorString());
        return;
    }
    m_bus->send(scriptingCall(u"unloadScript"_s, {scriptName}));
    auto* watcher = new QDBusPendingCallWatcher(
        m_bus->asyncCall(scriptingCall(u"loadScript"_s, {m_script->fileName(), scriptName})), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        run(watcher->reply());
    });
}

void KWinWindows::run(const QDBusMessage& loaded)
{
    bool isNumber = false;
    const int number = loaded.arguments().value(0).toInt(&isNumber);
    if (loaded.type() != QDBusMessage::ReplyMessage || !isNumber || number < 0) {
        giveUp(loaded.errorMessage());
        return;
    }
    m_kwin = loaded.service();
    // Version 5 has a script at the first place, version 6 at the other.
    for (const QString& place : {u"/%1"_s, u"/Scripting/Script%1"_s}) {
        m_bus->send(QDBusMessage::createMethodCall(
            service, place.arg(number), u"org.kde.kwin.Script"_s, u"run"_s));
    }
    m_silenceTask = m_mainQueue.after(longestSilence, [this] { giveUp("it says nothing"_L1); });
}

void KWinWindows::forget()
{
    m_kwin.clear();
    m_silenceTask.cancel();
    take({}, QString());
}

void KWinWindows::giveUp(const QString& why)
{
    qCWarning(log, "KWin runs no script of ours: %ls", qUtf16Printable(why.left(200)));
    m_script.reset();
    lose();
}

bool KWinWindows::isFromKWin() const
{
    return !m_kwin.isEmpty() && calledFromDBus() && message().service() == m_kwin;
}

void KWinWindows::tellWindows(const QString& words)
{
    if (!isFromKWin()) {
        return;
    }
    m_script.reset();
    m_silenceTask.cancel();
    const QJsonObject told = QJsonDocument::fromJson(words.toUtf8()).object();
    QList<Window> windows;
    for (const QJsonValue& value : told[u"windows"_s].toArray()) {
        const QJsonObject window = value.toObject();
        Facts facts;
        facts.clues.applicationId = window[u"desktopFile"_s].toString();
        facts.clues.instanceName = window[u"name"_s].toString();
        facts.clues.className = window[u"className"_s].toString();
        facts.isOnTaskbar = !window[u"isSkipped"_s].toBool();
        facts.processId = window[u"pid"_s].toInteger();
        if (const QString id = window[u"id"_s].toString(); !id.isEmpty()) {
            windows.append({.name = id,
                            .facts = facts,
                            .title = window[u"title"_s].toString(),
                            .place = placeIn(window[u"place"_s].toArray())});
        }
    }
    take(windows, told[u"active"_s].toString());
}

void KWinWindows::tellActive(const QString& window)
{
    if (isFromKWin()) {
        takeActive(window);
    }
}

void KWinWindows::raise(const QString& name)
{
    if (!m_bus) {
        return;
    }
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, u"/WindowsRunner"_s, u"org.kde.krunner1"_s, u"Run"_s);
    message.setAutoStartService(false);
    // The first number stands for "activate".
    message.setArguments({u"0_"_s + name, QString()});
    m_bus->send(message);
}

} // namespace Tavik
