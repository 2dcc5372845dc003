// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/Session/PortalWishes.h>
#include <TavikLauncherPlatform/Linux/X11/X11GrabModifiers.h>

#include <QDBusVariant>
#include <QTest>

namespace Tavik {

class SessionRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keyCodesGoBothWays()
    {
        // Places that the shortcut records name most: A, Space, Up.
        for (const auto& [code, evdev] :
             std::initializer_list<std::pair<quint16, quint16>>{{0, 30}, {49, 57}, {126, 103}}) {
            QCOMPARE(KeyCodes::evdevCode(code), std::optional(evdev));
            QCOMPARE(KeyCodes::virtualKeyCode(evdev), std::optional(code));
        }
        QVERIFY(!KeyCodes::evdevCode(52) && !KeyCodes::evdevCode(0xffff));
        QVERIFY(!KeyCodes::virtualKeyCode(0) && !KeyCodes::virtualKeyCode(0xffff));
    }

    void settingsOfThePortalAreUnderstood()
    {
        const auto asks = [](const char* group, const char* key, const QVariant& value) {
            PortalWishes wishes;
            wishes.take(
                QLatin1String(group), QLatin1String(key), QVariant::fromValue(QDBusVariant(value)));
            return (wishes.reduceMotion() ? u"calm"_qs : QString())
                + (wishes.wantHighContrast() ? u"strong"_qs : QString());
        };
        QCOMPARE(asks("org.gnome.desktop.interface", "enable-animations", false), u"calm"_qs);
        QCOMPARE(asks("org.gnome.desktop.interface", "enable-animations", true), QString());
        QCOMPARE(asks("org.freedesktop.appearance", "reduced-motion", 1U), u"calm"_qs);
        QCOMPARE(asks("org.freedesktop.appearance", "reduced-motion", 0U), QString());
        QCOMPARE(asks("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"0"_qs), u"calm"_qs);
        QCOMPARE(asks("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"odd"_qs), QString());
        QCOMPARE(asks("org.freedesktop.appearance", "contrast", 1U), u"strong"_qs);
        QCOMPARE(asks("org.gnome.desktop.a11y.interface", "high-contrast", true), u"strong"_qs);
        QCOMPARE(asks("org.freedesktop.appearance", "color-scheme", 1U), QString());
    }

    void serverTimeBecomesUptime()
    {
        const auto isAbout = [](double uptime, double expected) {
            return std::abs(uptime - expected) < 0.0015;
        };
        constexpr double wrap = 4294967.296;
        QVERIFY(isAbout(uptimeOfServerTime(5000, 5.004), 5));
        QVERIFY(isAbout(uptimeOfServerTime(1000, 3 * wrap + 1.01), 3 * wrap + 1));
        QVERIFY(isAbout(uptimeOfServerTime(0xffffffff, wrap + 0.01), wrap - 0.001));
        QVERIFY(isAbout(uptimeOfServerTime(5'000'000, 100), 100)); // Of another clock.
    }
};

} // namespace Tavik

QTEST_GUILESS_MAIN(Tavik::SessionRulesTest)
#include "SessionRulesTest.moc"
