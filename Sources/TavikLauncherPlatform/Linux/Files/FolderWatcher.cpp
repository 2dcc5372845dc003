// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Files/FolderWatcher.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QSet>

#include <utility>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

constexpr double settlingTime = 1.0;
constexpr double longestSettling = 5.0;
constexpr qsizetype maxWatches = 256;

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

QString childOf(const QString& folder, const QString& name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

/// Adds where a change can put another folder in the place of `folder`: what holds the links on the
/// way to it, and what holds the folder itself, or the part of the way that does not exist yet.
void addTurningPoints(const QString& folder, QStringList& points)
{
    constexpr int mostLinks = 40; // What the kernel follows.
    int links = 0;
    QString holder;
    QString reached = u"/"_s;
    QStringList ahead = folder.split(u'/', Qt::SkipEmptyParts);
    while (!ahead.isEmpty()) {
        holder = reached;
        const QFileInfo next(childOf(reached, ahead.takeFirst()));
        if (next.isSymLink() && ++links <= mostLinks) {
            points.append(holder);
            ahead = next.symLinkTarget().split(u'/', Qt::SkipEmptyParts) + ahead;
            reached = u"/"_s;
        } else if (next.isDir()) {
            reached = next.filePath();
        } else {
            break;
        }
    }
    points.append(holder);
}

/// The folders below that a walk would visit.
QStringList foldersBelow(const QString& folder)
{
    QStringList below;
    const QStringList names
        = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name);
    for (const QString& name : names) {
        if (!name.endsWith(".app"_L1)) {
            below.append(childOf(folder, name));
        }
    }
    return below;
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
        take(surveyOf(m_folders));
    }
}

void FolderWatcher::handleChange(const QString& directory)
{
    if (m_watches.value(directory).isInside) {
        m_sawChange = true;
    } else if (placesOf(m_folders) == m_places) {
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
        [folders = m_folders] { return surveyOf(folders); },
        [watcher = QPointer(this),
         sawChange = std::exchange(m_sawChange, false)](const Survey& survey) {
            if (!watcher) {
                return;
            }
            watcher->m_isSurveying = false;
            const bool areOthers = survey.places.folders != watcher->m_places.folders;
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

void FolderWatcher::take(const Survey& survey)
{
    const Watches& wanted = survey.watches;
    QStringList missing = wanted.keys();
    QStringList surplus;
    for (const QString& path : m_watcher->directories()) {
        // A watch holds on to the folder that was there when it was made.
        const auto found = wanted.constFind(path);
        if (found != wanted.cend() && found->identity == m_watches.value(path).identity) {
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
    m_places = survey.places;
    m_watches = wanted;
}

FolderWatcher::Identity FolderWatcher::identityOf(const QString& folder)
{
    struct stat status = {};
    const bool isFolder
        = ::stat(QFile::encodeName(folder).constData(), &status) == 0 && S_ISDIR(status.st_mode);
    return isFolder ? Identity(status.st_dev, status.st_ino) : Identity();
}

FolderWatcher::Places FolderWatcher::placesOf(const QStringList& folders)
{
    Places places;
    for (const QString& folder : folders) {
        places.folders.append(identityOf(folder));
        addTurningPoints(folder, places.turningPoints);
    }
    return places;
}

FolderWatcher::Survey FolderWatcher::surveyOf(const QStringList& folders)
{
    Survey survey{.places = placesOf(folders), .watches = {}};
    Watches& watches = survey.watches;
    QSet<Identity> known{Identity()};
    const auto add = [&watches, &known](const QString& path, bool isInside) {
        // Under two paths the kernel would still report a folder's changes under one only.
        const Identity identity = identityOf(path);
        if (known.contains(identity)) {
            return false;
        }
        known.insert(identity);
        watches.insert(path, {.identity = identity, .isInside = isInside});
        return true;
    };
    for (QStringList level = folders; !level.isEmpty();) {
        QStringList below;
        for (const QString& folder : std::as_const(level)) {
            if (watches.size() < maxWatches && add(folder, true)) {
                below.append(foldersBelow(folder));
            }
        }
        level = std::move(below);
    }
    for (const QString& folder : std::as_const(survey.places.turningPoints)) {
        add(folder, false);
    }
    return survey;
}

} // namespace Tavik
