// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>

#include <QFile>

#include <fcntl.h>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavik::BoundedFile {

std::optional<QByteArray> read(const QString& path, qint64 maxBytes)
{
    // QFile's own open would hang on a named pipe that nobody writes to.
    const int descriptor
        = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0) {
        return std::nullopt;
    }
    struct stat status = {};
    QFile file;
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > maxBytes
        || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return std::nullopt;
    }
    // Not `maxBytes`: a buffer of that size would be allocated for every small file.
    QByteArray bytes = file.read(status.st_size);
    if (file.error() != QFileDevice::NoError) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace Tavik::BoundedFile
