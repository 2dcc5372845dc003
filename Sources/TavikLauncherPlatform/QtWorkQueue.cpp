// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/QtWorkQueue.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QRunnable>

#include <utility>

namespace Tavik {

namespace {
constexpr int idleThreadLifetimeMilliseconds = 200;
constexpr qint64 longJobMilliseconds = 40;
constexpr int readThreads = 2;

/// The toolkit's own locks are not seen by the thread sanitizer, which is told here what they do:
/// what was written before one thread's `handOver` is there after another's `takeOver`.
#ifdef __SANITIZE_THREAD__
extern "C" void __tsan_acquire(void* address);
extern "C" void __tsan_release(void* address);
void handOver(void* baton)
{
    __tsan_release(baton);
}
void takeOver(void* baton)
{
    __tsan_acquire(baton);
}
#else
void handOver(void*) { }
void takeOver(void*) { }
#endif

/// On its way to the main thread.
class DoneEvent final : public QEvent
{
public:
    explicit DoneEvent(WorkQueue::Done done)
        : QEvent(User)
        , m_done(std::move(done))
    { }
    void run()
    {
        if (const WorkQueue::Done done = std::move(m_done)) {
            done();
        }
    }

private:
    WorkQueue::Done m_done;
};

/// Made, and so written, before it is handed over.
class Work final : public QRunnable
{
public:
    explicit Work(std::function<void()> work)
        : m_work(std::move(work))
    { }
    void run() override { m_work(); }

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
}

bool QtWorkQueue::finish()
{
    m_isFinished = true;
    m_reads.clear();
    const int milliseconds = static_cast<int>(m_patience.count());
    const bool isLaunched = m_launches.waitForDone(milliseconds);
    m_writes.waitForDone();
    takeOver(this);
    return m_reads.waitForDone(milliseconds) && isLaunched;
}

void QtWorkQueue::schedule(WorkPriority priority, Job job)
{
    if (m_isFinished) {
        return;
    }
    auto* work = new Work([this, job = std::move(job)]() mutable {
        takeOver(this);
        QElapsedTimer timer;
        timer.start();
        auto* done = new DoneEvent(job());
        job = nullptr; // Here, with all that it holds.
        handOver(this);
        QCoreApplication::postEvent(this, done);
        if (m_releaseMemory && timer.elapsed() > longJobMilliseconds) {
            m_releaseMemory();
        }
    });
    handOver(this);
    poolFor(priority).start(work); // Which deletes it.
}

bool QtWorkQueue::event(QEvent* event)
{
    if (event->type() != QEvent::User) {
        return QObject::event(event);
    }
    takeOver(this);
    static_cast<DoneEvent*>(event)->run();
    return true;
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
