// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyRecorder.h>
#include <TavikLauncher/Views/SettingsWindow/HotKeyRecorderBridge.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QVBoxLayout>

#include <Support/Counting.h>
#include <Support/FakeKeyEvents.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// A window with something to type into, and a recorder that is fed from it.
struct Bridged
{
    Bridged()
    {
        keys.hasLocal = false;
        auto* layout = new QVBoxLayout(&window);
        field = new QLineEdit(&window);
        layout->addWidget(field);
        recorder.onCommit = [this](const HotKeyConfig& config) {
            names << config.displayName;
        };
        window.show();
        window.activateWindow();
        field->setFocus();
    }

    void send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers) const
    {
        QKeyEvent event(type, key, modifiers);
        QCoreApplication::sendEvent(field, &event);
    }

    FakeKeyEvents keys;
    QWidget window;
    QLineEdit* field;
    HotKeyRecorder recorder;
    HotKeyRecorderBridge bridge{recorder, keys, window};
    QStringList names;
};

} // namespace

class HotKeyRecorderBridgeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysGoToTheRecorderAndNowhereElseWhileItRecords()
    {
        Bridged bridged;
        QVERIFY(QTest::qWaitForWindowActive(&bridged.window));
        int shortcuts = 0;
        const QShortcut shortcut(
            QKeySequence(u"Ctrl+K"_s), &bridged.window, &bridged.window, [&] { ++shortcuts; });
        bridged.recorder.start();
        QTest::keyClicks(bridged.field, u"ab"_s);
        QTest::keyClick(bridged.window.windowHandle(), Qt::Key_K, Qt::ControlModifier);
        QCOMPARE(bridged.names, QStringList{u"⌃K"_s});
        QCOMPARE(bridged.field->text(), QString());
        QCOMPARE(shortcuts, 0);
        QTest::keyClicks(bridged.field, u"ab"_s);
        QCOMPARE(bridged.field->text(), u"ab"_s);
        QTest::keyClick(bridged.window.windowHandle(), Qt::Key_K, Qt::ControlModifier);
        QCOMPARE(shortcuts, 1);
    }

    void modifiersAloneAreAShortcutToo()
    {
        Bridged bridged;
        bridged.recorder.start();
        bridged.send(QEvent::KeyPress, Qt::Key_Control, Qt::ControlModifier);
        bridged.send(QEvent::KeyPress, Qt::Key_Alt, Qt::ControlModifier | Qt::AltModifier);
        bridged.send(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier | Qt::AltModifier);
        QVERIFY(bridged.names.isEmpty());
        bridged.send(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(bridged.names, QStringList{u"⌃⌥ (hold)"_s});
    }

    void systemsOwnWordOnTheModifiersIsPreferred()
    {
        Bridged bridged;
        bridged.keys.hasLocal = true;
        bridged.recorder.start();
        bridged.keys.local({.modifierFlags = ModifierFlags::shift | ModifierFlags::option});
        // To the toolkit that key is another one.
        bridged.send(QEvent::KeyPress, Qt::Key_Meta, Qt::ShiftModifier | Qt::AltModifier);
        const KeyEvents::Filter local = bridged.keys.local;
        QVERIFY(!local({}));
        QCOMPARE(bridged.names, QStringList{u"⌥⇧ (hold)"_s});
        QVERIFY(!bridged.keys.local);
    }

    void altGrReachesTheRecorderAsWhatItIs()
    {
        Bridged bridged;
        int refusals = 0;
        bridged.recorder.onLevelRefused = counting(refusals);
        bridged.recorder.start();
        bridged.send(QEvent::KeyPress, Qt::Key_AltGr, Qt::NoModifier);
        QCOMPARE(refusals, 1);
        bridged.send(QEvent::KeyRelease, Qt::Key_AltGr, Qt::NoModifier);
        // As one that was latched before.
        bridged.send(QEvent::KeyPress, Qt::Key_E, Qt::ControlModifier | Qt::GroupSwitchModifier);
        QCOMPARE(refusals, 2);
        bridged.send(QEvent::KeyPress, Qt::Key_E, Qt::ControlModifier);
        QCOMPARE(bridged.names, QStringList{u"⌃E"_s});
    }

    void windowThatLosesTheKeyboardEndsTheRecording()
    {
        Bridged bridged;
        QVERIFY(QTest::qWaitForWindowActive(&bridged.window));
        bridged.recorder.start();
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!bridged.recorder.isRecording());
    }
};

QTEST_MAIN(HotKeyRecorderBridgeTest)
#include "HotKeyRecorderBridgeTest.moc"
