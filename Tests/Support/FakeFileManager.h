// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/FileManager.h>

#include <QMap>
#include <QSet>

#include <Support/Noting.h>

namespace Tavik::Test {

/// A file system of records: what exists, what a walk finds, and what the bundles say.
class FakeFileManager : public FileManager, public Noting
{
public:
    [[nodiscard]] bool fileExists(const QString& path) const override
    {
        return existing.contains(path) || bundles.contains(path) || items.contains(path);
    }
    [[nodiscard]] bool isApplicationBundle(const QString& path) const override
    {
        return fileExists(path)
            && (path.endsWith(QLatin1String(".app")) || path.endsWith(QLatin1String(".desktop")));
    }
    void enumerate(const QString& folder, const Visit& visit) const override
    {
        for (const DirectoryItem& item : items.value(folder)) {
            visit(item);
        }
    }
    void enumerateFrom(const QString& path, const Visit& visit) const override
    {
        for (const DirectoryItem& item : items.value(path.left(path.lastIndexOf(u'/')))) {
            if (item.path == path) {
                visit(item);
            }
        }
    }
    [[nodiscard]] std::optional<Bundle> bundle(const QString& path) const override
    {
        ++bundleReads;
        const auto found = bundles.find(path);
        return found == bundles.end() ? std::nullopt : std::optional(*found);
    }
    [[nodiscard]] unsigned userId() const override { return user; }
    [[nodiscard]] std::optional<qint64> fileSize(const QString& path) const override
    {
        const auto found = contents.find(path);
        return found == contents.end() ? std::nullopt : std::optional(found->size());
    }
    [[nodiscard]] std::optional<QByteArray> readFile(const QString& path,
                                                     qint64 maxBytes) const override
    {
        const auto found = contents.find(path);
        const bool isReadable = found != contents.end() && found->size() <= maxBytes;
        return isReadable ? std::optional(*found) : std::nullopt;
    }
    [[nodiscard]] std::optional<QString> writeFileAtomically(const QString& path,
                                                             const QByteArray& bytes) const override
    {
        if (!writeFault) {
            contents.insert(path, bytes);
        }
        return writeFault;
    }
    [[nodiscard]] std::optional<QString> appendToFile(const QString& path,
                                                      const QByteArray& bytes) const override
    {
        contents[path] += bytes;
        return std::nullopt;
    }
    [[nodiscard]] QStringList applicationFolders() const override { return items.keys(); }
    [[nodiscard]] FolderResult applicationSupportFolder() const override { return support; }
    [[nodiscard]] std::unique_ptr<FolderWatch> watch(const QStringList& folders,
                                                     FoldersChanged changed) override
    {
        note("watch folders");
        watched = folders;
        folderChanged = std::move(changed);
        return std::make_unique<FolderWatch>();
    }

    QSet<QString> existing;
    QMap<QString, QList<DirectoryItem>> items; ///< By search path.
    QMap<QString, Bundle> bundles;
    mutable QMap<QString, QByteArray> contents; ///< Of ordinary files, by path.
    std::optional<QString> writeFault; ///< Of whole files.
    FolderResult support;
    unsigned user = 1000;
    mutable int bundleReads = 0;
    QStringList watched;
    FoldersChanged folderChanged;
};

} // namespace Tavik::Test
