// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;

using KeyCode = std::optional<quint16>;
using Characters = std::optional<QString>;
Q_DECLARE_METATYPE(KeyCode)
Q_DECLARE_METATYPE(Characters)

class HotKeyConfigTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void makeNamesTheGesture_data();
    void makeNamesTheGesture();
    void makeKeepsNoDeviceDependentFlags();
    void jsonKeepsTheRecord_data();
    void jsonKeepsTheRecord();
    void jsonIsReadStrictly_data();
    void jsonIsReadStrictly();
    void storedNameIsNotMadeAgain();
};

void HotKeyConfigTest::makeNamesTheGesture_data()
{
    using namespace ModifierFlags;
    QTest::addColumn<quint64>("flags");
    QTest::addColumn<KeyCode>("keyCode");
    QTest::addColumn<Characters>("characters");
    QTest::addColumn<QString>("name");
    QTest::newRow("hold") << (control | option) << KeyCode() << Characters() << u"⌃⌥ (hold)"_s;
    QTest::newRow("all") << all << KeyCode(49) << Characters(u" "_s) << u"⌃⌥⇧⌘Space"_s;
    QTest::newRow("letter") << (command | shift) << KeyCode(40) << Characters(u"k"_s) << u"⇧⌘K"_s;
    QTest::newRow("longer in upper case")
        << control << KeyCode(27) << Characters(u"ß"_s) << u"⌃SS"_s;
    QTest::newRow("no characters") << control << KeyCode(42) << Characters() << u"⌃Key42"_s;
    QTest::newRow("empty characters") << control << KeyCode(42) << Characters(QString()) << u"⌃"_s;
    QTest::newRow("named key first")
        << control << KeyCode(53) << Characters(u"\u001b"_s) << u"⌃Esc"_s;
    QTest::newRow("F10") << option << KeyCode(109) << Characters() << u"⌥F10"_s;
    QTest::newRow("up") << option << KeyCode(126) << Characters() << u"⌥↑"_s;
    QTest::newRow("A is code 0") << option << KeyCode(0) << Characters() << u"⌥Key0"_s;
}

void HotKeyConfigTest::makeNamesTheGesture()
{
    QFETCH(const quint64, flags);
    QFETCH(const KeyCode, keyCode);
    QFETCH(const Characters, characters);
    QFETCH(const QString, name);
    const auto config = HotKeyConfig::make(flags, keyCode, characters);
    QCOMPARE(config.displayName, name);
    QCOMPARE(config.modifierFlagsRaw, flags);
    QCOMPARE(config.keyCode, keyCode);
    QCOMPARE(config.isModifierOnly(), !keyCode.has_value());
}

void HotKeyConfigTest::makeKeepsNoDeviceDependentFlags()
{
    QCOMPARE(HotKeyConfig::make(0xC0101, std::nullopt), HotKeyConfig::defaultConfig());
    QCOMPARE(HotKeyConfig::defaultConfig().modifierFlagsRaw, quint64{0xC0000});
}

void HotKeyConfigTest::jsonKeepsTheRecord_data()
{
    QTest::addColumn<quint64>("flags");
    QTest::addColumn<KeyCode>("keyCode");
    QTest::addColumn<QString>("name");
    QTest::newRow("hold") << quint64{0xC0000} << KeyCode() << u"⌃⌥ (hold)"_s;
    QTest::newRow("key") << quint64{0x100000} << KeyCode(0) << u"\"\\\u2028 \u00e9😀"_s;
    QTest::newRow("all bits") << ~quint64{0xFFFF} << KeyCode(65535) << QString();
    QTest::newRow("more than a double counts")
        << quint64{0x7FFF'FFFF'FFFF'0000} << KeyCode(1) << u"x"_s;
}

void HotKeyConfigTest::jsonKeepsTheRecord()
{
    QFETCH(const quint64, flags);
    QFETCH(const KeyCode, keyCode);
    QFETCH(const QString, name);
    const HotKeyConfig config{flags, keyCode, name};
    QCOMPARE(HotKeyConfig::fromJson(config.toJson()), config);
    QCOMPARE(config.toJson().contains("keyCode"), keyCode.has_value());
}

void HotKeyConfigTest::jsonIsReadStrictly_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("accepted");
    const auto row = [](const char* name, const QByteArray& members, bool accepted) {
        QTest::newRow(name) << '{' + members + '}' << accepted;
    };
    const QByteArray rest = R"(,"displayName":"x")";
    row("hold form", R"("modifierFlagsRaw":786432)" + rest, true);
    row("whole number with a point", R"("modifierFlagsRaw":786432.0)" + rest, true);
    row("absent key code", R"("keyCode":null,"modifierFlagsRaw":786432)" + rest, true);
    row("unknown member", R"("more":[1],"modifierFlagsRaw":786432)" + rest, true);
    row("no name", R"("modifierFlagsRaw":786432)", false);
    row("no flags", R"("displayName":"x")", false);
    row("name of another type", R"("modifierFlagsRaw":786432,"displayName":1)", false);
    row("flags as text", R"("modifierFlagsRaw":"786432")" + rest, false);
    row("flags as truth", R"("modifierFlagsRaw":true)" + rest, false);
    row("negative flags", R"("modifierFlagsRaw":-65536)" + rest, false);
    row("broken flags", R"("modifierFlagsRaw":786432.5)" + rest, false);
    row("flags beyond 64 bits", R"("modifierFlagsRaw":18446744073709551616)" + rest, false);
    row("flags beyond everything", R"("modifierFlagsRaw":1e999)" + rest, false);
    row("key code too large", R"("keyCode":65536,"modifierFlagsRaw":786432)" + rest, false);
    row("negative key code", R"("keyCode":-1,"modifierFlagsRaw":786432)" + rest, false);
    row("key code as text", R"("keyCode":"1","modifierFlagsRaw":786432)" + rest, false);
    QTest::newRow("array") << QByteArray("[]") << false;
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("deep") << QByteArray(60'000, '[') << false;
    row("huge",
        R"("modifierFlagsRaw":786432,"displayName":")" + QByteArray(1 << 20, 'x') + '"',
        false);
}

void HotKeyConfigTest::jsonIsReadStrictly()
{
    QFETCH(const QByteArray, json);
    QFETCH(const bool, accepted);
    QCOMPARE(HotKeyConfig::fromJson(json).has_value(), accepted);
}

void HotKeyConfigTest::storedNameIsNotMadeAgain()
{
    const auto config = HotKeyConfig::fromJson(
        R"({"modifierFlagsRaw":786432,"keyCode":49,"displayName":"mine"})");
    QVERIFY(config);
    QCOMPARE(*config, (HotKeyConfig{0xC0000, 49, u"mine"_s}));
}

QTEST_APPLESS_MAIN(HotKeyConfigTest)

#include "HotKeyConfigTest.moc"
