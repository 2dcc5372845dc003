// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/KeyTranslation.h>

#include <QKeyEvent>
#include <QTest>

#include <Support/FakeKeyEvents.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class KeyTranslationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void charactersAreThoseWithoutControlOptionAndCommand_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        const int chord = (Qt::ControlModifier | Qt::AltModifier).toInt();
        QTest::newRow("plain") << int{Qt::Key_A} << 0 << u"a"_s << u"a"_s;
        QTest::newRow("composed") << int{Qt::Key_Eacute} << 0 << u"é"_s << u"é"_s;
        QTest::newRow("control") << int{Qt::Key_A} << int{Qt::ControlModifier} << u"\x01"_s
                                 << u"a"_s;
        QTest::newRow("chord") << int{Qt::Key_3} << chord << QString() << u"3"_s;
        QTest::newRow("chord and shift")
            << int{Qt::Key_A} << (chord | int{Qt::ShiftModifier}) << QString() << u"A"_s;
        QTest::newRow("keypad") << int{Qt::Key_3} << (chord | int{Qt::KeypadModifier}) << QString()
                                << u"3"_s;
        QTest::newRow("no character") << int{Qt::Key_F5} << chord << QString() << QString();
    }

    void charactersAreThoseWithoutControlOptionAndCommand()
    {
        QFETCH(const int, key);
        QFETCH(const int, modifiers);
        QFETCH(const QString, text);
        const FakeKeyEvents keys;
        const QKeyEvent event(
            QEvent::KeyPress, key, Qt::KeyboardModifiers::fromInt(modifiers), text);
        QTEST(KeyTranslation::charactersIgnoringModifiers(event, keys), "expected");
    }

    void digitsOfTheRowAreInOrder()
    {
        const FakeKeyEvents keys;
        for (int digit = 1; digit <= 9; ++digit) {
            const QKeyEvent event(QEvent::KeyPress, Qt::Key_0 + digit, Qt::NoModifier);
            const std::optional<quint16> code = KeyTranslation::keyCode(event, keys);
            QVERIFY(code);
            QCOMPARE(KeyTranslation::digitOfRow(*code), digit);
        }
        QVERIFY(!KeyTranslation::digitOfRow(29)); // Zero.
        QVERIFY(!KeyTranslation::digitOfRow(83)); // One on the keypad.
    }

    void modifiersAfterAKeyIncludeOrLackItsOwn_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("isPress");
        QTest::addColumn<quint64>("expected");
        constexpr quint64 control = ModifierFlags::control;
        QTest::newRow("option down")
            << int{Qt::Key_Alt} << true << quint64{control | ModifierFlags::option};
        QTest::newRow("super down")
            << int{Qt::Key_Super_L} << true << quint64{control | ModifierFlags::command};
        QTest::newRow("control up") << int{Qt::Key_Control} << false << quint64{0};
        QTest::newRow("caps lock") << int{Qt::Key_CapsLock} << true << quint64{control};
    }

    void modifiersAfterAKeyIncludeOrLackItsOwn()
    {
        QFETCH(const int, key);
        QFETCH(const bool, isPress);
        const QKeyEvent event(
            isPress ? QEvent::KeyPress : QEvent::KeyRelease, key, Qt::ControlModifier);
        QVERIFY(KeyTranslation::isModifierKey(event));
        QTEST(KeyTranslation::modifierFlagsAfter(event), "expected");
    }
};

QTEST_MAIN(KeyTranslationTest)
#include "KeyTranslationTest.moc"
