// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/PartFile.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <utility>

#include <sys/file.h>
#include <sys/stat.h>

namespace Tavik {

using namespace Qt::StringLiterals;

bool PartFile::removeLeftover(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const FileDescriptor file(
        ::open(name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.isOpen() && ::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        return false;
    }
    ::unlink(name.constData());
    return true;
}

PartFile::PartFile(QString path)
    : m_path(std::move(path))
{ }

PartFile::~PartFile()
{
    if (!m_isKept) {
        ::unlink(QFile::encodeName(m_path).constData());
    }
}

std::optional<QString> PartFile::create(qint64 expectedBytes)
{
    const QByteArray name = QFile::encodeName(m_path);
    if (!removeLeftover(m_path)) {
        return Texts::tr("Another Tavik Launcher is being updated in the folder “%1”.")
            .arg(QFileInfo(m_path).absolutePath());
    }
    // Only a new file is surely ours; a link of that name, say, is removed and not followed.
    m_file = FileDescriptor(::open(
        name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!m_file.isOpen()) {
        return failure(errno);
    }
    m_isKept = false;
    m_lock = FileDescriptor(::open(name.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    ::flock(m_lock.get(), LOCK_EX | LOCK_NB);
    // Better now than after half of it. Where the file system cannot tell, writing will.
    if (::fallocate(m_file.get(), FALLOC_FL_KEEP_SIZE, 0, expectedBytes) != 0
        && (errno == ENOSPC || errno == EDQUOT || errno == EFBIG)) {
        return failure(errno);
    }
    return std::nullopt;
}

std::optional<QString> PartFile::append(const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(m_file.get(),
                                      bytes.constData() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR) {
            return failure(errno);
        }
        written += count > 0 ? count : 0;
    }
    m_size += written;
    return std::nullopt;
}

std::optional<QString> PartFile::restart()
{
    if (::ftruncate(m_file.get(), 0) != 0 || ::lseek(m_file.get(), 0, SEEK_SET) != 0) {
        return failure(errno);
    }
    m_size = 0;
    return std::nullopt;
}

std::optional<QString> PartFile::rename(const QString& path)
{
    if (::rename(QFile::encodeName(m_path).constData(), QFile::encodeName(path).constData()) != 0) {
        return failure(errno);
    }
    m_path = path;
    return std::nullopt;
}

QString PartFile::failure(int error) const
{
    const QString folder = QFileInfo(m_path).absolutePath();
    if (error == ENOSPC || error == EDQUOT || error == EFBIG) {
        return Texts::tr("There is not enough room for the update in the folder “%1”.").arg(folder);
    }
    return Texts::tr("The update could not be written to the folder “%1”: %2.")
        .arg(folder, QString::fromLocal8Bit(std::strerror(error)));
}

} // namespace Tavik
