// SPDX-License-Identifier: MIT
#include "FakeUpdaterApplication.h"
#include <TavikLauncher/Shell/UpdateDebugLog.h>

#include <QTest>

#include <Support/FakeFileManager.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

constexpr int never = -1;

struct ActivationFixture
{
    /// Plays `seconds` in steps of a tenth; the window opens and the application becomes active
    /// before the steps with those numbers.
    void play(double seconds, int opensAt, int activeAt)
    {
        for (int step = 1; step <= qRound(seconds * 10) + 1; ++step) {
            if (step == opensAt) {
                application.windows = {FakeUpdaterApplication::window(7, {10, 20, 300, 200})};
            }
            application.active = activeAt != never && step >= activeAt;
            if (step == 1) {
                activation.activateForSparkleUI({.repositionUpdateWindow = repositions});
            } else {
                mainQueue.advance(0.1);
            }
        }
    }

    bool repositions = true;
    VirtualMainQueue mainQueue;
    FakeUpdaterApplication application;
    QStringList log;
    UpdateActivation activation{{.mainQueue = mainQueue,
                                 .application = application,
                                 .logUpdateDebug = [this](const QString& message) {
                                     log << message;
                                 }}};
};

} // namespace

class UpdateActivationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsEndInTime_data()
    {
        QTest::addColumn<bool>("repositions");
        QTest::addColumn<int>("opensAt");
        QTest::addColumn<int>("activeAt");
        QTest::addColumn<int>("steps");
        QTest::addColumn<int>("fronts");
        QTest::newRow("no window ever") << true << never << never << 80 << 0;
        QTest::newRow("no window though active") << true << never << 1 << 80 << 0;
        QTest::newRow("never active") << true << 2 << never << 80 << 79;
        QTest::newRow("all there at once") << true << 1 << 1 << 1 << 1;
        QTest::newRow("the window comes later") << true << 5 << 1 << 5 << 1;
        QTest::newRow("active later") << true << 2 << 9 << 9 << 8;
        QTest::newRow("active in the last step") << true << 2 << 80 << 80 << 79;
        QTest::newRow("alert, never active") << false << 2 << never << 20 << 0;
        QTest::newRow("alert, active at once") << false << 2 << 1 << 1 << 0;
        QTest::newRow("alert, active later") << false << 2 << 7 << 7 << 0;
        QTest::newRow("alert, active in the last step") << false << 2 << 20 << 20 << 0;
        QTest::newRow("alert, active too late") << false << 2 << 21 << 20 << 0;
    }
    void stepsEndInTime()
    {
        QFETCH(bool, repositions);
        QFETCH(int, opensAt);
        QFETCH(int, activeAt);
        ActivationFixture fixture;
        fixture.repositions = repositions;
        fixture.play(9, opensAt, activeAt);
        QTEST(fixture.application.activations, "steps");
        QTEST(fixture.application.fronts, "fronts");
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
        const bool isKeyRaised = !repositions && activeAt != never && activeAt <= 20;
        QCOMPARE(fixture.application.calls.count(u"key front"_s), isKeyRaised ? 1 : 0);
    }

    void theWindowIsMovedOnceToTheScreenOfTheRequest()
    {
        ActivationFixture fixture;
        fixture.play(0.3, 2, never);
        // 800 + (800 - 300) / 2 and (570 - 200) / 2.
        QCOMPARE(fixture.application.calls,
                 (QStringList{u"move 7 to 1050,185"_s, u"front 7"_s, u"front 7"_s, u"front 7"_s}));
        // The user may move it, and the pointer goes on to another screen.
        fixture.application.screen = Screen{QRectF(0, 0, 800, 600), QRectF(0, 0, 800, 600)};
        fixture.mainQueue.advance(1);
        QCOMPARE(fixture.application.calls.filter(u"move"_s).size(), 1);
        // A new request starts over.
        fixture.activation.activateForSparkleUI({.repositionUpdateWindow = true});
        QCOMPARE(fixture.application.calls.filter(u"move"_s).constLast(), u"move 7 to 250,200"_s);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 1);
    }

    void withoutAScreenNothingIsMoved()
    {
        ActivationFixture fixture;
        fixture.application.screen.reset();
        fixture.play(9, 1, 1);
        QCOMPARE(fixture.application.activations, 80);
        QCOMPARE(fixture.application.calls.filter(u"move"_s), QStringList());
        QCOMPARE(fixture.application.fronts, 80);
    }

    void aNewRequestTakesThePlaceOfTheOldOne()
    {
        ActivationFixture fixture;
        fixture.play(1, 2, never);
        const int before = fixture.application.activations;
        fixture.activation.activateForSparkleUI({.repositionUpdateWindow = false});
        fixture.mainQueue.advance(9);
        QCOMPARE(fixture.application.activations - before, 20);
        QCOMPARE(fixture.application.calls.filter(u"move"_s).size(), 1);
    }

    void theUpdateWindowIsTheFirstThatTakesKeysElseTheLargest_data()
    {
        QTest::addColumn<QStringList>(
            "windows"); // "k" can become key, "h" is hidden; then the side.
        QTest::addColumn<int>("chosen"); // -1: none.
        QTest::newRow("none") << QStringList{} << -1;
        QTest::newRow("only hidden ones") << QStringList{u"kh100"_s} << -1;
        QTest::newRow("first with keys") << QStringList{u"900"_s, u"k10"_s, u"k500"_s} << 1;
        QTest::newRow("hidden with keys") << QStringList{u"kh900"_s, u"10"_s, u"k10"_s} << 2;
        QTest::newRow("the only one") << QStringList{u"10"_s} << 0;
        QTest::newRow("the largest") << QStringList{u"10"_s, u"30"_s, u"h90"_s, u"20"_s} << 1;
    }
    void theUpdateWindowIsTheFirstThatTakesKeysElseTheLargest()
    {
        QFETCH(QStringList, windows);
        QFETCH(int, chosen);
        ActivationFixture fixture;
        for (const QString& window : windows) {
            const double side = QString(window).remove(u'k').remove(u'h').toDouble();
            auto made = FakeUpdaterApplication::window(
                static_cast<quint64>(fixture.application.windows.size()), {0, 0, side, side});
            made.canBecomeKey = window.contains(u'k');
            made.isVisible = !window.contains(u'h');
            fixture.application.windows << made;
        }
        fixture.application.active = true;
        fixture.activation.activateForSparkleUI({.repositionUpdateWindow = true});
        QCOMPARE(fixture.application.calls.value(1),
                 chosen < 0 ? QString() : u"front %1"_s.arg(chosen));
    }

    void theLogTellsTheChoiceAndTheMove()
    {
        ActivationFixture fixture;
        fixture.play(0.5, 3, never);
        QCOMPARE(fixture.log,
                 (QStringList{u"[attempt 3] chose Some::Window key=true wc=nil at "
                              u"(10.0, 20.0, 300.0, 200.0)"_s,
                              u"[attempt 3] moved to (1050.0, 185.0, 300.0, 200.0) on "
                              u"(800.0, 0.0, 800.0, 570.0)"_s}));

        ActivationFixture other;
        auto window = FakeUpdaterApplication::window(1, {-0.5, 1000000, 301, 200.25});
        window.canBecomeKey = false;
        window.controllerDescription = u"<controller>"_s;
        other.application.windows << window;
        other.play(0, never, never);
        QCOMPARE(other.log,
                 (QStringList{u"[attempt 1] chose Some::Window key=false wc=<controller> at "
                              u"(-0.5, 1000000.0, 301.0, 200.25)"_s,
                              u"[attempt 1] moved to (1049.5, 184.875, 301.0, 200.25) on "
                              u"(800.0, 0.0, 800.0, 570.0)"_s}));
    }

    void theLogIsWrittenOnlyWhenTheEnvironmentAsks()
    {
        const FakeFileManager files;
        const QString path = u"/tmp/tavik-update.log"_s;
        qunsetenv("TAVIK_UPDATE_DEBUG");
        logUpdateDebug(files, u"unseen"_s);
        QVERIFY(!files.contents.contains(path));
        for (const char* value : {"", "0", "yes"}) {
            qputenv("TAVIK_UPDATE_DEBUG", value);
            logUpdateDebug(files, u"größer"_s);
        }
        qunsetenv("TAVIK_UPDATE_DEBUG");
        QCOMPARE(files.contents.value(path), u"größer\ngrößer\ngrößer\n"_s.toUtf8());
    }
};

QTEST_GUILESS_MAIN(UpdateActivationTest)
#include "UpdateActivationTest.moc"
