// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Views/OnboardingTour.h>
#include <TavikLauncher/Views/OnboardingView.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;

class OnboardingViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstRowSpeaksOfTheShortcut_data()
    {
        constexpr quint64 modifiers = ModifierFlags::control | ModifierFlags::option;
        HotKeyConfig renamed = HotKeyConfig::make(modifiers, std::nullopt);
        renamed.displayName = u"⌃ (hold)%1⌥ (hold)"_s;

        QTest::addColumn<HotKeyConfig>("hotKey");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("beginning");
        QTest::newRow("default") << HotKeyConfig::defaultConfig() << u"Hold the shortcut"_s
                                 << u"Press and hold ⌃⌥ to open the ring at the pointer. Release"_s;
        QTest::newRow("every mark is removed")
            << renamed << u"Hold the shortcut"_s << u"Press and hold ⌃%1⌥ to open the ring"_s;
        QTest::newRow("with a key")
            << HotKeyConfig::make(modifiers, 49) << u"Press the shortcut"_s
            << u"Press ⌃⌥Space to toggle the ring at the pointer. Press it again or hit Esc"_s;
    }
    void theFirstRowSpeaksOfTheShortcut()
    {
        QFETCH(HotKeyConfig, hotKey);
        QFETCH(QString, beginning);
        const QList<TourRow> rows = tourRows(hotKey);
        QCOMPARE(rows.size(), 4);
        QTEST(rows.front().title, "title");
        QVERIFY2(rows.front().detail.startsWith(beginning), qPrintable(rows.front().detail));
        QVERIFY(rows.front().detail.endsWith(u" Go ahead — try it right now!"_s));
    }

    void everythingIsShownWhole()
    {
        OnboardingView view(HotKeyConfig::defaultConfig(), {});
        view.resize(560, 420);
        view.show();
        QCOMPARE(view.width(), 560);
        QVERIFY(view.height() <= 420);
        const QList<QLabel*> labels = view.findChildren<QLabel*>();
        QCOMPARE(labels.size(), 10);
        for (const QLabel* label : labels) {
            QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                     qPrintable(label->text()));
        }
    }

    void buttonsAndKeysLeadOn()
    {
        int finished = 0;
        int settings = 0;
        OnboardingView view(HotKeyConfig::defaultConfig(),
                            {.onFinish = [&] { ++finished; },
                             .onOpenSettings =
                                 [&] {
                                     ++settings;
                                 }});
        view.show();
        for (QPushButton* button : view.findChildren<QPushButton*>()) {
            QTest::mouseClick(button, Qt::LeftButton);
        }
        QCOMPARE(finished, 1);
        QCOMPARE(settings, 1);
        // Escape dismisses the ring that is being tried out, not the tour.
        QTest::keyClick(view.focusWidget(), Qt::Key_Escape);
        QCOMPARE(finished, 1);
        QTest::keyClick(view.focusWidget(), Qt::Key_Return);
        QCOMPARE(finished, 2);
        QTest::keyClick(view.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QTest::keyClick(view.focusWidget(), Qt::Key_Space);
        QCOMPARE(settings, 2);
    }
};

QTEST_MAIN(OnboardingViewTest)
#include "OnboardingViewTest.moc"
