// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/ProcessLock.h>

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <utility>

#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tavik {

ProcessLock::Result ProcessLock::tryToTake(const QString& path)
{
    release();
    const int file = ::open(QFile::encodeName(path).constData(),
                            O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                            S_IRUSR | S_IWUSR);
    if (file < 0) {
        return Result::unavailable;
    }
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
        m_file = file;
        return Result::taken;
    }
    const bool isBusy = errno == EWOULDBLOCK;
    ::close(file);
    return isBusy ? Result::busy : Result::unavailable;
}

void ProcessLock::release()
{
    if (isHeld()) {
        ::close(std::exchange(m_file, -1));
    }
}

} // namespace Tavik
