// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/QtWorkQueue.h>

#include <QSemaphore>
#include <QTest>

using namespace Tavik;
using namespace std::chrono_literals;

class QtWorkQueueTest final : public QObject
{
    Q_OBJECT

private:
    template <typename Work>
    static void schedule(QtWorkQueue& queue, WorkPriority priority, Work work)
    {
        const auto done = [](bool) {
        };
        queue.run(
            priority,
            [work] {
                work();
                return true;
            },
            done);
    }

private Q_SLOTS:
    void theEndCompletesWritesAndGivesUpOnReadsThatHang()
    {
        QSemaphore started;
        QSemaphore goesOn;
        QSemaphore written;
        QtWorkQueue queue({}, 1ms);
        schedule(queue, WorkPriority::userInitiated, [&] {
            started.release();
            goesOn.acquire();
        });
        started.acquire();
        for (int write = 0; write < 3; ++write) {
            schedule(queue, WorkPriority::utility, [&] { written.release(); });
        }
        QVERIFY(!queue.finish());
        QCOMPARE(written.available(), 3);
        goesOn.release();
    }

    void aLaunchOvertakesWritesAndOutlivesTheEnd()
    {
        QSemaphore goesOn;
        QSemaphore launched;
        QtWorkQueue queue;
        schedule(queue, WorkPriority::utility, [&] { goesOn.acquire(); });
        for (int launch = 0; launch < 2; ++launch) {
            schedule(queue, WorkPriority::launch, [&] { launched.release(); });
        }
        QVERIFY(launched.tryAcquire(1, 5000));
        goesOn.release();
        QVERIFY(queue.finish());
        QCOMPARE(launched.available(), 1);
    }
};

QTEST_GUILESS_MAIN(QtWorkQueueTest)
#include "QtWorkQueueTest.moc"
