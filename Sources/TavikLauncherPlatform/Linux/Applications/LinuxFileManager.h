// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntries.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntryCache.h>

#include <map>

namespace Tavik {

class FolderWatcher;
class MainQueue;
class WorkQueue;

/// The file system of a freedesktop system: applications are `.app` folders, desktop entries and
/// AppImages.
/// The folders are settled when it is created, so the environment is not read again.
class LinuxFileManager final : public FileManager
{
public:
    /// `applicationFolders` are this session's unless the caller has others.
    LinuxFileManager(MainQueue& mainQueue,
                     WorkQueue& workQueue,
                     QStringList applicationFolders = sessionApplicationFolders());
    ~LinuxFileManager() override;

    /// The `.app` folders' three places, then `applications` in the user's and the system's data
    /// folders, the most important first; last where else people keep AppImages, and only these
    /// are met there.
    [[nodiscard]] static QStringList sessionApplicationFolders();

    [[nodiscard]] bool fileExists(const QString& path) const override;
    [[nodiscard]] bool isApplicationBundle(const QString& path) const override;
    /// Follows a link only when it is `folder` itself. Items come sorted by name, folder by folder.
    void enumerate(const QString& folder, const Visit& visit) const override;
    void enumerateFrom(const QString& path, const Visit& visit) const override;
    /// A desktop entry that is there but damaged yields a hidden bundle, because it still hides
    /// the entries of the same identifier in less important folders.
    /// As its icon it names itself, so that an icon has the same name before and after a bundle was
    /// first read.
    [[nodiscard]] std::optional<Bundle> bundle(const QString& path) const override;
    [[nodiscard]] unsigned userId() const override;
    [[nodiscard]] std::optional<qint64> fileSize(const QString& path) const override;
    [[nodiscard]] std::optional<QByteArray> readFile(const QString& path,
                                                     qint64 maxBytes) const override;
    /// A new file is for the user alone; an existing one keeps its permissions.
    [[nodiscard]] std::optional<QString>
    writeFileAtomically(const QString& path, const QByteArray& contents) const override;
    /// A new file is for the user alone.
    [[nodiscard]] std::optional<QString> appendToFile(const QString& path,
                                                      const QByteArray& contents) const override;
    [[nodiscard]] QStringList applicationFolders() const override { return m_applicationFolders; }
    [[nodiscard]] FolderResult applicationSupportFolder() const override;
    /// Whoever watches the same folders shares the kernel's notifications.
    [[nodiscard]] std::unique_ptr<FolderWatch> watch(const QStringList& folders,
                                                     FoldersChanged changed) override;

    /// Every entry below the application folders. May run on any thread.
    [[nodiscard]] DesktopEntries desktopEntries() const;
    /// `entries` as they are after changes at `paths` and below. May run on any thread.
    [[nodiscard]] DesktopEntries desktopEntries(const DesktopEntries& entries,
                                                const QStringList& paths) const;
    /// The icon of the application at `path`: a theme icon's name or an image's path; for any other
    /// text that text. May run on any thread.
    [[nodiscard]] QString iconSource(const QString& path) const;
    /// What is started at `path`. May run on any thread.
    [[nodiscard]] LaunchTarget launchTarget(const QString& path) const;

private:
    [[nodiscard]] bool isInApplicationFolder(const QString& path) const;
    [[nodiscard]] QString desktopFileIdentifier(const QString& path) const;
    [[nodiscard]] SharedDesktopEntry entry(const QString& path) const;
    [[nodiscard]] std::optional<Bundle> contentOfBundle(const QString& path) const;

    MainQueue& m_mainQueue;
    WorkQueue& m_workQueue;
    QStringList m_applicationFolders;
    QString m_supportFolder;
    mutable DesktopEntryCache m_entries;
    std::map<QStringList, std::unique_ptr<FolderWatcher>> m_watchers; ///< By what they watch.
};

} // namespace Tavik
