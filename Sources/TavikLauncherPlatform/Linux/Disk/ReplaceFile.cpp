// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/ReplaceFile.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>

#include <unistd.h>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

/// The folders above are made as usual, the last one for the user alone.
bool makeFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.isDir()) {
        return true;
    }
    constexpr auto ownerOnly
        = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    return QDir().mkpath(folder.path()) && QDir().mkdir(path, ownerOnly);
}

} // namespace

QString fileBehindLinks(const QString& path)
{
    constexpr int mostLinks = 40; // What the kernel follows.
    QString file = path;
    for (int link = 0; link < mostLinks && QFileInfo(file).isSymLink(); ++link) {
        file = QFileInfo(file).symLinkTarget();
    }
    return file;
}

void syncFolder(const QString& path)
{
    const int folder
        = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
}

std::optional<QString>
replaceFile(const QString& path, const QByteArray& contents, QFileDevice::Permissions permissions)
{
    const QString target = fileBehindLinks(path);
    const QFileInfo existing(target);
    // The rename at the end would also replace a pipe or a device.
    if (existing.isSymLink() || (existing.exists() && !existing.isFile())) {
        return Texts::tr("%1 is not a regular file").arg(target);
    }
    if (!makeFolder(existing.absolutePath())) {
        return Texts::tr("The folder %1 cannot be made").arg(existing.absolutePath());
    }
    // Writes beside the target, syncs, then renames. In Qt 6.4 the commit overlooks that the last
    // of the buffer found no room on the disk, and would put a shortened file in place.
    QSaveFile file(target);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.setPermissions(permissions)
        && file.write(contents) == contents.size() && file.flush() && file.commit();
    if (!isWritten) {
        return file.errorString();
    }
    syncFolder(existing.absolutePath());
    return std::nullopt;
}

} // namespace Tavik
