// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Files/FolderWatcher.h>

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <utility>

#include <sys/inotify.h>
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

QString nearestExisting(QString folder)
{
    while (folder.size() > 1 && !QFileInfo(folder).isDir()) {
        folder = folder.first(std::max<qsizetype>(folder.lastIndexOf(u'/'), 1));
    }
    return folder;
}

/// Adds `folder` and what a walk would visit below it, the upper levels first.
void collect(const QString& folder, QStringList& watched)
{
    QStringList level{folder};
    while (!level.isEmpty() && watched.size() < maxWatches) {
        QStringList below;
        for (const QString& directory :
             level.first(std::min(level.size(), maxWatches - watched.size()))) {
            watched.append(directory);
            const QStringList names = QDir(directory).entryList(
                QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name);
            for (const QString& name : names) {
                if (!name.endsWith(".app"_L1)) {
                    below.append(directory + u'/' + name);
                }
            }
        }
        level = std::move(below);
    }
}

} // namespace

FolderWatcher::FolderWatcher(MainQueue& mainQueue,
                             QStringList folders,
                             std::function<void()> changed)
    : m_mainQueue(mainQueue)
    , m_folders(std::move(folders))
    , m_changed(std::move(changed))
{
    m_folders.removeIf([](const QString& folder) { return !folder.startsWith(u'/'); });
    if (hasKernelNotifications()) {
        m_watcher = std::make_unique<QFileSystemWatcher>();
        connect(m_watcher.get(),
                &QFileSystemWatcher::directoryChanged,
                this,
                &FolderWatcher::handleChange);
        updateWatches();
    }
}

void FolderWatcher::handleChange(const QString& directory)
{
    if (isInside(directory)) {
        m_sawChange = true;
    } else if (anchors() == m_anchors) {
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
    const QStringList before = m_existing;
    // The watches come first: what changes from here on is noticed, what came before is found by
    // whoever looks after this report.
    updateWatches();
    if (std::exchange(m_sawChange, false) || m_existing != before) {
        m_changed();
    }
}

void FolderWatcher::updateWatches()
{
    m_anchors = anchors();
    m_existing = existingFolders();
    QStringList wanted;
    for (const QString& folder : std::as_const(m_existing)) {
        collect(folder, wanted);
    }
    wanted.append(m_anchors);
    wanted.removeDuplicates();

    const QStringList watched = m_watcher->directories();
    const QSet<QString> wantedSet(wanted.cbegin(), wanted.cend());
    const QSet<QString> watchedSet(watched.cbegin(), watched.cend());
    const QSet<QString> surplus = watchedSet - wantedSet;
    const QSet<QString> missing = wantedSet - watchedSet;
    if (!surplus.isEmpty()) {
        m_watcher->removePaths(surplus.values());
    }
    if (!missing.isEmpty()) {
        m_watcher->addPaths(missing.values());
    }
}

QStringList FolderWatcher::anchors() const
{
    QStringList anchors;
    std::ranges::transform(m_folders, std::back_inserter(anchors), nearestExisting);
    return anchors;
}

QStringList FolderWatcher::existingFolders() const
{
    QStringList existing;
    std::ranges::copy_if(m_folders, std::back_inserter(existing), [](const QString& folder) {
        return QFileInfo(folder).isDir();
    });
    return existing;
}

bool FolderWatcher::isInside(const QString& directory) const
{
    return std::ranges::any_of(m_existing, [&directory](const QString& folder) {
        return directory == folder || directory.startsWith(folder + u'/');
    });
}

} // namespace Tavik
