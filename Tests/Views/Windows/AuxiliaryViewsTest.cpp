// SPDX-License-Identifier: MIT
#include "../../Ring/RingFixture.h"
#include <TavikLauncher/Look/WrappedLabel.h>
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Views/Windows/AccessibilityPermissionView.h>
#include <TavikLauncher/Views/Windows/OnboardingTour.h>
#include <TavikLauncher/Views/Windows/OnboardingView.h>
#include <TavikLauncher/Views/Windows/ReindexView.h>

#include <QApplication>
#include <QBitmap>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QTest>

#include <Support/Counting.h>
#include <Support/CutTexts.h>
#include <Support/FakeDesktop.h>
#include <Support/FakeKeyEvents.h>
#include <Support/Hands.h>
#include <optional>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using PermissionPhase = AccessibilityPermissionSession::Phase;
using Phase = ReindexSession::Phase;

namespace {

bool says(const QWidget& view, const QString& text)
{
    return find<QLabel>(view, text) != nullptr;
}

/// As long as the longest.
const QString limit
    = u"A Wayland desktop tells no program which keys are held while another one is in front."_s;
const QString remedy
    = u"Bind the command tavik-launcher --summon to a key of your choice in Settings › Keyboard › View and Customize Shortcuts."_s;

struct Asked
{
    explicit Asked(bool isTrusted = false, bool hasSettings = true)
    {
        permission.trusted = isTrusted;
        permission.told = {.limit = limit,
                           .remedy = remedy,
                           .hasSettings = hasSettings,
                           .command = u"tavik-launcher --summon"_s};
        view.emplace(AccessibilityPermissionView::Dependencies{permission, queue, appearance},
                     AccessibilityPermissionSession::Actions{
                         counting(enabled), counting(dismissed), counting(granted)});
        view->setFixedSize(440, 520);
        view->show();
    }
    [[nodiscard]] PermissionPhase phase() { return view->session().phase(); }
    [[nodiscard]] bool fits() const
    {
        return view->layout()->totalHeightForWidth(view->width()) <= view->height();
    }

    FakeAccessibilityPermission permission;
    VirtualMainQueue queue;
    FakeAppearance appearance;
    int enabled = 0;
    int granted = 0;
    int dismissed = 0;
    std::optional<AccessibilityPermissionView> view;
};

const QString enable = u"Enable Accessibility Access"_s;
const QString done = u"Done — I've Enabled It"_s;
const QString hint
    = u"Not enabled yet — flip the toggle next to Tavik Launcher in Accessibility settings."_s;

struct ReindexFixture : RingFixture
{
    ReindexFixture()
    {
        workQueue.runAll();
        view->show();
        isActive = QTest::qWaitForWindowActive(view.get());
    }
    [[nodiscard]] const ReindexSession& session() const { return view->session(); }
    [[nodiscard]] Phase phase() const { return session().phase(); }
    /// How often the window was to close by then.
    int press(Qt::Key key)
    {
        QTest::keyClick(view->focusWidget(), key);
        return closes;
    }

    FakeAppearance appearance;
    int celebrations = 0;
    int closes = 0;
    bool isActive = false;
    std::unique_ptr<ReindexView> view = std::make_unique<ReindexView>(
        ReindexSession::Dependencies{catalog, mainQueue, appearance},
        ReindexView::Actions{.onCelebrate = counting(celebrations), .onClose = counting(closes)});
};

} // namespace

