// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/FileDescriptor.h>
#include <TavikLauncherPlatform/Linux/Updates/PartFile.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateFolder.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cmath>
#include <fcntl.h>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavik::UpdateFolder {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 installerHasSeconds = 24LL * 3600;
const QString packageName = u"TavikLauncher-update"_s;

} // namespace

QString defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
        + u"/TavikLauncher/Updates"_s;
}

std::optional<QString> prepare(const QString& folder)
{
    const QByteArray name = QFile::encodeName(folder);
    QDir().mkpath(QFileInfo(folder).path());
    ::mkdir(name.constData(), S_IRWXU);
    const FileDescriptor opened(
        ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    const bool isUsable = opened.isOpen() && ::fstat(opened.get(), &status) == 0
        && status.st_uid == ::geteuid() && ::fchmod(opened.get(), S_IRWXU) == 0;
    if (!isUsable) {
        return Texts::tr("The folder “%1” cannot be used for the update.").arg(folder);
    }
    return std::nullopt;
}

QString partFile(const QString& folder)
{
    return folder + u"/update.part"_s;
}

QString packageFile(const QString& folder, const QString& suffix)
{
    return folder + u'/' + packageName + suffix;
}

void removeLeftovers(const QString& folder, const QDateTime& now)
{
    PartFile::removeLeftover(partFile(folder));
    const QFileInfoList packages = QDir(folder).entryInfoList(
        {packageName + u'*'}, QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo& package : packages) {
        // A date in the future says nothing.
        if (std::abs(package.lastModified().secsTo(now)) >= installerHasSeconds) {
            QFile::remove(package.filePath());
        }
    }
    QDir().rmdir(folder); // If nothing is left in it.
}

} // namespace Tavik::UpdateFolder
