// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/FolderNotifications.h>

#include <QFile>
#include <QSocketNotifier>

#include <array>
#include <cstring>

#include <sys/inotify.h>
#include <unistd.h>

namespace Tavik {

FolderNotifications::FolderNotifications()
    : m_descriptor(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK))
{
    if (isWorking()) {
        auto* notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, &FolderNotifications::read);
    }
}

FolderNotifications::~FolderNotifications()
{
    // The notifier goes before what it listens to.
    qDeleteAll(children());
    if (isWorking()) {
        ::close(m_descriptor);
    }
}

void FolderNotifications::add(const QString& path, Interest interest)
{
    constexpr uint32_t names = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF
        | IN_MOVE_SELF | IN_ONLYDIR;
    constexpr uint32_t contents = names | IN_CLOSE_WRITE | IN_ATTRIB;
    const int number = ::inotify_add_watch(m_descriptor,
                                           QFile::encodeName(path).constData(),
                                           interest == Interest::contents ? contents : names);
    if (number >= 0) {
        m_numbers.insert(path, number);
        m_paths.insert(number, path);
    }
}

void FolderNotifications::remove(const QString& path)
{
    const int number = m_numbers.take(path);
    if (m_paths.remove(number) > 0) {
        ::inotify_rm_watch(m_descriptor, number);
    }
}

void FolderNotifications::read()
{
    alignas(inotify_event) std::array<char, 16 * 1024> buffer{};
    for (;;) {
        const ssize_t size = ::read(m_descriptor, buffer.data(), buffer.size());
        if (size <= 0) {
            return;
        }
        for (const char* at = buffer.data(); at < buffer.data() + size;) {
            inotify_event event{};
            std::memcpy(&event, at, sizeof event);
            const QString name = event.len > 0 ? QFile::decodeName(at + sizeof event) : QString();
            at += sizeof event + event.len;
            const QString folder = m_paths.value(event.wd);
            if ((event.mask & IN_IGNORED) != 0) {
                m_numbers.remove(folder);
                m_paths.remove(event.wd);
            } else if (!folder.isEmpty() || (event.mask & IN_Q_OVERFLOW) != 0) {
                Q_EMIT changed(folder, name, name.isEmpty() || (event.mask & IN_ISDIR) != 0);
            }
        }
    }
}

} // namespace Tavik
