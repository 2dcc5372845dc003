// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/DesktopPalette.h>
#include <TavikLauncher/Look/Look.h>

#include <QApplication>
#include <QStyle>
#include <QTest>
#include <QWidget>

#include <Support/FakeDesktop.h>
#include <algorithm>
#include <cmath>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// From 1 (none) to 21, as accessibility guidelines compute it.
double contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double channel) {
            return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
            + 0.0722 * linear(color.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

class DesktopPaletteTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void windowsFollowTheDesktopWhileTheyAreOpen()
    {
        const QPalette toolkits = QApplication::palette();
        FakeAppearance appearance;
        QWidget window;
        window.show();
        const DesktopPalette palette(appearance);
        using enum ColorScheme;
        const QHash<QString, ColorScheme> schemes{{u"dark"_s, dark}, {u"light"_s, light}};
        // Asked twice for the same, another answer of the desktop's has changed.
        const QString wishes = u"dark dark light light+ dark+ dark any+ any"_s;
        for (const QString& wish : wishes.split(u' ')) {
            const auto scheme = schemes.value(QString(wish).remove(u'+'), noPreference);
            const bool contrast = wish.contains(u'+');
            appearance.scheme = scheme;
            appearance.contrast = contrast;
            appearance.onChanged();
            QCoreApplication::processEvents();
            const Look look = Look::of(window);
            QCOMPARE(look.isDark, scheme == dark);
            QCOMPARE(look.isContrast, contrast);
            QCOMPARE(QApplication::palette() == toolkits, scheme != dark && !contrast);
        }
    }

    void aThemeWithColorsOfItsOwnKeepsThem()
    {
        QApplication::setPalette(QPalette(QColor(230, 220, 210), QColor(250, 240, 230)));
        const QPalette themes = QApplication::palette();
        FakeAppearance appearance;
        appearance.scheme = ColorScheme::dark;
        const DesktopPalette palette(appearance);
        QCOMPARE(QApplication::palette(), themes);
    }

    void textsCanBeReadInTheDarkAndInTheLight()
    {
        using enum QPalette::ColorRole;
        const auto asked = [](const QPalette& from, const DesktopPalette::Wanted& wanted) {
            return DesktopPalette::replacing(from, wanted).value();
        };
        const QPalette dark = asked(QPalette(Qt::white), {ColorScheme::dark});
        const QPalette light = asked(dark, {ColorScheme::light});
        const QPalette pureDark = asked(light, {ColorScheme::dark, true});
        const QPalette pureLight = asked(dark, {ColorScheme::light, true});
        for (const QPalette& palette : {dark, light, pureDark, pureLight}) {
            for (const auto& [text, ground, least] : {std::tuple(WindowText, Window, 12.0),
                                                      {Text, Base, 12},
                                                      {Text, AlternateBase, 11},
                                                      {ButtonText, Button, 9},
                                                      {ToolTipText, ToolTipBase, 9},
                                                      {PlaceholderText, Base, 4.5},
                                                      {PlaceholderText, Window, 4.5},
                                                      {Link, Window, 4.5},
                                                      {HighlightedText, Highlight, 3}}) {
                const double seen = contrast(palette.color(text), palette.color(ground));
                QVERIFY2(seen >= least,
                         qPrintable(QString::number(text) + u' ' + QString::number(seen)));
            }
            const Look look = Look::of(palette);
            QVERIFY(contrast(look.outline, look.card) >= 3);
            QVERIFY(contrast(look.outline, look.window) >= 3);
        }
    }
};

QTEST_MAIN(DesktopPaletteTest)
#include "DesktopPaletteTest.moc"
