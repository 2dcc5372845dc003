// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/ColorText.h>
#include <TavikLauncher/Settings/ThemePreset.h>

#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;

class ThemeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colorTextIsReadLeniently_data();
    void colorTextIsReadLeniently();
    void colorTextComesBackFromEveryColor_data();
    void colorTextComesBackFromEveryColor();
    void presetsAreTellableApartAndDrawable();
};

void ThemeTest::colorTextIsReadLeniently_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isColor");
    for (const auto& text : {u"#0A84FF"_s, u"#0a84ff"_s, u"0A84FF"_s, u"##0A84fF##"_s}) {
        QTest::addRow("%s", qPrintable(text)) << text << true;
    }
    for (const auto& text : {u"#0A84F"_s,
                             u"#0A84FFF"_s,
                             u"#GG0000"_s,
                             u"+0A84F"_s,
                             u"-0A84F"_s,
                             u"0x0A84"_s,
                             u" A84FF"_s,
                             u"#0A#4FF"_s,
                             u"٠٠٠٠٠٠"_s,
                             u"###"_s,
                             u""_s}) {
        QTest::addRow("'%s'", qPrintable(text)) << text << false;
    }
}

void ThemeTest::colorTextIsReadLeniently()
{
    QFETCH(const QString, text);
    QFETCH(const bool, isColor);
    const QColor fallback(1, 2, 3, 4);
    QCOMPARE(ColorText::color(text, fallback), isColor ? QColor(0x0A, 0x84, 0xFF) : fallback);
}

void ThemeTest::colorTextComesBackFromEveryColor_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("text");
    QTest::newRow("small components") << QColor(0, 1, 15) << u"#00010F"_s;
    QTest::newRow("alpha is left out") << QColor(0x0A, 0x84, 0xFF, 9) << u"#0A84FF"_s;
    QTest::newRow("rounded, not cut") << QColor::fromRgbF(0.499F, 0.998F, 0.9999F) << u"#7FFEFF"_s;
    QTest::newRow("another model") << QColor::fromHsv(120, 255, 255) << u"#00FF00"_s;
    QTest::newRow("wider than sRGB") << QColor::fromRgbF(1.5F, -0.5F, 0.0F) << u"#FF0000"_s;
}

void ThemeTest::colorTextComesBackFromEveryColor()
{
    QFETCH(const QColor, color);
    QFETCH(const QString, text);
    QCOMPARE(ColorText::hexString(color), text);
}

void ThemeTest::presetsAreTellableApartAndDrawable()
{
    QSet<QString> ids;
    for (const ThemePreset& preset : ThemePreset::presets()) {
        ids.insert(preset.id);
        for (const QString& text : {preset.ringColorHex, preset.highlightColorHex}) {
            QCOMPARE(ColorText::hexString(ColorText::color(text, {})), text);
        }
        for (const double opacity :
             {preset.ringOpacity, preset.highlightOpacity, preset.pillOpacity}) {
            QVERIFY(opacity >= 0.2 && opacity <= 1);
        }
    }
    QCOMPARE(ids.size(), 6);
    QCOMPARE(ThemePreset::presets().first().name, u"Tavik Classic"_s);
}

QTEST_APPLESS_MAIN(ThemeTest)

#include "ThemeTest.moc"
