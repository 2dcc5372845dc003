// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/FolderWatcher.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QPointer>

#include <utility>

#include <sys/inotify.h>
#include <unistd.h>

namespace Tavik {

namespace {

constexpr double settlingTime = 1.0;
constexpr double longestSettling = 5.0;

/// The toolkit would poll every second where the kernel grants no notifications.
bool hasKernelNotifications()
{
    const int descriptor = ::inotify_init1(IN_CLOEXEC);
    if (descriptor < 0) {
        return false;
    }
    ::close(descriptor);
    return true;
}

} // namespace

FolderWatcher::FolderWatcher(MainQueue& mainQueue, WorkQueue& workQueue, QStringList folders)
    : m_mainQueue(mainQueue)
    , m_workQueue(workQueue)
    , m_folders(std::move(folders))
{
    m_folders.removeIf([](const QString& folder) { return !folder.startsWith(u'/'); });
    if (hasKernelNotifications()) {
        m_watcher = std::make_unique<QFileSystemWatcher>();
        connect(m_watcher.get(),
                &QFileSystemWatcher::directoryChanged,
                this,
                &FolderWatcher::handleChange);
        take(FolderSurvey::of(m_folders));
    }
}

void FolderWatcher::handleChange(const QString& directory)
{
    if (m_survey.watches.value(directory).isInside) {
        m_sawChange = true;
    } else if (FolderSurvey::placesOf(m_folders) == m_survey.places) {
        // Something else in a parent folder, which may be as busy as the home folder.
        return;
    }
    const double now = m_mainQueue.systemUptime();
    m_unsettledSince = m_unsettledSince.value_or(now);
    if (!m_settling.isActive() || now - *m_unsettledSince < longestSettling - settlingTime) {
        m_settling = m_mainQueue.after(settlingTime, [this] { settle(); });
    }
}

void FolderWatcher::settle()
{
    m_unsettledSince.reset();
    if (m_isSurveying) {
        m_mustSurveyAgain = true;
        return;
    }
    m_isSurveying = true;
    m_workQueue.run(
        WorkPriority::userInitiated,
        [folders = m_folders] { return FolderSurvey::of(folders); },
        [watcher = QPointer(this),
         sawChange = std::exchange(m_sawChange, false)](const FolderSurvey& survey) {
            if (!watcher) {
                return;
            }
            watcher->m_isSurveying = false;
            const bool areOthers = survey.places.folders != watcher->m_survey.places.folders;
            // The watches come first: what changes from here on is noticed, what came before is
            // found by whoever looks after this report.
            watcher->take(survey);
            if (sawChange || areOthers) {
                Q_EMIT watcher->changed();
            }
            if (std::exchange(watcher->m_mustSurveyAgain, false)) {
                watcher->settle();
            }
        });
}

void FolderWatcher::take(const FolderSurvey& survey)
{
    const auto& wanted = survey.watches;
    QStringList missing = wanted.keys();
    QStringList surplus;
    for (const QString& path : m_watcher->directories()) {
        // A watch holds on to the folder that was there when it was made.
        const auto found = wanted.constFind(path);
        if (found != wanted.cend() && found->identity == m_survey.watches.value(path).identity) {
            missing.removeOne(path);
        } else {
            surplus.append(path);
        }
    }
    if (!surplus.isEmpty()) {
        m_watcher->removePaths(surplus);
    }
    if (!missing.isEmpty()) {
        m_watcher->addPaths(missing);
    }
    m_survey = survey;
}

} // namespace Tavik
