// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Errand.h>
#include <TavikLauncherPlatform/QtWorkQueue.h>

#include <QElapsedTimer>
#include <QRunnable>

#include <utility>

namespace Tavik {

namespace {
constexpr int idleThreadLifetimeMilliseconds = 200;
constexpr qint64 longJobMilliseconds = 40;
constexpr int readThreads = 2;

/// Made, and so written, before it is handed over.
class Work final : public QRunnable
{
public:
    explicit Work(std::function<void()> work)
        : m_work(std::move(work))
    { }
    void run() override
    {
        takeOver(this);
        m_work();
    }

private:
    std::function<void()> m_work;
};

} // namespace

QtWorkQueue::QtWorkQueue(std::function<void()> releaseMemory, std::chrono::milliseconds patience)
    : m_releaseMemory(std::move(releaseMemory))
    , m_patience(patience)
{
    m_reads.setMaxThreadCount(readThreads);
    m_writes.setMaxThreadCount(1);
    m_launches.setMaxThreadCount(1);
    for (QThreadPool* pool : {&m_reads, &m_writes, &m_launches}) {
        pool->setExpiryTimeout(idleThreadLifetimeMilliseconds);
    }
    m_writes.setThreadPriority(QThread::LowPriority);
}

QtWorkQueue::~QtWorkQueue()
{
    m_reads.clear();
    m_reads.waitForDone();
    m_launches.waitForDone();
    m_writes.waitForDone();
    takeOver(this);
}

bool QtWorkQueue::finish()
{
    m_isFinished = true;
    m_reads.clear();
    const int milliseconds = static_cast<int>(m_patience.count());
    const bool isLaunched = m_launches.waitForDone(milliseconds);
    m_writes.waitForDone();
    const bool isRead = m_reads.waitForDone(milliseconds);
    takeOver(this);
    return isRead && isLaunched;
}

void QtWorkQueue::schedule(WorkPriority priority, Job job)
{
    if (m_isFinished) {
        return;
    }
    start(poolFor(priority), [this, job = std::move(job)]() mutable {
        QElapsedTimer timer;
        timer.start();
        Done done = job();
        job = nullptr; // Here, with all that it holds.
        if (m_releaseMemory && timer.elapsed() > longJobMilliseconds) {
            done = [this, done = std::move(done)] {
                if (done) {
                    done();
                }
                releaseMemory();
            };
        }
        Errand::send(*this, std::move(done));
        handOver(this);
    });
}

void QtWorkQueue::releaseMemory()
{
    if (m_releaseMemory && !m_isFinished) {
        start(m_writes, m_releaseMemory);
    }
}

void QtWorkQueue::start(QThreadPool& pool, std::function<void()> work)
{
    auto* started = new Work(std::move(work));
    handOver(started);
    pool.start(started); // Which deletes it.
}

bool QtWorkQueue::event(QEvent* event)
{
    return Errand::run(*event) || QObject::event(event);
}

QThreadPool& QtWorkQueue::poolFor(WorkPriority priority)
{
    switch (priority) {
    case WorkPriority::userInitiated:
        return m_reads;
    case WorkPriority::utility:
        return m_writes;
    case WorkPriority::launch:
        return m_launches;
    }
    Q_UNREACHABLE();
}

} // namespace Tavik
