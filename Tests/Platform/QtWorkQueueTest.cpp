// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/QtWorkQueue.h>

#include <QSemaphore>
#include <QTest>
#include <QThread>

using namespace Tavik;
using namespace std::chrono_literals;
using Done = WorkQueue::Done;

class QtWorkQueueTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theEndCompletesWritesAndGivesUpOnWhatHangs()
    {
        for (const WorkPriority hanging : {WorkPriority::userInitiated, WorkPriority::launch}) {
            QSemaphore started;
            QSemaphore goesOn;
            QSemaphore written;
            QtWorkQueue queue({}, 1ms);
            queue.schedule(hanging, [&] {
                started.release();
                goesOn.acquire();
                return Done();
            });
            started.acquire();
            for (int write = 0; write < 3; ++write) {
                queue.schedule(WorkPriority::utility, [&] { return written.release(), Done(); });
            }
            QVERIFY(!queue.finish());
            QCOMPARE(written.available(), 3);
            goesOn.release();
        }
    }

    void memoryGoesBackBehindALongJobAndWhatItAskedFor()
    {
        QSemaphore released;
        QStringList steps; // Each behind the other, on whatever thread.
        QtWorkQueue queue([&] { steps.append(QStringLiteral("released")), released.release(); });
        queue.schedule(WorkPriority::userInitiated, [&]() -> Done {
            QThread::msleep(60);
            return [&] {
                steps.append(QStringLiteral("continued"));
                queue.schedule(WorkPriority::utility,
                               [&] { return steps.append(QStringLiteral("written")), Done(); });
            };
        });
        QTRY_COMPARE(released.available(), 1);
        QCOMPARE(steps.join(u' '), QStringLiteral("continued written released"));
        queue.schedule(WorkPriority::userInitiated, [] { return Done(); });
        QVERIFY(queue.finish());
        QCOMPARE(released.available(), 1); // A short job leaves nothing to give back.
    }

    void aLaunchOvertakesWritesAndOutlivesTheEnd()
    {
        QSemaphore goesOn;
        QSemaphore launched;
        QtWorkQueue queue;
        queue.schedule(WorkPriority::utility, [&] { return goesOn.acquire(), Done(); });
        for (int launch = 0; launch < 2; ++launch) {
            queue.schedule(WorkPriority::launch, [&] { return launched.release(), Done(); });
        }
        QVERIFY(launched.tryAcquire(1, 5000));
        goesOn.release();
        QVERIFY(queue.finish());
        QCOMPARE(launched.available(), 1);
    }
};

QTEST_GUILESS_MAIN(QtWorkQueueTest)
#include "QtWorkQueueTest.moc"
