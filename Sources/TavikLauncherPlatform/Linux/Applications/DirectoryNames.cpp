// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/DirectoryNames.h>

#include <QFile>

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>

#include <sys/stat.h>

namespace Tavik::DirectoryNames {

namespace {

struct CloseDirectory
{
    void operator()(DIR* directory) const { ::closedir(directory); }
};

bool hasControlCharacter(const QString& text)
{
    return std::ranges::any_of(
        text, [](QChar character) { return character.category() == QChar::Other_Control; });
}

bool isFolder(DIR& directory, const dirent& entry)
{
    struct stat status = {};
    return entry.d_type == DT_DIR
        || (entry.d_type == DT_UNKNOWN
            && ::fstatat(::dirfd(&directory), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0
            && S_ISDIR(status.st_mode));
}

template <typename IsWanted> QStringList names(const QString& folder, const IsWanted& isWanted)
{
    QStringList names;
    const std::unique_ptr<DIR, CloseDirectory> directory(
        ::opendir(QFile::encodeName(folder).constData()));
    while (const dirent* entry = directory ? ::readdir(directory.get()) : nullptr) {
        const QByteArray raw(entry->d_name);
        if (raw.startsWith('.') || !isWanted(*directory, *entry)) {
            continue;
        }
        const QString name = QFile::decodeName(raw);
        // One that is not valid text could not be opened again by its path.
        if (!hasControlCharacter(name) && QFile::encodeName(name) == raw) {
            names.append(name);
        }
    }
    std::ranges::sort(names);
    return names;
}

} // namespace

QStringList all(const QString& folder)
{
    return names(folder, [](const auto&, const auto&) { return true; });
}

QStringList folders(const QString& folder)
{
    return names(folder, isFolder);
}

} // namespace Tavik::DirectoryNames
