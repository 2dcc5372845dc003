// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/QtWorkQueue.h>

#include <QMetaObject>

namespace Tavik {

namespace {
constexpr int idleThreadLifetimeMilliseconds = 2000;
constexpr int readThreads = 2;
} // namespace

QtWorkQueue::QtWorkQueue()
{
    m_reads.setMaxThreadCount(readThreads);
    m_reads.setExpiryTimeout(idleThreadLifetimeMilliseconds);
    m_writes.setMaxThreadCount(1);
    m_writes.setExpiryTimeout(idleThreadLifetimeMilliseconds);
    m_writes.setThreadPriority(QThread::LowPriority);
}

QtWorkQueue::~QtWorkQueue()
{
    finish();
}

void QtWorkQueue::finish()
{
    m_isFinished = true;
    m_reads.clear();
    m_reads.waitForDone();
    m_writes.waitForDone();
}

void QtWorkQueue::schedule(WorkPriority priority, Job job)
{
    if (m_isFinished) {
        return;
    }
    QThreadPool& pool = priority == WorkPriority::utility ? m_writes : m_reads;
    pool.start([this, job = std::move(job)] {
        QMetaObject::invokeMethod(&m_mainThread, job(), Qt::QueuedConnection);
    });
}

} // namespace Tavik
