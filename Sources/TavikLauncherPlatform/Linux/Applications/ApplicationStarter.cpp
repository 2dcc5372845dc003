// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationStarter.h>
#include <TavikLauncherPlatform/Linux/Applications/ProcessExit.h>
#include <TavikLauncherPlatform/Linux/Applications/ServiceCalls.h>
#include <TavikLauncherPlatform/Linux/Applications/WindowSource.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <signal.h>
#include <utility>

namespace Tavik {

namespace {

/// How long a program may take to show a window, in seconds.
constexpr double patience = 10.0;
/// How long an application that has been asked may still need what announces its raising.
constexpr double raisingSeconds = 1.0;
/// How long a service may take to answer, in milliseconds.
constexpr int serviceTimeout = 5000;
/// A window may name the start it answers long after the program that was started has gone.
constexpr qsizetype mostStartupIds = 64;

bool isAlive(qint64 processId)
{
    return ::kill(static_cast<pid_t>(processId), 0) == 0 || errno == EPERM;
}

QString idOf(const LaunchTarget& target)
{
    return target.entry.id.isEmpty() ? QFileInfo(target.path).completeBaseName() : target.entry.id;
}

QString nameOf(const LaunchTarget& target)
{
    return target.entry.name.isEmpty() ? QFileInfo(target.path).completeBaseName()
                                       : target.entry.name;
}

} // namespace

ApplicationStarter::ApplicationStarter(const Dependencies& dependencies)
    : m_dependencies(dependencies)
{
    SessionBus::open(
        m_dependencies.workQueue, this, [this](const QDBusConnection& bus) { m_bus = bus; });
}

ApplicationStarter::~ApplicationStarter() = default;

void ApplicationStarter::start(const QString& path,
                               const DesktopEntry* known,
                               Workspace::OpenCompletion completion)
{
    if (m_starting.contains(path)) {
        m_dependencies.mainQueue.post([completion] { completion(std::nullopt); });
        return;
    }
    const LaunchTokens tokens
        = m_dependencies.windows.beginStart(known ? *known : DesktopEntry{.path = path});
    Start& start = m_starting[path];
    start.tokens = tokens;
    start.patience = m_dependencies.mainQueue.after(patience, [this, path] { end(path); });
    if (!tokens.startupId.isEmpty()) {
        m_startupIds.append({tokens.startupId, path});
        m_startupIds.remove(0, std::max<qsizetype>(m_startupIds.size() - mostStartupIds, 0));
    }
    Q_EMIT startingChanged();

    struct Attempt
    {
        LaunchTarget target;
        std::optional<LaunchResult> result; ///< Absent for what is to be asked over the bus.
    };
    m_dependencies.workQueue.run(
        WorkPriority::launch,
        [read = m_dependencies.read, path, tokens, hasBus = m_bus.has_value()] {
            Attempt attempt{.target = read(path), .result = {}};
            if (!hasBus || !attempt.target.entry.isActivatable) {
                attempt.result = launchApplication(attempt.target, tokens);
            }
            return attempt;
        },
        [self = QPointer(this), tokens, completion](const Attempt& attempt) {
            if (!self) {
                completion(attempt.result ? attempt.result->error : std::nullopt);
            } else if (attempt.result) {
                self->finish(attempt.target, *attempt.result, completion);
            } else {
                self->activate(attempt.target, tokens, completion);
            }
        });
}

void ApplicationStarter::raise(const DesktopEntry& entry, Workspace::OpenCompletion completion)
{
    const LaunchTokens tokens = m_dependencies.windows.beginStart(entry);
    std::optional<QDBusMessage> message
        = m_bus ? ServiceCalls::activation(entry.id, tokens) : std::nullopt;
    if (!message) {
        m_dependencies.windows.endStart(tokens);
        start(entry.path, &entry, std::move(completion));
        return;
    }
    message->setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(*message, serviceTimeout), this);
    connect(watcher,
            &QDBusPendingCallWatcher::finished,
            this,
            [this, entry, tokens, completion](QDBusPendingCallWatcher* call) {
                call->deleteLater();
                // What the application has asked of the desktop meanwhile may still be on its way.
                m_raised[tokens.startupId]
                    = m_dependencies.mainQueue.after(raisingSeconds, [this, tokens] {
                          m_dependencies.windows.endStart(tokens);
                          const auto raised = m_raised.extract(tokens.startupId);
                      });
                if (call->isError()) {
                    start(entry.path, &entry, completion);
                } else {
                    completion(std::nullopt);
                }
            });
}

