// SPDX-License-Identifier: MIT
#include "SettingsWindowFixture.h"
#include <TavikLauncher/Look/HoverTooltip.h>
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/Slider.h>
#include <TavikLauncher/Views/SettingsWindow/ColorField.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>
#include <TavikLauncher/Views/SettingsWindow/SwatchColors.h>
#include <TavikLauncher/Views/SettingsWindow/SwatchPopover.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using Section = SettingsSection;

namespace {

QImage picture(QWidget& widget)
{
    return widget.grab().toImage();
}

/// As the window system tells of a wheel: only then is it passed on to what lies behind.
void scroll(QWidget& widget, int delta)
{
    const QPointF middle = widget.rect().center();
    QWheelEvent event(middle,
                      widget.mapToGlobal(middle),
                      {},
                      QPoint(0, delta),
                      Qt::NoButton,
                      Qt::NoModifier,
                      Qt::NoScrollPhase,
                      false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&widget, &event);
}

} // namespace

class SettingsControlsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void everyControlIsNamedExplainedAndShowsItsFocus()
    {
        SettingsWindowFixture fixture;
        fixture.settings.addPermanentApp(fixture.path(u"A"_s));
        int count = 0;
        for (const Section& section : allSettingsSections) {
            SettingsPage& page = fixture.open(section.id);
            for (QWidget* control : page.widget()->findChildren<QWidget*>()) {
                const bool isReachable = (control->focusPolicy() & Qt::TabFocus) != 0;
                if (!isReachable || !control->isVisible() || !control->isEnabled()) {
                    continue;
                }
                ++count;
                const QString name = control->accessibleName();
                QVERIFY2(!name.isEmpty(), control->metaObject()->className());
                // Or a reader says it twice.
                QVERIFY2(control->parentWidget()->accessibleName() != name, qPrintable(name));
                // A part of a control is explained by the whole.
                const bool isExplained = !control->accessibleDescription().isEmpty()
                    || !control->parentWidget()->accessibleDescription().isEmpty();
                const auto* tooltip = control->findChild<HoverTooltip*>();
                // Nothing is said twice to who sees the row.
                for (const QLabel* label : page.widget()->findChildren<QLabel*>()) {
                    QVERIFY2(!tooltip || label->text() != tooltip->text(), qPrintable(name));
                }
                QVERIFY2(isExplained, qPrintable(name));

                fixture.view.setFocus();
                page.ensureWidgetVisible(control);
                const QImage before = picture(*control);
                control->setFocus(Qt::TabFocusReason);
                QVERIFY2(control->hasFocus(), qPrintable(name));
                QVERIFY2(picture(*control) != before, qPrintable(name));
            }
        }
        QVERIFY2(count >= 35, qPrintable(QString::number(count)));
    }

    void tabReachesEveryPageAndWhereThereIsNoControlThePageItself()
    {
        SettingsWindowFixture fixture({}, u"No key."_s);
        fixture.view.setFixedHeight(300); // As large texts leave it.
        QStringList reachedItself;
        for (const Section& section : allSettingsSections) {
            SettingsPage& page = fixture.open(section.id);
            auto& chosen = fixture.control<QAbstractButton>(section.id.toString());
            chosen.setFocus();
            QTest::keyClick(&chosen, Qt::Key_Tab);
            if (page.hasFocus()) {
                reachedItself << page.accessibleName();
            } else {
                QVERIFY(page.isAncestorOf(QApplication::focusWidget()));
            }
        }
        const QStringList expected{u"Updates"_s, u"Check My Desktop"_s};
        QCOMPARE(reachedItself, expected);

        QVERIFY(fixture.open(Section::updates).accessibleDescription().contains(u"No key."_s));
        SettingsPage& page = fixture.open(Section::desktop);
        page.setFocus();
        const QImage focused = picture(page);
        fixture.view.setFocus();
        QVERIFY(picture(page) != focused);
        page.setFocus();
        QTest::keyClick(&page, Qt::Key_PageDown);
        QVERIFY(page.verticalScrollBar()->value() > 0);
        // A repair's button takes its place until it has been pressed.
        using enum LoginItem::Status;
        for (const auto& [login, policy] :
             {std::pair(notRegistered, Qt::NoFocus), {enabled, Qt::TabFocus}}) {
            fixture.desktopFacts.login = login;
            fixture.mainQueue.advance(1);
            fixture.settle();
            QCOMPARE(page.focusPolicy(), policy);
        }
    }

    void theWheelScrollsThePageUnlessASliderHasTheFocus()
    {
        SettingsWindowFixture fixture;
        fixture.view.resize(LauncherSettingsView::smallestSize);
        SettingsPage& page = fixture.open(Section::theme);
        auto& slider = fixture.control<Slider>(u"ringOpacity"_s);
        page.ensureWidgetVisible(&slider);
        const int place = page.verticalScrollBar()->value();
        scroll(slider, -120);
        QCOMPARE(fixture.settings.ringOpacity(), 0.82);
        QVERIFY(page.verticalScrollBar()->value() > place);
        slider.setFocus();
        scroll(slider, -120);
        QVERIFY(fixture.settings.ringOpacity() < 0.82);
    }

    void slidersGoTheOtherWayFromRightToLeft()
    {
        Slider slider;
        slider.resize(200, slider.height());
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            slider.setLayoutDirection(direction);
            QTest::mouseClick(&slider, Qt::LeftButton, {}, {190, slider.height() / 2});
            QCOMPARE(slider.value(), direction == Qt::LeftToRight ? 99 : 0);
            slider.setValue(20);
            // Gripped beside its middle, the knob does not jump.
            const QPoint knob(direction == Qt::LeftToRight ? 48 : 152, slider.height() / 2);
            QTest::mousePress(&slider, Qt::LeftButton, {}, knob + QPoint(6, 0));
            QCOMPARE(slider.value(), 20);
            QTest::mouseRelease(&slider, Qt::LeftButton, {}, knob);
            QTest::keyClick(&slider, Qt::Key_Left);
            QCOMPARE(slider.value(), direction == Qt::LeftToRight ? 19 : 21);
        }
    }

    void colorsAreTypedAndMistypedOnesForgotten()
    {
        SettingsWindowFixture fixture(Section::theme);
        QLineEdit& entry = fixture.control<ColorField>(u"ringColorHex"_s).hexEntry();
        entry.setFocus();
        entry.selectAll();
        QTest::keyClicks(&entry, u"aabb"_s);
        QVERIFY(fixture.changed.isEmpty());
        QTest::keyClicks(&entry, u"cc"_s);
        QCOMPARE(fixture.settings.ringColorHex(), u"#AABBCC"_s);
        // What is typed stays as it is until the field is left.
        QCOMPARE(entry.text(), u"aabbcc"_s);
        QTest::keyClicks(&entry, u"zz"_s);
        QTest::keyClick(&entry, Qt::Key_Return);
        QCOMPARE(entry.text(), u"#AABBCC"_s);
        QCOMPARE(fixture.changed, QStringList{u"ringColorHex"_s});
    }

    void swatchesArePickedByKeyboard()
    {
        SettingsWindowFixture fixture(Section::theme);
        auto& well = fixture.control<ColorField>(u"highlightColorHex"_s).well();
        well.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&well, Qt::Key_Space);
        auto* popover = fixture.view.findChild<SwatchPopover*>();
        QVERIFY(popover && popover->isVisible());
        QVERIFY(fixture.view.rect().contains(popover->geometry()));
        const auto buttons = popover->findChildren<QAbstractButton*>();
        // And the way to all other colours.
        QCOMPARE(std::size_t(buttons.size()), darkSwatches().size() + accentSwatches().size() + 1);
        // The stored color is one of them, so it has the focus.
        QWidget* focused = QApplication::focusWidget();
        QCOMPARE(focused->accessibleName(), u"Blue"_s);
        QTest::keyClick(focused, Qt::Key_Right);
        QCOMPARE(fixture.settings.highlightColorHex(), accentSwatches()[1].hex);
        // Tab goes round inside; Escape takes back what was picked.
        for (qsizetype i = 0; i < buttons.size(); ++i) {
            const QWidget* before = QApplication::focusWidget();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QVERIFY(popover->isAncestorOf(QApplication::focusWidget()));
            QVERIFY(QApplication::focusWidget() != before);
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(well.hasFocus());
        QCOMPARE(fixture.settings.highlightColorHex(), u"#0A84FF"_s);
        fixture.settle();
        QCOMPARE(fixture.view.findChild<SwatchPopover*>(), nullptr);
    }

    void theSwatchesGoWhenSomethingElseIsDone()
    {
        SettingsWindowFixture fixture(Section::theme);
        auto& well = fixture.control<ColorField>(u"ringColorHex"_s).well();
        const auto isOpen = [&] {
            fixture.settle();
            return fixture.view.findChild<SwatchPopover*>() != nullptr;
        };
        QTest::mouseClick(&well, Qt::LeftButton);
        QVERIFY(isOpen());
        QTest::mouseClick(&well, Qt::LeftButton);
        QVERIFY(!isOpen());
        well.click();
        fixture.view.showSection(u"hints"_s);
        QVERIFY(!isOpen());
        fixture.view.showSection(u"theme"_s);
        well.click();
        fixture.view.close();
        QVERIFY(!isOpen());
    }

    void colorsFollowTheDesktopAtOnce()
    {
        SettingsWindowFixture fixture;
        fixture.view.resize(LauncherSettingsView::preferredSize);
        QApplication::setPalette(QPalette(QColor(230, 230, 230), QColor(240, 240, 240)));
        fixture.open(Section::appearance);
        QCOMPARE(picture(fixture.view).pixelColor(500, 690), QColor(0xF4, 0xF5, 0xF7));
        QApplication::setPalette(QPalette(QColor(50, 50, 50), QColor(30, 30, 30)));
        fixture.settle();
        QCOMPARE(picture(fixture.view).pixelColor(20, 690), QColor(0x26, 0x27, 0x2B));
        // Texts and controls follow as well.
        for (const Label* label : fixture.view.findChildren<Label*>()) {
            QVERIFY(label->palette().color(label->foregroundRole()).lightness() > 128);
        }
    }

    void endlessNamesPushNothingOutOfTheWindow()
    {
        SettingsWindowFixture fixture;
        fixture.view.resize(LauncherSettingsView::preferredSize);
        const auto widthBeyondWindow = [&] {
            fixture.settle();
            const SettingsPage& page = *fixture.view.page();
            return page.widget()->width() - page.viewport()->width();
        };
        fixture.settings.hotKeyConfig.set({0x40000, 49, QString(4000, u'w')});
        fixture.open(Section::shortcut);
        QVERIFY(widthBeyondWindow() <= 0);
        fixture.chosenFile = u'/' + QString(250, u'w');
        fixture.open(Section::backup);
        fixture.click(u"importSettings"_s);
        QVERIFY(!fixture.message(u"backupMessage"_s).isEmpty());
        QVERIFY(widthBeyondWindow() <= 0);
    }
};

QTEST_MAIN(SettingsControlsTest)
#include "SettingsControlsTest.moc"
