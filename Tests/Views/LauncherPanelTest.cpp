// SPDX-License-Identifier: MIT
#include "PanelFixture.h"

#include <QFocusEvent>
#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace Tavik::Test;

class LauncherPanelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysGoThroughTheFieldToTheRing()
    {
        PanelFixture fixture;
        fixture.showRing();
        QWidget* field = &fixture.ring().filterField();
        QTest::keyClick(field, Qt::Key_Right);
        QCOMPARE(fixture.ring().interaction().selectedIndex(), 1);
        QTest::keyClick(field, Qt::Key_Up);
        QCOMPARE(fixture.ring().interaction().selectedIndex(), 0);
        QTest::keyClick(field, 'c');
        QCOMPARE(fixture.ring().interaction().query(), u"c"_s);
        QCOMPARE(fixture.ring().filterField().text(), u"c"_s);
        QTest::keyClick(field, Qt::Key_Backspace);
        QCOMPARE(fixture.ring().interaction().query(), QString());
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(fixture.closes, 1);
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"A"_s)});
    }

    void modifiersDoNotChangeWhatAKeyTypes_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("query");
        const Qt::KeyboardModifiers chord = Qt::ControlModifier | Qt::AltModifier;
        QTest::newRow("Control+a")
            << int(Qt::Key_A) << Qt::KeyboardModifiers(Qt::ControlModifier) << u"\x01"_s << u"a"_s;
        QTest::newRow("held chord") << int(Qt::Key_S) << chord << QString() << u"s"_s;
        QTest::newRow("held chord and Shift")
            << int(Qt::Key_S) << (chord | Qt::ShiftModifier) << QString() << u"S"_s;
        QTest::newRow("Control+0")
            << int(Qt::Key_0) << Qt::KeyboardModifiers(Qt::ControlModifier) << QString() << u"0"_s;
        QTest::newRow("Alt+3 types")
            << int(Qt::Key_3) << Qt::KeyboardModifiers(Qt::AltModifier) << QString() << u"3"_s;
        QTest::newRow("Cyrillic") << 0x0416 << Qt::KeyboardModifiers(Qt::ControlModifier)
                                  << QString() << u"ж"_s;
        QTest::newRow("Shift types its capital")
            << int(Qt::Key_A) << Qt::KeyboardModifiers(Qt::ShiftModifier) << u"A"_s << u"A"_s;
        QTest::newRow("function key types nothing")
            << int(Qt::Key_F5) << Qt::KeyboardModifiers(Qt::ControlModifier) << QString()
            << QString();
    }
    void modifiersDoNotChangeWhatAKeyTypes()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, text);
        PanelFixture fixture;
        fixture.showRing();
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(&fixture.ring().filterField(), &event);
        QTEST(fixture.ring().interaction().query(), "query");
    }

    void controlAndSuperDigitsLaunch_data()
    {
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::newRow("Control") << Qt::KeyboardModifiers(Qt::ControlModifier);
        QTest::newRow("Super") << Qt::KeyboardModifiers(Qt::MetaModifier);
        QTest::newRow("keypad") << (Qt::ControlModifier | Qt::KeypadModifier);
        QTest::newRow("held chord") << (Qt::ControlModifier | Qt::AltModifier);
    }
    void controlAndSuperDigitsLaunch()
    {
        QFETCH(Qt::KeyboardModifiers, modifiers);
        PanelFixture fixture;
        fixture.showRing();
        QTest::keyClick(&fixture.ring().filterField(), Qt::Key_3, modifiers);
        QCOMPARE(fixture.workspace.opened, QStringList{fixture.path(u"C"_s)});
        QCOMPARE(fixture.closes, 1);
    }

    void heldReturnLaunchesOnce()
    {
        PanelFixture fixture;
        fixture.showRing();
        QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QCoreApplication::sendEvent(&fixture.ring().filterField(), &repeat);
        QVERIFY(fixture.workspace.opened.isEmpty());
    }

    void showsAsAPanelAndGivesTheKeyboardBack()
    {
        PanelFixture fixture;
        fixture.showRing();
        QVERIFY(fixture.panel->isVisible());
        QCOMPARE(fixture.panel->frame(), QRectF(100, 100, 352, 352));
        QCOMPARE(fixture.windowServer.calls, (QStringList{u"prepare"_s, u"take focus"_s}));
        fixture.panel->orderOut();
        QVERIFY(!fixture.panel->isVisible());
        QCOMPARE(fixture.windowServer.calls.last(), u"return focus"_s);
    }

    void onlyTheRealLossOfTheKeyboardIsReported()
    {
        PanelFixture fixture;
        int resigned = 0;
        fixture.panel->onResignKey = [&resigned] {
            ++resigned;
        };
        fixture.showRing();
        QEvent deactivate(QEvent::WindowDeactivate);

        // Another program's grab: the focus stays, and goes only later.
        QCoreApplication::sendEvent(fixture.panel.get(), &deactivate);
        fixture.mainQueue.advance(1);
        QCOMPARE(resigned, 0);

        fixture.windowServer.hasFocus = false;
        QCoreApplication::sendEvent(fixture.panel.get(), &deactivate);
        QCOMPARE(resigned, 1);
        fixture.panel->orderOut();
        QCOMPARE(resigned, 1);
    }
};

QTEST_MAIN(LauncherPanelTest)
#include "LauncherPanelTest.moc"
