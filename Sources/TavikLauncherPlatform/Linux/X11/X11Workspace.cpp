// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>
#include <TavikLauncherPlatform/Linux/Applications/WindowMatching.h>
#include <TavikLauncherPlatform/Linux/X11/X11Workspace.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>

#include <algorithm>
#include <signal.h>
#include <utility>

#include <unistd.h>

namespace Tavik {

namespace {

/// A window of an application that was installed a moment ago makes us look again, but not more
/// often than this.
constexpr double entriesReadInterval = 5.0;

bool isAlive(qint64 processId)
{
    return kill(static_cast<pid_t>(processId), 0) == 0 || errno == EPERM;
}

/// Reads the disk, so it runs off the main thread.
LaunchResult launch(const FileManager& fileManager, LaunchRequest request)
{
    if (request.path.endsWith(QLatin1String(".app"))) {
        const std::optional<Bundle> bundle = fileManager.bundle(request.path);
        request.executable = bundle ? bundle->executable : std::nullopt;
    }
    return launchApplication(request);
}

} // namespace

X11Workspace::X11Workspace(MainQueue& mainQueue, WorkQueue& workQueue, FileManager& fileManager)
    : m_mainQueue(mainQueue)
    , m_workQueue(workQueue)
    , m_fileManager(fileManager)
    , m_windows(mainQueue)
    , m_sleep(workQueue, [this] { m_center.post(willSleep); })
{
    m_windows.onWindowsChanged = [this] {
        updateApplications();
        updateFrontmost();
    };
    m_windows.onActiveWindowChanged = [this] {
        updateFrontmost();
    };
    updateApplications();
    m_frontmost = frontmostIdentity();
    // Before the first reading, so that nothing changes unseen between the two.
    m_watch = m_fileManager.watch(m_fileManager.applicationFolders(), [this] { readEntries(); });
    readEntries();
}

QList<RunningApplication> X11Workspace::runningApplications() const
{
    return m_applications.applications();
}

std::optional<RunningApplication> X11Workspace::frontmostApplication() const
{
    return m_applications.applicationOf(m_windows.activeWindow());
}

std::optional<QString> X11Workspace::pathForApplication(const QString& bundleIdentifier) const
{
    const DesktopEntry* entry = m_entries.withId(bundleIdentifier);
    return entry ? std::optional(entry->path) : std::nullopt;
}

void X11Workspace::openApplication(const QString& path,
                                   OpenConfiguration configuration,
                                   OpenCompletion completion)
{
    const QList<xcb_window_t> windows = m_applications.windowsOf(path);
    if (!windows.isEmpty()) {
        if (configuration.activates) {
            m_windows.activate(m_windows.mostRecent(windows));
        }
        m_mainQueue.post([completion = std::move(completion)] { completion(std::nullopt); });
        return;
    }
    LaunchRequest request{.path = path, .executable = {}, .startupId = {}};
    if (configuration.activates) {
        request.startupId = "tavik-launcher-"
            + QByteArray::number(QCoreApplication::applicationPid()) + '-'
            + QByteArray::number(++m_launches) + "_TIME"
            + QByteArray::number(m_windows.serverTime());
    }
    m_workQueue.run(
        WorkPriority::launch,
        [&fileManager = m_fileManager, request] { return launch(fileManager, request); },
        [self = QPointer<X11Workspace>(this), path, completion = std::move(completion)](
            const LaunchResult& result) {
            if (self) {
                self->rememberLaunch(path, result);
            }
            completion(result.error);
        });
}

void X11Workspace::readEntries()
{
    if (m_isReading) {
        m_mustReadAgain = true;
        return;
    }
    m_isReading = true;
    m_lastRead = m_mainQueue.systemUptime();
    // The folders are copied: the file manager may be gone before the work is.
    m_workQueue.run(
        WorkPriority::userInitiated,
        [folders = m_fileManager.applicationFolders()] { return DesktopEntries::read(folders); },
        [self = QPointer<X11Workspace>(this)](const DesktopEntries& entries) {
            if (self) {
                self->takeEntries(entries);
            }
        });
}

void X11Workspace::takeEntries(const DesktopEntries& entries)
{
    m_isReading = false;
    const bool isFirst = !std::exchange(m_hasEntries, true);
    if (isFirst || entries != m_entries) {
        m_entries = entries;
        // What was there before the entries were read is no reason to read them again.
        m_seen = {m_windows.windows().begin(), m_windows.windows().end()};
        updateApplications();
        if (isFirst) {
            // It has the focus since before the start: nobody has switched to it.
            m_frontmost = frontmostIdentity();
        }
        updateFrontmost();
    }
    if (std::exchange(m_mustReadAgain, false)) {
        readEntries();
    }
}

void X11Workspace::updateApplications()
{
    QList<ApplicationWindow> windows;
    bool metUnknown = false;
    for (const xcb_window_t window : m_windows.windows()) {
        const ApplicationWindow description = describe(window);
        if (m_hasEntries && !m_seen.contains(window)) {
            m_seen.insert(window);
            metUnknown |= !description.bundlePath && description.isRegular;
        }
        windows.append(description);
    }
    const QSet<xcb_window_t> existing(m_windows.windows().begin(), m_windows.windows().end());
    m_seen.intersect(existing);
    m_processes.removeIf([&](auto process) { return !existing.contains(process.key()); });
    const RunningApplicationList::Changes changes = m_applications.setWindows(windows);
    if (!changes.terminated.isEmpty()) {
        // Process numbers are used again.
        m_launched.removeIf([](auto launch) { return !isAlive(launch.key()); });
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

void X11Workspace::updateFrontmost()
{
    const QString identity = frontmostIdentity();
    if (identity.isEmpty() && m_windows.activeWindow() != XCB_NONE) {
        return; // A new window; some window managers make it active before they list it.
    }
    if (std::exchange(m_frontmost, identity) != identity && !identity.isEmpty()) {
        m_center.post(didActivateApplication,
                      frontmostApplication()->bundlePath.value_or(QString()));
    }
}

/// Tells one application from another, also when it has no bundle; empty when none has the focus.
QString X11Workspace::frontmostIdentity() const
{
    const std::optional<RunningApplication> application = frontmostApplication();
    return application
        ? application->bundlePath.value_or(QStringLiteral("pid:%1").arg(application->processId))
        : QString();
}

ApplicationWindow X11Workspace::describe(xcb_window_t window)
{
    const X11WindowFacts& facts = m_windows.facts(window);
    ApplicationWindow description{.window = window,
                                  .isRegular = facts.isOnTaskbar,
                                  .group = {},
                                  .bundlePath = {},
                                  .bundleIdentifier = {},
                                  .processId = facts.processId};
    const Identity identity = identify(window, facts);
    description.bundlePath = identity.path;
    description.bundleIdentifier = identity.identifier;
    if (identity.path) {
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

X11Workspace::Identity X11Workspace::identify(xcb_window_t window, const X11WindowFacts& facts)
{
    if (facts.processId == QCoreApplication::applicationPid()) {
        const QString own = QGuiApplication::desktopFileName();
        const DesktopEntry* entry = own.isEmpty() ? nullptr : m_entries.withId(own);
        return entry
            ? identityOf(*entry)
            : Identity{.path = {}, .identifier = own.isEmpty() ? std::nullopt : std::optional(own)};
    }
    if (const auto launched = m_launched.constFind(facts.processId);
        launched != m_launched.cend()) {
        return identityAt(*launched);
    }
    if (const DesktopEntry* entry = WindowMatching::entryFor(facts.clues, m_entries)) {
        return identityOf(*entry);
    }
    if (!m_hasEntries || facts.processId <= 0) {
        return {};
    }
    const ProcessClues& process = cluesOf(window, facts.processId);
    if (const auto folder = WindowMatching::applicationFolderOf(process.executable)) {
        return identityAt(*folder);
    }
    if (const DesktopEntry* entry = WindowMatching::entryFor(process, m_entries)) {
        return identityOf(*entry);
    }
    // A program that an `.app` folder's own program has started stays in the session we gave it.
    const auto session = m_launched.constFind(getsid(static_cast<pid_t>(facts.processId)));
    if (session != m_launched.cend() && session->endsWith(QLatin1String(".app"))) {
        return identityAt(*session);
    }
    return {};
}

X11Workspace::Identity X11Workspace::identityOf(const DesktopEntry& entry) const
{
    return {.path = entry.path, .identifier = entry.id};
}

X11Workspace::Identity X11Workspace::identityAt(const QString& path)
{
    if (const DesktopEntry* entry = m_entries.withPath(path)) {
        return identityOf(*entry);
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

const ProcessClues& X11Workspace::cluesOf(xcb_window_t window, qint64 processId)
{
    Process& process = m_processes[window];
    if (process.id != processId) {
        process = {.id = processId, .clues = processClues(processId)};
    }
    return process.clues;
}

void X11Workspace::rememberLaunch(const QString& path, const LaunchResult& result)
{
    if (result.error || result.processId <= 0) {
        return;
    }
    m_launched.insert(result.processId, path);
}

} // namespace Tavik
