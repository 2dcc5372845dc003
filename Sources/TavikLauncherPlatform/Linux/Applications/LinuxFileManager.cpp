// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationFolder.h>
#include <TavikLauncherPlatform/Linux/Applications/DirectoryNames.h>
#include <TavikLauncherPlatform/Linux/Applications/FolderWatcher.h>
#include <TavikLauncherPlatform/Linux/Applications/LinuxFileManager.h>
#include <TavikLauncherPlatform/Linux/Disk/AppImageFile.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>
#include <TavikLauncherPlatform/Linux/Disk/LogFile.h>
#include <TavikLauncherPlatform/Linux/Disk/ReplaceFile.h>
#include <TavikLauncherPlatform/WalkOrder.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringBuilder>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

/// One of those that a watcher tells of changes.
class Listener final : public QObject, public FolderWatch
{ };

/// What an application at `path` would be; absent for what is none by its name or first bytes.
std::optional<Bundle::Kind> kindOf(const QString& path)
{
    if (path.endsWith(".app"_L1)) {
        return Bundle::Kind::applicationFolder;
    }
    if (path.endsWith(".desktop"_L1)) {
        return Bundle::Kind::desktopEntry;
    }
    return AppImageFile::isImage(path) ? std::optional(Bundle::Kind::image) : std::nullopt;
}

/// The same for what a walk meets: without the name for it, only what may be executed is opened.
bool isImage(const QString& path, mode_t mode)
{
    constexpr mode_t anybody = S_IXUSR | S_IXGRP | S_IXOTH;
    return AppImageFile::isNamedSo(path)
        || (S_ISREG(mode) && (mode & anybody) != 0 && kindOf(path) == Bundle::Kind::image);
}

bool isEntry(const DirectoryItem& item)
{
    return item.isImage || item.path.endsWith(".desktop"_L1);
}

void walkFrom(const QString& path, const FileManager::Visit& visit);

void walk(const QString& folder, const FileManager::Visit& visit)
{
    for (const QString& name : DirectoryNames::all(folder)) {
        walkFrom(folder % u'/' % name, visit); // In no more memory than it needs.
    }
}

void walkFrom(const QString& path, const FileManager::Visit& visit)
{
    struct stat status = {};
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0) {
        if (errno != ENOENT && errno != ENOTDIR) {
            visit({.path = path, .isSymbolicLink = false, .ownerId = {}});
        }
        return;
    }
    const bool isPackage = path.endsWith(".app"_L1);
    // What is called a package, but is a pipe, a device or an ordinary file, is none.
    if (isPackage && !QFileInfo(path).isDir()) {
        return;
    }
    visit({.path = path,
           .isSymbolicLink = S_ISLNK(status.st_mode),
           .isImage = isImage(path, status.st_mode),
           .ownerId = status.st_uid});
    // Links are never descended into, so no cycle can form.
    if (S_ISDIR(status.st_mode) && !isPackage) {
        walk(path, visit);
    }
}

/// Where programs of one file are kept among much else.
QStringList imageFolders()
{
    return {QDir::homePath() + "/AppImages"_L1, QDir::homePath() + "/.local/bin"_L1};
}

/// `visit`, but below the folders for images for nothing else.
FileManager::Visit onlyImages(const QString& path, const FileManager::Visit& visit)
{
    const QStringList folders = imageFolders();
    const bool isAmongThem = std::ranges::any_of(folders, [&path](const QString& folder) {
        return path == folder || path.startsWith(folder + u'/');
    });
    if (!isAmongThem) {
        return visit;
    }
    return [visit](const DirectoryItem& item) {
        if (item.isImage) {
            visit(item);
        }
    };
}

} // namespace

