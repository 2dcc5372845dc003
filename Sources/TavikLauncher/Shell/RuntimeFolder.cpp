// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/RuntimeFolder.h>

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace Tavik::RuntimeFolder {

namespace {

/// The toolkit takes no folder that belongs to another user, and says so each time it is asked.
const QString& folder()
{
    static const QString location
        = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return location;
}

} // namespace

std::optional<QString> path(const QString& file)
{
    const QFileInfo info(folder());
    constexpr auto others = QFileDevice::ReadGroup | QFileDevice::WriteGroup
        | QFileDevice::ReadOther | QFileDevice::WriteOther;
    if (folder().isEmpty() || !info.isDir() || !info.isWritable()
        || (info.permissions() & others)) {
        return std::nullopt;
    }
    return folder() + u'/' + file;
}

bool isFirstOfLogin(const QString& name)
{
    const std::optional<QString> mark = path(name);
    return !mark || QFile(*mark).open(QIODevice::WriteOnly | QIODevice::NewOnly);
}

} // namespace Tavik::RuntimeFolder