void ApplicationStarter::run(const LaunchTarget& target,
                             const LaunchTokens& tokens,
                             const Workspace::OpenCompletion& completion)
{
    m_dependencies.workQueue.run(
        WorkPriority::launch,
        [target, tokens] { return launchApplication(target, tokens); },
        [self = QPointer(this), target, completion](const LaunchResult& result) {
            if (self) {
                self->finish(target, result, completion);
            }
        });
}

void ApplicationStarter::activate(const LaunchTarget& target,
                                  const LaunchTokens& tokens,
                                  const Workspace::OpenCompletion& completion)
{
    const std::optional<QDBusMessage> message = ServiceCalls::activation(target.entry.id, tokens);
    if (!message) {
        run(target, tokens, completion);
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(*message, serviceTimeout), this);
    connect(watcher,
            &QDBusPendingCallWatcher::finished,
            this,
            [this, target, tokens, completion](QDBusPendingCallWatcher* call) {
                call->deleteLater();
                const QDBusPendingReply<> reply = *call;
                if (!reply.isError()) {
                    completion(std::nullopt);
                } else if (!target.entry.command.isEmpty()) {
                    run(target, tokens, completion);
                } else {
                    finish(target, {.error = reply.error().message()}, completion);
                }
            });
}

void ApplicationStarter::finish(const LaunchTarget& target,
                                const LaunchResult& result,
                                const Workspace::OpenCompletion& completion)
{
    if (result.error) {
        end(target.path);
        tellUser(target, *result.error);
    } else if (result.processId > 0) {
        m_processes.insert(result.processId, target.path);
        placeInScope(target, result.processId);
        if (const auto found = m_starting.find(target.path); found != m_starting.end()) {
            m_dependencies.windows.describeStart(found->second.tokens, result.processId);
            found->second.exit = std::make_unique<ProcessExit>(
                result.processId, [this, path = target.path] { end(path); });
        }
        Q_EMIT processKnown();
    }
    completion(result.error);
}

void ApplicationStarter::placeInScope(const LaunchTarget& target, qint64 processId)
{
    if (m_bus) {
        // Where nobody manages units the program stays where it is, in a session of its own.
        m_bus->asyncCall(ServiceCalls::scope(
            idOf(target), nameOf(target), processId, QRandomGenerator::global()->generate()));
    }
}

void ApplicationStarter::tellUser(const LaunchTarget& target, const QString& error)
{
    if (m_bus) {
        m_bus->asyncCall(ServiceCalls::failureNotice(nameOf(target), error));
    }
}

void ApplicationStarter::windowCame(const QString& path, const QByteArray& startupId)
{
    const QString started = pathOf(0, startupId);
    end(started.isEmpty() ? path : started);
}

void ApplicationStarter::end(const QString& path)
{
    const auto found = m_starting.find(path);
    if (found == m_starting.end()) {
        return;
    }
    // Moved out first: the caller may be a task or a notifier of the very start.
    const auto ended = m_starting.extract(found);
    m_dependencies.windows.endStart(ended.mapped().tokens);
    Q_EMIT startingChanged();
}

void ApplicationStarter::forgetEnded()
{
    // Process numbers are used again.
    m_processes.removeIf([](auto process) { return !isAlive(process.key()); });
}

QStringList ApplicationStarter::starting() const
{
    QStringList paths;
    for (const auto& [path, start] : m_starting) {
        paths.append(path);
    }
    return paths;
}

QString ApplicationStarter::pathOf(qint64 processId, const QByteArray& startupId) const
{
    const QString path = m_processes.value(processId);
    if (!path.isEmpty() || startupId.isEmpty()) {
        return path;
    }
    const auto found
        = std::ranges::find(m_startupIds, startupId, &std::pair<QByteArray, QString>::first);
    return found == m_startupIds.end() ? QString() : found->second;
}

} // namespace Tavik