LinuxFileManager::LinuxFileManager(MainQueue& mainQueue,
                                   WorkQueue& workQueue,
                                   QStringList applicationFolders)
    : m_mainQueue(mainQueue)
    , m_workQueue(workQueue)
    , m_applicationFolders(std::move(applicationFolders))
    , m_supportFolder(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
{ }

LinuxFileManager::~LinuxFileManager() = default;

QStringList LinuxFileManager::sessionApplicationFolders()
{
    QStringList folders{
        u"/Applications"_s, u"/System/Applications"_s, QDir::homePath() + "/Applications"_L1};
    for (const QString& data :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        folders.append(data + "/applications"_L1);
    }
    folders += imageFolders();
    folders.removeDuplicates();
    return folders;
}

bool LinuxFileManager::fileExists(const QString& path) const
{
    return !path.isEmpty() && QFileInfo::exists(path);
}

bool LinuxFileManager::isApplicationBundle(const QString& path) const
{
    const QFileInfo info(path);
    const std::optional<Bundle::Kind> kind = kindOf(path);
    return kind == Bundle::Kind::applicationFolder ? info.isDir() : kind && info.isFile();
}

void LinuxFileManager::enumerate(const QString& folder, const Visit& visit) const
{
    walk(folder, onlyImages(folder, visit));
}

void LinuxFileManager::enumerateFrom(const QString& path, const Visit& visit) const
{
    walkFrom(path, onlyImages(path, visit));
}

std::optional<Bundle> LinuxFileManager::bundle(const QString& path) const
{
    std::optional<Bundle> bundle = contentOfBundle(path);
    if (bundle && bundle->kind == Bundle::Kind::applicationFolder) {
        bundle->iconSource = path;
    }
    return bundle;
}

QString LinuxFileManager::iconSource(const QString& path) const
{
    if (!path.startsWith(u'/') || !isApplicationBundle(path)) {
        return path;
    }
    const std::optional<Bundle::Kind> kind = kindOf(path);
    if (kind == Bundle::Kind::applicationFolder) {
        const std::optional<Bundle> found = contentOfBundle(path);
        return found ? found->iconSource : QString();
    }
    const QString file
        = kind == Bundle::Kind::image ? m_entries.images().iconFile(path) : QString();
    return file.isEmpty() ? entry(path)->icon.toString() : file;
}

std::optional<Bundle> LinuxFileManager::contentOfBundle(const QString& path) const
{
    const std::optional<Bundle::Kind> kind = kindOf(path);
    if (kind == Bundle::Kind::applicationFolder) {
        return ApplicationFolder::read(path);
    }
    const QFileInfo info(path);
    if (kind == Bundle::Kind::image) {
        const SharedDesktopEntry image = info.isFile() ? entry(path) : nullptr;
        if (!image || !image->isApplication) {
            return std::nullopt;
        }
        Bundle bundle = DesktopEntryFile::bundle(*image);
        bundle.kind = Bundle::Kind::image;
        bundle.executable = path;
        // That it may not be executed is said to who starts it.
        bundle.isHidden = false;
        bundle.lacksProgram = false;
        return bundle;
    }
    // A link to the null device or to nothing is a usual way of hiding an entry.
    const bool isThere = kind && !info.isDir() && (info.exists() || info.isSymLink());
    if (!isThere) {
        return std::nullopt;
    }
    Bundle bundle = DesktopEntryFile::bundle(*entry(path));
    if (bundle.executable && !isInApplicationFolder(*bundle.executable)) {
        bundle.executable.reset();
    }
    return bundle;
}

SharedDesktopEntry LinuxFileManager::entry(const QString& path) const
{
    return m_entries.read(path, desktopFileIdentifier(path));
}

DesktopEntries LinuxFileManager::desktopEntries() const
{
    const WalkOrder order(m_applicationFolders);
    QList<SharedDesktopEntry> entries;
    for (qsizetype folder = 0; folder < m_applicationFolders.size(); ++folder) {
        enumerate(m_applicationFolders.at(folder), [&](const DirectoryItem& item) {
            if (isEntry(item) && order.folderOf(item.path) == folder) {
                entries.append(entry(item.path));
            }
        });
    }
    entries.squeeze();
    m_entries.keepOnly(entries);
    return DesktopEntries(std::move(entries));
}

DesktopEntries LinuxFileManager::desktopEntries(const DesktopEntries& entries,
                                                const QStringList& paths) const
{
    const WalkOrder order(m_applicationFolders);
    const auto pathOf = [](const SharedDesktopEntry& entry) -> const QString& {
        return entry->path;
    };
    QList<SharedDesktopEntry> all = entries.all();
    for (const QString& path : paths) {
        if (!order.folderOf(path)) {
            continue;
        }
        order.takeBelow(all, path, pathOf);
        enumerateFrom(path, [&](const DirectoryItem& item) {
            if (isEntry(item)) {
                order.insert(all, entry(item.path), pathOf);
            }
        });
    }
    return DesktopEntries(std::move(all));
}

LaunchTarget LinuxFileManager::launchTarget(const QString& path) const
{
    if (kindOf(path).value_or(Bundle::Kind::applicationFolder) != Bundle::Kind::applicationFolder) {
        return {.path = path, .entry = *entry(path), .program = {}};
    }
    const std::optional<Bundle> found = bundle(path);
    return {.path = path, .entry = {}, .program = found ? found->executable : std::nullopt};
}

unsigned LinuxFileManager::userId() const
{
    return ::getuid();
}

std::optional<qint64> LinuxFileManager::fileSize(const QString& path) const
{
    const QFileInfo info(path);
    return info.exists() ? std::optional(info.size()) : std::nullopt;
}

std::optional<QByteArray> LinuxFileManager::readFile(const QString& path, qint64 maxBytes) const
{
    return BoundedFile::read(path, maxBytes);
}

std::optional<QString> LinuxFileManager::writeFileAtomically(const QString& path,
                                                             const QByteArray& contents) const
{
    const QFileInfo existing(path);
    if (existing.isSymLink()) {
        return u"%1 is a symbolic link"_s.arg(path);
    }
    constexpr auto ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    return replaceFile(path, contents, existing.exists() ? existing.permissions() : ownerOnly);
}

std::optional<QString> LinuxFileManager::appendToFile(const QString& path,
                                                      const QByteArray& contents) const
{
    return LogFile::append(path, contents);
}

FileManager::FolderResult LinuxFileManager::applicationSupportFolder() const
{
    std::error_code error;
    std::filesystem::create_directories(m_supportFolder.toStdU16String(), error);
    if (error) {
        return {.path = {}, .error = QString::fromStdString(error.message())};
    }
    return {.path = m_supportFolder, .error = {}};
}

std::unique_ptr<FolderWatch> LinuxFileManager::watch(const QStringList& folders,
                                                     FoldersChanged changed)
{
    std::unique_ptr<FolderWatcher>& watcher = m_watchers[folders];
    if (!watcher) {
        watcher = std::make_unique<FolderWatcher>(m_mainQueue, m_workQueue, folders);
    }
    auto listener = std::make_unique<Listener>();
    QObject::connect(watcher.get(), &FolderWatcher::changed, listener.get(), std::move(changed));
    return listener;
}

bool LinuxFileManager::isInApplicationFolder(const QString& path) const
{
    return std::ranges::any_of(m_applicationFolders, [&path](const QString& folder) {
        return path.startsWith(folder + u'/');
    });
}

/// The path below the applications folder that holds the entry, with '-' for every '/'.
QString LinuxFileManager::desktopFileIdentifier(const QString& path) const
{
    if (!path.endsWith(".desktop"_L1)) {
        return QFileInfo(path).fileName();
    }
    QString folder = QFileInfo(path).path();
    for (const QString& candidate : m_applicationFolders) {
        if (path.startsWith(candidate + u'/')) {
            folder = candidate;
            break;
        }
    }
    constexpr qsizetype endingLength = ".desktop"_L1.size();
    return path.mid(folder.size() + 1).chopped(endingLength).replace(u'/', u'-');
}

} // namespace Tavik
