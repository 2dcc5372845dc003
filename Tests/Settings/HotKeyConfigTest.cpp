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
    void makeNamesTheGesture_data()
    {
        using namespace ModifierFlags;
        QTest::addColumn<quint64>("flags");
        QTest::addColumn<KeyCode>("keyCode");
        QTest::addColumn<Characters>("characters");
        QTest::addColumn<QString>("name");
        QTest::newRow("hold") << (control | option) << KeyCode() << Characters() << u"⌃⌥ (hold)"_s;
        QTest::newRow("all") << all << KeyCode(49) << Characters(u" "_s) << u"⌃⌥⇧⌘Space"_s;
        QTest::newRow("longer in upper case")
            << control << KeyCode(27) << Characters(u"ß"_s) << u"⌃SS"_s;
        QTest::newRow("no characters") << control << KeyCode(42) << Characters() << u"⌃Key42"_s;
        QTest::newRow("empty characters")
            << control << KeyCode(42) << Characters(QString()) << u"⌃"_s;
        QTest::newRow("named key first")
            << control << KeyCode(53) << Characters(u"\u001b"_s) << u"⌃Esc"_s;
        QTest::newRow("F10") << option << KeyCode(109) << Characters() << u"⌥F10"_s;
        QTest::newRow("A is code 0") << option << KeyCode(0) << Characters() << u"⌥Key0"_s;
    }

    void makeNamesTheGesture()
    {
        QFETCH(const quint64, flags);
        QFETCH(const KeyCode, keyCode);
        QFETCH(const Characters, characters);
        const auto config = HotKeyConfig::make(flags, keyCode, characters);
        QTEST(config.displayName, "name");
        QCOMPARE(config.modifierFlagsRaw, flags);
        QCOMPARE(config.keyCode, keyCode);
    }

    void makeKeepsNoDeviceDependentFlags()
    {
        QCOMPARE(HotKeyConfig::make(0xC0101, std::nullopt), HotKeyConfig::defaultConfig());
        QCOMPARE(HotKeyConfig::defaultConfig().modifierFlagsRaw, quint64{0xC0000});
    }

    void jsonKeepsTheRecordAndItsName()
    {
        for (const HotKeyConfig& config : {
                 HotKeyConfig{0xC0000, std::nullopt, u"⌃⌥ (hold)"_s},
                 HotKeyConfig{0x100000, 0, u"\"\\\u2028 \u00e9😀"_s},
                 HotKeyConfig{~quint64{0xFFFF}, 65535, QString()},
                 HotKeyConfig{0x7FFFFFFFFFFF0000, 1, u"more than a double counts"_s},
             }) {
            QCOMPARE(HotKeyConfig::fromJson(config.toJson()), config);
            QCOMPARE(config.toJson().contains("keyCode"), config.keyCode.has_value());
        }
    }

    void jsonIsReadStrictly_data();

    void jsonIsReadStrictly()
    {
        QFETCH(const QByteArray, json);
        QTEST(HotKeyConfig::fromJson(json).has_value(), "accepted");
    }
};

// Outside of the class: moc 6.4 loses its way in raw strings.
void HotKeyConfigTest::jsonIsReadStrictly_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("accepted");
    const auto row = [](const char* name, const QByteArray& members, bool accepted) {
        QTest::newRow(name) << '{' + members + '}' << accepted;
    };
    const QByteArray rest = R"(,"displayName":"x")";
    row("hold form", R"("modifierFlagsRaw":786432)" + rest, true);
    row("absent key code", R"("keyCode":null,"modifierFlagsRaw":786432)" + rest, true);
    row("unknown member", R"("more":[1],"modifierFlagsRaw":786432)" + rest, true);
    row("no name", R"("modifierFlagsRaw":786432)", false);
    row("no flags", R"("displayName":"x")", false);
    row("name of another type", R"("modifierFlagsRaw":786432,"displayName":1)", false);
    row("flags as truth", R"("modifierFlagsRaw":true)" + rest, false);
    row("negative flags", R"("modifierFlagsRaw":-65536)" + rest, false);
    row("broken flags", R"("modifierFlagsRaw":786432.5)" + rest, false);
    row("flags beyond 64 bits", R"("modifierFlagsRaw":18446744073709551616)" + rest, false);
    row("flags beyond everything", R"("modifierFlagsRaw":1e999)" + rest, false);
    row("key code too large", R"("keyCode":65536,"modifierFlagsRaw":786432)" + rest, false);
    row("key code as text", R"("keyCode":"1","modifierFlagsRaw":786432)" + rest, false);
    QTest::newRow("array") << QByteArray("[]") << false;
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("deep") << QByteArray(60'000, '[') << false;
    row("huge",
        R"("modifierFlagsRaw":786432,"displayName":")" + QByteArray(1 << 20, 'x') + '"',
        false);
}

QTEST_APPLESS_MAIN(HotKeyConfigTest)

#include "HotKeyConfigTest.moc"
