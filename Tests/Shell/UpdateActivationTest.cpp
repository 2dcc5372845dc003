// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/UpdateActivation.h>
#include <TavikLauncher/Shell/UpdateDebugLog.h>

#include <QApplication>
#include <QTest>

#include <Support/FakeFileManager.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>
#include <algorithm>
#include <optional>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// An application whose windows the test opens; records what was done to them.
class FakeUpdaterApplication final : public UpdateActivation::Application
{
public:
    [[nodiscard]] bool isActive() const override { return active; }
    void activateIgnoringOtherApps() override { ++activations; }
    [[nodiscard]] QList<UpdateActivation::Window> updaterWindows() const override
    {
        return windows;
    }
    void setFrameOrigin(quint64 window, const QPointF& origin) override
    {
        calls << QStringLiteral("move %1 to %2,%3").arg(window).arg(origin.x()).arg(origin.y());
        std::ranges::find(windows, window, &UpdateActivation::Window::id)->frame.moveTo(origin);
    }
    void orderFrontRegardless(quint64 window) override
    {
        ++fronts;
        calls << QStringLiteral("front %1").arg(window);
    }
    void orderKeyWindowFrontRegardless() override { calls << QStringLiteral("key front"); }
    [[nodiscard]] std::optional<Screen> activeScreen() const override { return screen; }

    [[nodiscard]] static UpdateActivation::Window window(quint64 id, const QRectF& frame)
    {
        return {.id = id,
                .className = QStringLiteral("Some::Window"),
                .controllerDescription = std::nullopt,
                .frame = frame,
                .isVisible = true,
                .canBecomeKey = true};
    }

    bool active = false;
    QList<UpdateActivation::Window> windows;
    std::optional<Screen> screen = Screen{QRectF(800, 0, 800, 600), QRectF(800, 0, 800, 570)};
    int activations = 0; ///< One in each step.
    int fronts = 0;
    QStringList calls;
};

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
        // Whether it repositions, the steps that open and activate, and what they lead to.
        const Table<bool, int, int, int, int> row;
        row("no window ever", true, never, never, 80, 0);
        row("all there at once", true, 1, 1, 1, 1);
        row("the window comes later", true, 5, 1, 5, 1);
        row("alert, never active", false, 2, never, 20, 0);
        row("alert, active later", false, 2, 7, 7, 0);
        row("alert, active too late", false, 2, 21, 20, 0);
    }
    void stepsEndInTime()
    {
        const auto [repositions, opensAt, activeAt, steps, fronts]
            = fetch<bool, int, int, int, int>();
        ActivationFixture fixture;
        fixture.repositions = repositions;
        fixture.play(9, opensAt, activeAt);
        QCOMPARE(fixture.application.activations, steps);
        QCOMPARE(fixture.application.fronts, fronts);
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
        // One for an alert ends the other; without a screen there is nothing to move to.
        fixture.activation.activateForSparkleUI({.repositionUpdateWindow = false});
        fixture.application.screen.reset();
        const int before = fixture.application.activations;
        fixture.mainQueue.advance(9);
        QCOMPARE(fixture.application.activations - before, 19);
        fixture.activation.activateForSparkleUI({.repositionUpdateWindow = true});
        fixture.mainQueue.advance(9);
        QCOMPARE(fixture.application.calls.filter(u"move"_s).size(), 2);
    }

    void theUpdateWindowIsTheFirstThatTakesKeysElseTheLargest_data()
    {
        // "k" can become key, "h" is hidden; then the side. No choice is -1.
        const Table<QString, int> row;
        row("none", {}, -1);
        row("first with keys", u"900 k10 k500"_s, 1);
        row("hidden with keys", u"kh900 10 k10"_s, 2);
        row("the largest", u"10 30 h90 20"_s, 1);
    }
    void theUpdateWindowIsTheFirstThatTakesKeysElseTheLargest()
    {
        const auto [windows, chosen] = fetch<QString, int>();
        ActivationFixture fixture;
        for (const QString& window : windows.split(u' ', Qt::SkipEmptyParts)) {
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
        auto window = FakeUpdaterApplication::window(1, {-0.5, 1000000, 301, 200.25});
        window.canBecomeKey = false;
        window.controllerDescription = u"<controller>"_s;
        fixture.play(0.1, never, never);
        fixture.application.windows << window;
        fixture.mainQueue.advance(0.1);
        QCOMPARE(fixture.log,
                 (QStringList{u"[attempt 3] chose Some::Window key=false wc=<controller> at "
                              u"(-0.5, 1000000.0, 301.0, 200.25)"_s,
                              u"[attempt 3] moved to (1049.5, 184.875, 301.0, 200.25) on "
                              u"(800.0, 0.0, 800.0, 570.0)"_s}));
    }

    void theLogIsWrittenOnlyWhenTheEnvironmentAsks()
    {
        const FakeFileManager files;
        qunsetenv("TAVIK_UPDATE_DEBUG");
        logUpdateDebug(files, u"unseen"_s);
        for (const char* value : {"", "0"}) {
            qputenv("TAVIK_UPDATE_DEBUG", value);
            logUpdateDebug(files, u"größer"_s);
        }
        qunsetenv("TAVIK_UPDATE_DEBUG");
        QCOMPARE(files.contents.value(u"/tmp/tavik-update.log"_s), u"größer\ngrößer\n"_s.toUtf8());
    }
};

QTEST_MAIN(UpdateActivationTest)
#include "UpdateActivationTest.moc"
