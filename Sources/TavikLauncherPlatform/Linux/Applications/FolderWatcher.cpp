// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/FolderWatcher.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QPointer>

#include <utility>

namespace Tavik {

namespace {

constexpr double settlingTime = 1.0;
constexpr double longestSettling = 5.0;
/// For more, one walk costs less than a look for each.
constexpr qsizetype maxPaths = 64;

} // namespace

FolderWatcher::FolderWatcher(MainQueue& mainQueue, WorkQueue& workQueue, QStringList folders)
    : m_mainQueue(mainQueue)
    , m_workQueue(workQueue)
    , m_folders(std::move(folders))
{
    m_folders.removeIf([](const QString& folder) { return !folder.startsWith(u'/'); });
    if (m_notifications.isWorking()) {
        connect(
            &m_notifications, &FolderNotifications::changed, this, &FolderWatcher::handleChange);
        take(FolderSurvey::of(m_folders));
    }
}

void FolderWatcher::handleChange(const QString& folder, const QString& name, bool isFolder)
{
    if (folder.isEmpty() || m_survey.watches.value(folder).isInside) {
        if (name.startsWith(u'.')) {
            return; // No walk looks at it.
        }
        const QString path = name.isEmpty() ? folder : folder + u'/' + name;
        m_changed.insert(m_folders.contains(path) ? QString() : path);
        m_mustSurvey |= isFolder;
    } else if (FolderSurvey::placesOf(m_folders) == m_survey.places) {
        // Something else in a parent folder, which may be as busy as the home folder.
        return;
    } else {
        m_mustSurvey = true;
    }
    const double now = m_mainQueue.systemUptime();
    m_unsettledSince = m_unsettledSince.value_or(now);
    if (!m_settling.isActive() || now - *m_unsettledSince < longestSettling - settlingTime) {
        m_settling = m_mainQueue.after(settlingTime, [this] { handleSettled(); });
    }
}

void FolderWatcher::handleSettled()
{
    m_unsettledSince.reset();
    if (m_isSurveying) {
        return; // Until it is done.
    }
    if (std::exchange(m_mustSurvey, false)) {
        survey();
    } else {
        report(std::exchange(m_changed, {}));
    }
}

void FolderWatcher::survey()
{
    m_isSurveying = true;
    m_workQueue.run(
        WorkPriority::userInitiated,
        [folders = m_folders] { return FolderSurvey::of(folders); },
        [watcher = QPointer(this),
         changed = std::exchange(m_changed, {})](const FolderSurvey& found) {
            if (!watcher) {
                return;
            }
            watcher->m_isSurveying = false;
            const bool areOthers = found.places.folders != watcher->m_survey.places.folders;
            // The watches come first: what changes from here on is noticed, what came before is
            // found by whoever looks after this report.
            watcher->take(found);
            watcher->report(areOthers ? QSet{QString()} : changed);
            if (!watcher->m_settling.isActive()) {
                watcher->handleSettled();
            }
        });
}

void FolderWatcher::report(const QSet<QString>& changed)
{
    if (changed.contains(QString()) || changed.size() > maxPaths) {
        Q_EMIT this->changed({});
        return;
    }
    QStringList paths(changed.cbegin(), changed.cend());
    for (const QString& path : changed) {
        paths += m_survey.otherPathsOf(path);
    }
    if (!paths.isEmpty()) {
        Q_EMIT this->changed(paths);
    }
}

void FolderWatcher::take(const FolderSurvey& survey)
{
    const auto& wanted = survey.watches;
    QSet<QString> kept;
    for (const QString& path : m_notifications.folders()) {
        // A watch holds on to the folder that was there when it was made.
        const auto found = wanted.constFind(path);
        const FolderSurvey::Watched known = m_survey.watches.value(path);
        if (found != wanted.cend() && found->identity == known.identity
            && found->isInside == known.isInside) {
            kept.insert(path);
        } else {
            m_notifications.remove(path);
        }
    }
    using Interest = FolderNotifications::Interest;
    for (auto watched = wanted.cbegin(); watched != wanted.cend(); ++watched) {
        if (!kept.contains(watched.key())) {
            m_notifications.add(watched.key(),
                                watched->isInside ? Interest::contents : Interest::names);
        }
    }
    m_survey = survey;
}

} // namespace Tavik