/// The small windows beside the ring: the permission, the new index, the tour.
class AuxiliaryViewsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // The sizes of the windows are those of a desktop that nobody has set up.
        QFont usual = QGuiApplication::font();
        usual.setPixelSize(12);
        QApplication::setFont(usual);
    }

    void permissionLeadsFromThePromptOverTheSettingsToGranted()
    {
        Asked asked;
        QVERIFY(says(*asked.view, u"Allow Accessibility Access"_s) && asked.fits());
        QVERIFY(says(*asked.view, limit) && !says(*asked.view, remedy));
        QVERIFY(!click(*asked.view, done) && click(*asked.view, enable));
        QVERIFY(says(*asked.view, limit) && says(*asked.view, remedy) && asked.fits());
        QVERIFY(!click(*asked.view, enable)
                && click(*asked.view, u"Open Accessibility Settings"_s));
        QCOMPARE(asked.permission.calls, QStringList({u"prompt"_s, u"settings"_s}));
        QVERIFY(!says(*asked.view, hint) && click(*asked.view, done));
        asked.queue.advance(3);
        QVERIFY(says(*asked.view, hint) && asked.fits());
        QCOMPARE(asked.phase(), PermissionPhase::waitingForUser);
        asked.permission.trusted = true;
        QVERIFY(click(*asked.view, done));
        QCOMPARE(asked.granted, 1);
        QVERIFY(says(*asked.view, u"Hotkey Is Active"_s) && asked.fits());
        QVERIFY(!click(*asked.view, done) && !says(*asked.view, hint));
        QCOMPARE(asked.dismissed, 0);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            QTest::keyClick(asked.view->focusWidget(), key);
        }
        QCOMPARE(asked.dismissed, 2);
    }

    void permissionIsLookedForOnOpeningEverySecondAndOnClosing()
    {
        Asked there(true);
        QCOMPARE(there.granted, 1);
        QCOMPARE(there.phase(), PermissionPhase::prompt);

        Asked polled;
        polled.permission.told.limit = remedy; // What a desktop says to the question.
        polled.queue.advance(1.5);
        QCOMPARE(polled.granted, 0);
        QVERIFY(says(*polled.view, remedy));
        polled.permission.trusted = true;
        polled.queue.advance(0.6);
        QCOMPARE(polled.phase(), PermissionPhase::granted);

        Asked closed;
        closed.permission.trusted = true;
        closed.view->close();
        for (Asked* asked : {&polled, &closed}) {
            asked->queue.advance(5);
            QCOMPARE(asked->granted, 1);
            QCOMPARE(asked->queue.pendingTasks(), 0);
        }
    }

    void whereNoSettingsOpenTheCommandIsGiven()
    {
        for (const bool hasSettings : {false, true}) {
            Asked asked(false, hasSettings);
            asked.permission.settingsOpen = false;
            QGuiApplication::clipboard()->clear();
            QVERIFY(click(*asked.view, enable));
            const QString open = u"Open Accessibility Settings"_s;
            QVERIFY(click(*asked.view, hasSettings ? open : u"Copy the Command"_s));
            QCOMPARE(QGuiApplication::clipboard()->text(), u"tavik-launcher --summon"_s);
            QVERIFY(find<QPushButton>(*asked.view, u"Command Copied"_s) && asked.fits());
        }
    }

    void phasesFadeUnlessMotionIsReduced()
    {
        for (const bool isReduced : {false, true}) {
            Asked asked;
            asked.appearance.reduced = isReduced;
            QVERIFY(click(*asked.view, enable));
            const QImage first = asked.view->grab().toImage();
            asked.queue.advance(0.5);
            QCOMPARE(asked.view->grab().toImage() == first, isReduced);
        }
    }

    void noTextEndsInALineOfAWordOrTwo()
    {
        WrappedLabel label(
            u"The global hotkey is now working. Tavik Launcher will appear over any app."_s);
        const int line = label.fontMetrics().lineSpacing();
        for (const int width : {200, 360, 384, 430}) {
            label.resize(width, label.heightForWidth(width));
            const QRegion ink = QBitmap::fromImage(label.grab().toImage().createMaskFromColor(
                label.palette().color(QPalette::Window).rgb()));
            const auto lengthOf = [&](int y) {
                return (ink & QRect(0, y, width, line)).boundingRect().width();
            };
            QVERIFY(label.height() > line * 3 / 2);
            QVERIFY(lengthOf(label.height() - line) > 0.6 * lengthOf(0));
        }
    }

    void reindexGoesFromInfoToSuccess()
    {
        ReindexFixture fixture;
        QCOMPARE(cutTexts(*fixture.view), QStringList());
        // A walk that somebody else started changes nothing.
        fixture.walk();
        fixture.mainQueue.advance(1);
        QCOMPARE(fixture.phase(), Phase::info);

        QVERIFY(click(*fixture.view, u"Reindex Now"_s));
        QCOMPARE(fixture.phase(), Phase::running);
        QVERIFY(!click(*fixture.view, u"Reindex Now"_s));
        QVERIFY(says(*fixture.view, u"Scanning…"_s));

        fixture.workQueue.runAll();
        QCOMPARE(fixture.phase(), Phase::success);
        QVERIFY(says(*fixture.view, u"Indexed 5 apps"_s));
        QVERIFY(!says(*fixture.view, u"Scanning…"_s));
        fixture.mainQueue.advance(0.079);
        QCOMPARE(fixture.celebrations, 0);
        QCOMPARE(fixture.session().markScale(), 0.4);
        fixture.mainQueue.advance(0.001);
        QVERIFY(fixture.celebrations == 1 && fixture.session().celebrates());

        fixture.install(fixture.path(u"F"_s), u"F"_s);
        fixture.walk();
        QVERIFY2(says(*fixture.view, u"Indexed 6 apps"_s), "the count follows the catalogue");
    }

    void reindexJoinsAWalkThatIsRunning()
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

    void theMarkSpringsToItsSizeUnlessMotionIsReduced()
    {
        for (const bool isReduced : {false, true}) {
            ReindexFixture fixture;
            fixture.appearance.reduced = isReduced;
            fixture.press(Qt::Key_Return);
            fixture.workQueue.runAll();
            double highest = 0;
            connect(&fixture.session(), &ReindexSession::markScaleChanged, this, [&] {
                highest = std::max(highest, fixture.session().markScale());
            });
            fixture.mainQueue.advance(isReduced ? 0.08 : 2);
            QCOMPARE(fixture.session().markScale(), 1.0);
            // A damping fraction of 0.6 overshoots by 9.5 % of the way.
            QVERIFY(std::abs(highest - (isReduced ? 1 : 1.057)) < 0.004);
            QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
            QCOMPARE(fixture.celebrations, 1);
        }
    }

    void returnAndEscapeDependOnTheReindexPhase()
    {
        ReindexFixture fixture;
        QCOMPARE(fixture.press(Qt::Key_Escape), 1);
        QCOMPARE(fixture.press(Qt::Key_Return), 1);
        QCOMPARE(fixture.phase(), Phase::running);
        QCOMPARE(fixture.press(Qt::Key_Return), 1);
        QCOMPARE(fixture.press(Qt::Key_Escape), 2);
        fixture.workQueue.runAll();
        QCOMPARE(fixture.press(Qt::Key_Escape), 2);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QCoreApplication::sendEvent(fixture.view->focusWidget(), &held);
        QCOMPARE(fixture.closes, 2);
        QCOMPARE(fixture.press(Qt::Key_Return), 3);
    }

    void nothingCelebratesOnceTheReindexWindowIsGone()
    {
        ReindexFixture fixture;
        fixture.press(Qt::Key_Return);
        fixture.workQueue.runAll();
        fixture.view.reset();
        fixture.mainQueue.advance(1);
        QCOMPARE(fixture.celebrations, 0);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void theTourNamesTheShortcutWithoutTheMarkOfHolding()
    {
        HotKeyConfig shortcut = HotKeyConfig::defaultConfig();
        shortcut.displayName = u"⌃ (hold)%1⌥ (hold)"_s;
        QCOMPARE(tourRows(shortcut).front().title, u"Hold the shortcut"_s);
        QCOMPARE(tourRows(shortcut).front().detail,
                 u"Press and hold ⌃%1⌥ to open the ring at the pointer. Release to dismiss unless "
                 u"search mode is active. Go ahead — try it right now!"_s);
    }

    void theTourIsShownWholeAndKeysLeadOn()
    {
        int finished = 0;
        int settings = 0;
        OnboardingView view(HotKeyConfig::defaultConfig(),
                            {.onFinish = counting(finished), .onOpenSettings = counting(settings)});
        view.resize(560, 420);
        view.show();
        QVERIFY(view.height() <= 420);
        const QList<QLabel*> labels = view.findChildren<QLabel*>();
        QCOMPARE(labels.size(), 11);
        const auto says = [&labels](const QString& text) {
            return std::ranges::any_of(labels, [&](QLabel* each) { return each->text() == text; });
        };
        QVERIFY(says(u"Move or type"_s));
        QVERIFY(says(u"Hover an app slice to select it, or type to filter. Typing pins the ring "
                     "until you launch, press Esc, or click away."_s));
        QCOMPARE(cutTexts(view), QStringList());
        // Escape dismisses the ring that is being tried out, not the tour.
        QTest::keyClick(view.focusWidget(), Qt::Key_Escape);
        QCOMPARE(finished, 0);
        QTest::keyClick(view.focusWidget(), Qt::Key_Return);
        QCOMPARE(finished, 1);
        QTest::keyClick(view.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QTest::keyClick(view.focusWidget(), Qt::Key_Space);
        QTest::keyClick(view.focusWidget(), Qt::Key_Return);
        QCOMPARE(settings, 2);
    }
};

QTEST_MAIN(AuxiliaryViewsTest)
#include "AuxiliaryViewsTest.moc"
