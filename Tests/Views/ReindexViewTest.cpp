// SPDX-License-Identifier: MIT
#include "../Ring/RingFixture.h"
#include <TavikLauncher/Views/ReindexView.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <Support/FakeDesktop.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using Phase = ReindexSession::Phase;

namespace {

struct ReindexFixture : RingFixture
{
    ReindexFixture()
    {
        workQueue.runAll();
        view.show();
        isActive = QTest::qWaitForWindowActive(&view);
    }
    [[nodiscard]] Phase phase() const { return view.session().phase(); }
    [[nodiscard]] QPushButton* button(const QString& text) const
    {
        for (QPushButton* button : view.findChildren<QPushButton*>()) {
            if (button->text() == text) {
                return button;
            }
        }
        return nullptr;
    }
    [[nodiscard]] bool shows(const QString& text) const
    {
        for (const QLabel* label : view.findChildren<QLabel*>()) {
            if (label->text() == text && label->isVisible()) {
                return true;
            }
        }
        return false;
    }
    void press(Qt::Key key) { QTest::keyClick(view.focusWidget(), key); }

    FakeAppearance appearance;
    int celebrations = 0;
    int closes = 0;
    bool isActive = false;
    ReindexView view{{catalog, mainQueue, appearance},
                     {.onCelebrate = [this] { ++celebrations; },
                      .onClose =
                          [this] {
                              ++closes;
                          }}};
};

} // namespace

class ReindexViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void walksStartedElsewhereChangeNothing()
    {
        ReindexFixture fixture;
        fixture.walk();
        fixture.mainQueue.advance(1);
        QCOMPARE(fixture.phase(), Phase::info);
        QCOMPARE(fixture.celebrations, 0);
    }

    void goesFromInfoToSuccess()
    {
        ReindexFixture fixture;
        QVERIFY(fixture.button(u"Reindex Now"_s)->isVisible());
        QTest::mouseClick(fixture.button(u"Reindex Now"_s), Qt::LeftButton);
        QCOMPARE(fixture.phase(), Phase::running);
        QVERIFY(fixture.catalog.isIndexing());
        QVERIFY(!fixture.button(u"Reindex Now"_s)->isVisible());
        QVERIFY(fixture.shows(u"Scanning…"_s));

        fixture.workQueue.runAll();
        QCOMPARE(fixture.phase(), Phase::success);
        QVERIFY(fixture.shows(u"Indexed 5 apps"_s));
        QVERIFY(!fixture.shows(u"Scanning…"_s));
        fixture.mainQueue.advance(0.079);
        QCOMPARE(fixture.celebrations, 0);
        QVERIFY(!fixture.view.session().celebrates());
        QCOMPARE(fixture.view.session().markScale(), 0.4);
        fixture.mainQueue.advance(0.001);
        QCOMPARE(fixture.celebrations, 1);
        QVERIFY(fixture.view.session().celebrates());
    }

    void joinsAWalkThatIsRunning()
    {
        ReindexFixture fixture;
        fixture.catalog.reindex();
        fixture.press(Qt::Key_Return);
        QCOMPARE(fixture.phase(), Phase::running);
        fixture.workQueue.runAll();
        QCOMPARE(fixture.phase(), Phase::success);
        fixture.mainQueue.advance(5);
        QCOMPARE(fixture.celebrations, 1);
    }

    void theMarkSpringsToItsSize()
    {
        ReindexFixture fixture;
        fixture.press(Qt::Key_Return);
        fixture.workQueue.runAll();
        double highest = 0;
        connect(&fixture.view.session(), &ReindexSession::markScaleChanged, this, [&] {
            highest = std::max(highest, fixture.view.session().markScale());
        });
        fixture.mainQueue.advance(2);
        QCOMPARE(fixture.view.session().markScale(), 1.0);
        // A damping fraction of 0.6 overshoots by 9.5 % of the way.
        QVERIFY(std::abs(highest - 1.057) < 0.004);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void theMarkIsJustThereWithReducedMotion()
    {
        ReindexFixture fixture;
        fixture.appearance.reduced = true;
        fixture.press(Qt::Key_Return);
        fixture.workQueue.runAll();
        fixture.mainQueue.advance(0.08);
        QCOMPARE(fixture.view.session().markScale(), 1.0);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
        QCOMPARE(fixture.celebrations, 1);
    }

    void theCountFollowsTheCatalog()
    {
        ReindexFixture fixture;
        fixture.press(Qt::Key_Return);
        fixture.workQueue.runAll();
        fixture.install(fixture.path(u"F"_s), u"F"_s);
        fixture.walk();
        QVERIFY(fixture.shows(u"Indexed 6 apps"_s));
    }

    void returnAndEscapeDependOnThePhase()
    {
        ReindexFixture fixture;
        fixture.press(Qt::Key_Escape);
        QCOMPARE(fixture.closes, 1);
        fixture.press(Qt::Key_Return);
        QCOMPARE(fixture.phase(), Phase::running);
        fixture.press(Qt::Key_Return);
        QCOMPARE(fixture.closes, 1);
        fixture.press(Qt::Key_Escape);
        QCOMPARE(fixture.closes, 2);
        fixture.workQueue.runAll();
        fixture.press(Qt::Key_Escape);
        QCOMPARE(fixture.closes, 2);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QCoreApplication::sendEvent(fixture.view.focusWidget(), &held);
        QCOMPARE(fixture.closes, 2);
        fixture.press(Qt::Key_Return);
        QCOMPARE(fixture.closes, 3);
    }

    void nothingRunsOnceTheWindowIsGone()
    {
        RingFixture fixture;
        fixture.workQueue.runAll();
        FakeAppearance appearance;
        int celebrations = 0;
        auto view = std::make_unique<ReindexView>(
            ReindexSession::Dependencies{fixture.catalog, fixture.mainQueue, appearance},
            ReindexView::Actions{.onCelebrate = [&] { ++celebrations; }, .onClose = {}});
        view->show();
        QTest::keyClick(view.get(), Qt::Key_Return);
        fixture.workQueue.runAll();
        view.reset();
        fixture.mainQueue.advance(1);
        QCOMPARE(celebrations, 0);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void everyParagraphIsShownWhole()
    {
        ReindexFixture fixture;
        fixture.view.resize(400, 1);
        QCOMPARE(fixture.view.width(), 400);
        for (const QLabel* label : fixture.view.findChildren<QLabel*>()) {
            if (label->isVisible()) {
                QVERIFY(label->height() >= label->heightForWidth(label->width()));
            }
        }
    }
};

QTEST_MAIN(ReindexViewTest)
#include "ReindexViewTest.moc"
