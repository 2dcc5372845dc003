// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ProcessExit.h>

#include <utility>

#include <sys/syscall.h>
#include <unistd.h>

namespace Tavik {

ProcessExit::ProcessExit(qint64 processId, std::function<void()> exited)
    : m_descriptor(static_cast<int>(::syscall(SYS_pidfd_open, static_cast<pid_t>(processId), 0)))
{
    if (m_descriptor < 0) {
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(),
                     &QSocketNotifier::activated,
                     m_notifier.get(),
                     [notifier = m_notifier.get(), exited = std::move(exited)] {
                         notifier->setEnabled(false);
                         exited();
                     });
}

ProcessExit::~ProcessExit()
{
    if (m_notifier) {
        // The listener that destroys us may be in a call of it.
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater();
    }
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

} // namespace Tavik
