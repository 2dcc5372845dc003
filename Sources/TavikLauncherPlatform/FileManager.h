// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

/// One entry met while a folder is walked, described without following links.
struct DirectoryItem
{
    QString path;
    bool isSymbolicLink = false;
    /// A program of one file: named ".AppImage", whatever the case, or a file that may be executed
    /// and says so itself.
    bool isImage = false;
    /// The user id that owns the item itself, absent when it could not be queried.
    std::optional<unsigned> ownerId;
};

/// What an application bundle says of itself. Three kinds exist: an `.app` folder with its
/// `Info.plist`, a desktop entry, and an AppImage, a program of one file.
struct Bundle
{
    enum class Kind {
        applicationFolder,
        desktopEntry,
        image,
    };
    Kind kind = Kind::applicationFolder;
    std::optional<QString> displayName; ///< "CFBundleDisplayName"; absent for desktop entries.
    std::optional<QString> name; ///< "CFBundleName", or the entry's localized `Name`.
    std::optional<QString>
        identifier; ///< Bundle identifier, or the desktop-file ID without ".desktop".
    /// What people may call it besides: untranslated and generic name, keywords, program. One on
    /// each line.
    QString otherNames;
    QString iconSource; ///< As in AppIcon.
    /// Absolute path of the program that is started; of a desktop entry's only if it lies in an
    /// application folder, where it may be an AppImage.
    std::optional<QString> executable;
    bool isHidden = false; ///< The entry asks not to be shown here (NoDisplay, Hidden, TryExec, …).
    /// What it starts is not installed; with nothing written to the entry, it may be later.
    bool lacksProgram = false;
};

/// Watches folders, also ones that do not exist yet, and everything below them. Stops when
/// destroyed. Main thread only.
class FolderWatch
{
public:
    virtual ~FolderWatch() = default;
};

/// The file system as the catalog needs it. Every const operation may run on any thread.
class FileManager
{
public:
    virtual ~FileManager() = default;

    [[nodiscard]] virtual bool fileExists(const QString& path) const = 0;
    /// True for an existing directory that ends in ".app", for an existing file that ends in
    /// ".desktop", and for an AppImage under any name.
    [[nodiscard]] virtual bool isApplicationBundle(const QString& path) const = 0;
    using Visit = std::function<void(const DirectoryItem&)>;
    /// Visits every item below `folder`, depth first and sorted by name, skipping hidden entries,
    /// unreadable sub-folders and the inside of packages. A cycle of links is visited at most once.
    virtual void enumerate(const QString& folder, const Visit& visit) const = 0;
    /// Visits the item at `path`, if there is one, then what is below it as `enumerate` does. The
    /// walk that meets `path` is the caller's to know.
    virtual void enumerateFrom(const QString& path, const Visit& visit) const = 0;
    /// Opens the bundle at `path`; absent when it cannot be read or is damaged.
    [[nodiscard]] virtual std::optional<Bundle> bundle(const QString& path) const = 0;
    [[nodiscard]] virtual unsigned userId() const = 0;

    /// In bytes, as the file system has it; absent when nothing is at `path`.
    [[nodiscard]] virtual std::optional<qint64> fileSize(const QString& path) const = 0;
    /// The content of the regular file at `path`; absent when there is none, when it cannot be read
    /// or when it is larger than `maxBytes`.
    [[nodiscard]] virtual std::optional<QByteArray> readFile(const QString& path,
                                                             qint64 maxBytes) const = 0;
    /// Makes or replaces the file at `path`: as a whole and on disk, or not at all. Replaces no
    /// link, folder or device. The error's description, or nothing when it was done.
    [[nodiscard]] virtual std::optional<QString>
    writeFileAtomically(const QString& path, const QByteArray& contents) const = 0;

    /// Appends to the file at `path` if it is a regular one of the user's own, and otherwise puts a
    /// new file in the place of what is there. Follows no link, so it is fit for folders in which
    /// others may plant one. The error's description, or nothing when it was done.
    [[nodiscard]] virtual std::optional<QString> appendToFile(const QString& path,
                                                              const QByteArray& contents) const = 0;

    /// The folders that hold installed applications, the most important first.
    [[nodiscard]] virtual QStringList applicationFolders() const = 0;

    struct FolderResult
    {
        QString path; ///< Empty on failure.
        QString error; ///< Why, in the system's words.
    };
    /// The user's Application Support folder, created if it does not exist.
    [[nodiscard]] virtual FolderResult applicationSupportFolder() const = 0;

    /// The paths of what has changed; none means that it may be anything.
    using FoldersChanged = std::function<void(const QStringList& paths)>;
    /// Calls `changed` on the main thread when something below `folders` changes, is written to or
    /// goes; bursts of changes are reported once they have settled.
    [[nodiscard]] virtual std::unique_ptr<FolderWatch> watch(const QStringList& folders,
                                                             FoldersChanged changed)
        = 0;
};

} // namespace Tavik
