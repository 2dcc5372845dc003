// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationWorkspace.h>
#include <TavikLauncherPlatform/Linux/Applications/LinuxFileManager.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>

#include <algorithm>
#include <utility>

#include <unistd.h>

namespace Tavik {

namespace {

/// A window of an application that was installed a moment ago makes us look again, but not more
/// often than this.
constexpr double entriesReadInterval = 5.0;

} // namespace

ApplicationWorkspace::ApplicationWorkspace(MainQueue& mainQueue,
                                           WorkQueue& workQueue,
                                           LinuxFileManager& fileManager,
                                           std::unique_ptr<WindowSource> windows)
    : m_mainQueue(mainQueue)
    , m_workQueue(workQueue)
    , m_fileManager(fileManager)
    , m_windows(std::move(windows))
    , m_starter({.mainQueue = mainQueue,
                 .workQueue = workQueue,
                 .windows = *m_windows,
                 .read =
                     [&fileManager](const QString& path) {
                         return fileManager.launchTarget(path);
                     }})
    , m_sleep(workQueue, [this] { m_center.post(willSleep); })
    , m_ownControlGroup(controlGroupOf(QCoreApplication::applicationPid()))
{
    m_windows->onWindowsChanged = [this] {
        if (m_hasEntries && m_windows->tellsOfAll() == (m_windowless != nullptr)) {
            followWindowless(); // Another list of windows has taken the place of the first.
        }
        updateApplications();
        if (!std::exchange(m_hasWindows, m_windows->isReady())) {
            m_frontmost = frontmostIdentity(); // As it was before the start.
        }
        updateFrontmost();
    };
    m_windows->onActiveWindowChanged = [this] {
        updateFrontmost();
    };
    connect(&m_starter, &ApplicationStarter::startingChanged, this, [this] {
        m_center.post(didChangeStartingApplications);
    });
    // A quick program's window may have come before we heard of the process.
    connect(&m_starter, &ApplicationStarter::processKnown, this, [this] {
        updateApplications();
        updateFrontmost();
    });
    updateApplications();
    m_hasWindows = m_windows->isReady();
    m_frontmost = frontmostIdentity();
    // Before the first reading, so that nothing changes unseen between the two.
    m_watch = m_fileManager.watch(m_fileManager.applicationFolders(),
                                  [this](const QStringList& paths) { followChanges(paths); });
    readEntries();
}

ApplicationWorkspace::~ApplicationWorkspace() = default;

QList<RunningApplication> ApplicationWorkspace::runningApplications() const
{
    return m_applications.applications();
}

std::optional<RunningApplication> ApplicationWorkspace::frontmostApplication() const
{
    return m_applications.applicationOf(m_windows->activeWindow());
}

QStringList ApplicationWorkspace::startingApplications() const
{
    return m_starter.starting();
}

std::optional<QString>
ApplicationWorkspace::pathForApplication(const QString& bundleIdentifier) const
{
    const DesktopEntry* entry = m_entries.withId(bundleIdentifier);
    return entry ? std::optional(entry->path) : std::nullopt;
}

void ApplicationWorkspace::openApplication(const QString& path,
                                           OpenConfiguration configuration,
                                           OpenCompletion completion)
{
    const QList<WindowId> windows = m_applications.windowsOf(path);
    if (windows.isEmpty()) {
        const DesktopEntry* entry = m_entries.withPath(path);
        if (entry && m_windowless && m_windowless->canBeAsked(entry->id)) {
            m_starter.raise(*entry, std::move(completion));
        } else {
            m_starter.start(path, entry, std::move(completion));
        }
        return;
    }
    if (configuration.activates) {
        m_windows->activate(m_windows->mostRecent(windows));
    }
    m_mainQueue.post([completion = std::move(completion)] { completion(std::nullopt); });
}

void ApplicationWorkspace::readEntries()
{
    m_mustReadAll = true;
    read();
}

void ApplicationWorkspace::followChanges(const QStringList& paths)
{
    m_mustReadAll |= paths.isEmpty();
    m_changedPaths += paths;
    read();
}

/// What has to be read, unless something is being read: then after that.
void ApplicationWorkspace::read()
{
    if (m_isReading || !(m_mustReadAll || !m_changedPaths.isEmpty())) {
        return;
    }
    m_isReading = true;
    const bool isAll = std::exchange(m_mustReadAll, false);
    if (isAll) {
        m_lastRead = m_mainQueue.systemUptime();
    }
    m_workQueue.run(
        WorkPriority::userInitiated,
        [isAll,
         &fileManager = m_fileManager,
         entries = m_entries,
         paths = std::exchange(m_changedPaths, {})] {
            return isAll ? fileManager.desktopEntries()
                         : fileManager.desktopEntries(entries, paths);
        },
        [self = QPointer<ApplicationWorkspace>(this)](const DesktopEntries& entries) {
            if (self) {
                self->takeEntries(entries);
            }
        });
}

void ApplicationWorkspace::takeEntries(const DesktopEntries& entries)
{
    m_isReading = false;
    const bool isFirst = !std::exchange(m_hasEntries, true);
    if (isFirst || entries != m_entries) {
        m_entries = entries;
        // What was there before the entries were read is no reason to read them again.
        const QList<WindowId> windows = m_windows->windows();
        m_seen = {windows.begin(), windows.end()};
        followWindowless();
        updateApplications();
        if (isFirst) {
            // It has the focus since before the start: nobody has switched to it.
            m_frontmost = frontmostIdentity();
        }
        updateFrontmost();
    }
    read();
}

void ApplicationWorkspace::followWindowless()
{
    if (m_windows->tellsOfAll()) {
        m_windowless.reset();
        return;
    }
    if (!m_windowless) {
        m_windowless = std::make_unique<WindowlessApplications>(
            m_mainQueue, m_workQueue, m_ownControlGroup.section(u'/', -1));
        connect(m_windowless.get(), &WindowlessApplications::changed, this, [this] {
            updateApplications();
        });
    }
    m_windowless->follow(m_entries);
}

void ApplicationWorkspace::updateApplications()
{
    QList<ApplicationWindow> descriptions;
    const QList<WindowId> windows = m_windows->windows();
    bool metUnknown = false;
    for (const WindowId window : windows) {
        const ApplicationWindow description = describe(window, m_windows->factsOf(window));
        if (m_hasEntries && !m_seen.contains(window)) {
            m_seen.insert(window);
            metUnknown |= !description.bundlePath && description.isRegular;
        }
        descriptions.append(description);
    }
    const QSet<WindowId> existing(windows.begin(), windows.end());
    m_seen.intersect(existing);
    m_processes.removeIf([&](auto process) { return !existing.contains(process.key()); });
    m_started.removeIf([&](auto started) { return !existing.contains(started.key()); });
    const RunningApplicationList::Changes changes = m_applications.setWindows(
        m_windowless ? descriptions + m_windowless->running(m_entries) : descriptions);
    for (const ApplicationWindow& description : std::as_const(descriptions)) {
        if (description.isRegular) {
            m_starter.windowCame(description.bundlePath.value_or(QString()),
                                 m_windows->factsOf(description.window).clues.startupId);
        }
    }
    if (!changes.terminated.isEmpty()) {
        m_starter.forgetEnded();
    }
    if (metUnknown && !m_unknownWindowTask.isActive()) {
        const double wait = m_lastRead + entriesReadInterval - m_mainQueue.systemUptime();
        m_unknownWindowTask = m_mainQueue.after(std::max(wait, 0.0), [this] { readEntries(); });
    }
    for (const QString& path : changes.terminated) {
        m_center.post(didTerminateApplication, path);
    }
    for (const QString& path : changes.launched) {
        m_center.post(didLaunchApplication, path);
    }
}

void ApplicationWorkspace::updateFrontmost()
{
    const QString identity = frontmostIdentity();
    if (identity.isEmpty() && m_windows->activeWindow() != 0) {
        return; // A new window; some window managers make it active before they list it.
    }
    if (std::exchange(m_frontmost, identity) != identity && !identity.isEmpty()) {
        m_center.post(didActivateApplication,
                      frontmostApplication()->bundlePath.value_or(QString()));
    }
}

/// Tells one application from another, also when it has no bundle; empty when none has the focus.
QString ApplicationWorkspace::frontmostIdentity() const
{
    const std::optional<RunningApplication> application = frontmostApplication();
    return application
        ? application->bundlePath.value_or(QStringLiteral("pid:%1").arg(application->processId))
        : QString();
}

ApplicationWindow ApplicationWorkspace::describe(WindowId window, const WindowSource::Facts& facts)
{
    const Identity identity = identify(window, facts);
    ApplicationWindow description{.window = window,
                                  .isRegular = facts.isOnTaskbar,
                                  .group = {},
                                  .bundlePath = identity.path,
                                  .bundleIdentifier = identity.identifier,
                                  .processId = facts.processId};
    if (identity.path) {
        const DesktopEntry* entry = m_entries.withPath(*identity.path);
        description.isListed = !entry || !entry->isHidden;
        description.group = *identity.path;
    } else if (facts.processId > 0) {
        description.group = QStringLiteral("pid:%1").arg(facts.processId);
    } else if (!facts.clues.className.isEmpty()) {
        description.group = QStringLiteral("class:") + facts.clues.className;
    } else {
        description.group = QStringLiteral("window:%1").arg(window);
    }
    return description;
}

ApplicationWorkspace::Identity ApplicationWorkspace::identify(WindowId window,
                                                              const WindowSource::Facts& facts)
{
    if (facts.processId == QCoreApplication::applicationPid()) {
        const QString own = QGuiApplication::desktopFileName();
        const DesktopEntry* entry = m_entries.withId(own);
        return {.path = entry ? std::optional(entry->path) : std::nullopt,
                .identifier = own.isEmpty() ? std::nullopt : std::optional(own)};
    }
    const QString path = WindowMatching::pathFor(
        facts.clues, launchClues(window, facts), m_entries, [this, window, &facts] {
            // Before the entries are known, nothing can be told by a process.
            return m_hasEntries ? cluesOf(window, facts.processId) : ProcessClues();
        });
    return path.isEmpty() ? Identity() : identityAt(path);
}

LaunchClues ApplicationWorkspace::launchClues(WindowId window, const WindowSource::Facts& facts)
{
    LaunchClues clues{
        .program = m_started.value(window), .session = {}, .ownControlGroup = m_ownControlGroup};
    if (clues.program.isEmpty()) {
        clues.program = m_starter.pathOf(facts.processId, facts.clues.startupId);
    }
    if (!clues.program.isEmpty()) {
        // The process may end, or its number be given to another, before the window goes.
        m_started.insert(window, clues.program);
    } else if (facts.processId > 0) {
        clues.session = m_starter.pathOf(::getsid(static_cast<pid_t>(facts.processId)));
    }
    return clues;
}

ApplicationWorkspace::Identity ApplicationWorkspace::identityAt(const QString& path)
{
    if (const DesktopEntry* entry = m_entries.withPath(path)) {
        return {.path = entry->path, .identifier = entry->id};
    }
    const auto known = m_folders.constFind(path);
    if (known != m_folders.cend()) {
        return *known;
    }
    const std::optional<Bundle> bundle = m_fileManager.bundle(path);
    const Identity identity{.path = path, .identifier = bundle ? bundle->identifier : std::nullopt};
    m_folders.insert(path, identity);
    return identity;
}

const ProcessClues& ApplicationWorkspace::cluesOf(WindowId window, qint64 processId)
{
    Process& process = m_processes[window];
    if (process.id != processId) {
        process = {.id = processId, .clues = processClues(processId)};
    }
    return process.clues;
}

} // namespace Tavik
