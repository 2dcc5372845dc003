// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/QtMainQueue.h>

#include <QMetaObject>
#include <QTimer>

#include <chrono>
#include <cmath>
#include <utility>

namespace Tavik {

namespace {

class TimerTask final : public Task::Impl
{
public:
    TimerTask(double seconds, bool repeats, std::function<void()> closure)
        : m_timer(new QTimer)
    {
        m_timer->setSingleShot(!repeats);
        m_timer->setTimerType(Qt::PreciseTimer);
        m_timer->setInterval(static_cast<int>(std::lround(std::max(seconds, 0.0) * 1000.0)));
        QObject::connect(m_timer, &QTimer::timeout, m_timer, std::move(closure));
        m_timer->start();
    }
    ~TimerTask() override
    {
        // The closure may be what destroys the task, so the timer has to survive its own signal.
        m_timer->stop();
        m_timer->disconnect();
        m_timer->deleteLater();
    }
    TimerTask(const TimerTask&) = delete;
    TimerTask& operator=(const TimerTask&) = delete;

    [[nodiscard]] bool isActive() const override { return m_timer->isActive(); }

private:
    QTimer* m_timer;
};

} // namespace

void QtMainQueue::post(std::function<void()> closure)
{
    QMetaObject::invokeMethod(&m_context, std::move(closure), Qt::QueuedConnection);
}

Task QtMainQueue::after(double seconds, std::function<void()> closure)
{
    return Task(std::make_unique<TimerTask>(seconds, false, std::move(closure)));
}

Task QtMainQueue::every(double seconds, std::function<void()> closure)
{
    return Task(std::make_unique<TimerTask>(seconds, true, std::move(closure)));
}

double QtMainQueue::systemUptime() const
{
    using Seconds = std::chrono::duration<double>;
    return Seconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace Tavik
