// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/LogFile.h>

#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavik::LogFile {

namespace {

QString lastError()
{
    return qt_error_string(errno);
}

/// The file to append to, open; absent when there is none that is ours alone.
std::optional<int> openOwn(const QByteArray& name)
{
    const int descriptor = ::open(
        name.constData(), O_WRONLY | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0) {
        return std::nullopt;
    }
    struct stat status = {};
    // Another name of the file may have been made by somebody who wants something of ours spoilt.
    const bool isOwn = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)
        && status.st_uid == ::geteuid() && status.st_nlink == 1;
    if (!isOwn) {
        ::close(descriptor);
        return std::nullopt;
    }
    return descriptor;
}

std::optional<QString> writeAndClose(int descriptor, const QByteArray& contents)
{
    std::optional<QString> error;
    // Where the disk is nearly full a part is written, and only the rest is refused with a reason.
    for (QByteArrayView rest = contents; !rest.isEmpty() && !error;) {
        const ssize_t written
            = ::write(descriptor, rest.data(), static_cast<std::size_t>(rest.size()));
        if (written < 0) {
            error = lastError();
        } else {
            rest = rest.sliced(written);
        }
    }
    ::close(descriptor);
    return error;
}

std::optional<QString> putInPlace(const QByteArray& name, const QByteArray& contents)
{
    QByteArray partial = name + ".XXXXXX";
    const int descriptor = ::mkostemp(partial.data(), O_CLOEXEC);
    if (descriptor < 0) {
        return lastError();
    }
    std::optional<QString> error = writeAndClose(descriptor, contents);
    if (!error && ::rename(partial.constData(), name.constData()) != 0) {
        error = lastError();
    }
    if (error) {
        ::unlink(partial.constData());
    }
    return error;
}

} // namespace

std::optional<QString> append(const QString& path, const QByteArray& contents)
{
    const QByteArray name = QFile::encodeName(path);
    if (const std::optional<int> descriptor = openOwn(name)) {
        return writeAndClose(*descriptor, contents);
    }
    return putInPlace(name, contents);
}

} // namespace Tavik::LogFile
