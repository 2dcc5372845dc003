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
    void colorTextIsReadLeniently()
    {
        const QColor fallback(1, 2, 3, 4);
        for (const auto& text : {u"#0A84FF"_s, u"0a84ff"_s, u"##0A84fF##"_s}) {
            QCOMPARE(ColorText::color(text, fallback), QColor(0x0A, 0x84, 0xFF));
        }
        const QString bad
            = u"#0A84F|#0A84FFF|#GG0000|+0A84F|-0A84F|0x0A84| A84FF|#0A#4FF|٠٠٠٠٠٠||#"_s;
        for (const auto& text : bad.split(u'|')) {
            QCOMPARE(ColorText::color(text, fallback), fallback);
        }
    }

    void colorTextComesFromEveryColor()
    {
        using ColorText::hexString;
        QCOMPARE(hexString(QColor(0, 1, 15, 9)), u"#00010F"_s);
        QCOMPARE(hexString(QColor::fromRgbF(0.499F, 0.998F, 0.9999F)), u"#7FFEFF"_s);
        QCOMPARE(hexString(QColor::fromHsv(120, 255, 255)), u"#00FF00"_s);
        QCOMPARE(hexString(QColor::fromRgbF(1.5F, -0.5F, 0.0F)), u"#FF0000"_s); // Beyond sRGB.
    }

    void presetsAreTellableApartAndDrawable()
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
};

QTEST_APPLESS_MAIN(ThemeTest)

#include "ThemeTest.moc"
