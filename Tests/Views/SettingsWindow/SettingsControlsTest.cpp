// SPDX-License-Identifier: MIT
#include "SettingsWindowFixture.h"
#include <TavikLauncher/Settings/ThemePreset.h>
#include <TavikLauncher/Views/HoverTooltip.h>
#include <TavikLauncher/Views/SettingsWindow/ColorField.h>
#include <TavikLauncher/Views/SettingsWindow/SegmentedChoice.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsLabel.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsLook.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSidebar.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSlider.h>
#include <TavikLauncher/Views/SettingsWindow/SwatchColors.h>
#include <TavikLauncher/Views/SettingsWindow/SwatchPopover.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLineEdit>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
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

/// Every widget of the shown page that the keyboard can reach.
QList<QWidget*> reachableControls(const SettingsPage& page)
{
    QList<QWidget*> controls;
    for (QWidget* widget : page.widget()->findChildren<QWidget*>()) {
        const bool isReachable = (widget->focusPolicy() & Qt::TabFocus) != 0;
        if (isReachable && widget->isVisible() && widget->isEnabled()) {
            controls.append(widget);
        }
    }
    return controls;
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

/// Puts the view into a window of its own, as the program does, for as long as it lives.
class Framed final
{
public:
    Framed(LauncherSettingsView& view, bool isFramed)
        : m_view(view)
    {
        if (isFramed) {
            m_window.emplace();
            auto* layout = new QVBoxLayout(&*m_window);
            layout->setContentsMargins({});
            layout->addWidget(&view);
            m_window->resize(LauncherSettingsView::preferredSize);
            m_window->show();
        }
    }
    ~Framed() { m_view.setParent(nullptr); }
    Framed(const Framed&) = delete;
    Framed& operator=(const Framed&) = delete;

private:
    LauncherSettingsView& m_view;
    std::optional<QWidget> m_window;
};

} // namespace

class SettingsControlsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void everyControlIsNamedExplainedAndShowsItsFocus_data();
    void everyControlIsNamedExplainedAndShowsItsFocus();
    void assistiveTechnologySeesWhatControlsAre();
    void tabReachesTheChosenOfSeveral();
    void slidersFollowThePointer();
    void theWheelScrollsThePageUnlessASliderHasTheFocus();
    void slidersLeapAndGoToTheirEnds();
    void colorsAreTypedAndMistypedOnesForgotten();
    void swatchesArePickedByKeyboard();
    void theSwatchesGoWhenSomethingElseIsDone();
    void colorsFollowTheDesktopAtOnce_data();
    void colorsFollowTheDesktopAtOnce();
    void theCloseShortcutClosesTheWholeWindow();
    void nothingIsCutOffInTheSmallestWindow_data();
    void nothingIsCutOffInTheSmallestWindow();
};

void SettingsControlsTest::everyControlIsNamedExplainedAndShowsItsFocus_data()
{
    QTest::addColumn<QString>("section");
    for (const Section& section : allSettingsSections) {
        QTest::newRow(qPrintable(section.title.toString())) << section.id.toString();
    }
}

void SettingsControlsTest::everyControlIsNamedExplainedAndShowsItsFocus()
{
    QFETCH(const QString, section);
    SettingsWindowFixture fixture;
    fixture.settings.addPermanentApp(fixture.path(u"A"_s));
    SettingsPage& page = fixture.open(section);
    const QList<QWidget*> controls = reachableControls(page);
    QVERIFY(!controls.isEmpty());
    for (QWidget* control : controls) {
        const QString name = control->accessibleName();
        QVERIFY2(!name.isEmpty(), control->metaObject()->className());
        // A part of a control is explained by the whole.
        const bool isExplained = control->findChild<HoverTooltip*>()
            || control->parentWidget()->findChild<HoverTooltip*>({}, Qt::FindDirectChildrenOnly);
        QVERIFY2(isExplained, qPrintable(name));

        fixture.view.setFocus();
        page.ensureWidgetVisible(control);
        const QImage before = picture(*control);
        control->setFocus(Qt::TabFocusReason);
        QVERIFY2(control->hasFocus(), qPrintable(name));
        QVERIFY2(picture(*control) != before, qPrintable(name));
    }
}

void SettingsControlsTest::assistiveTechnologySeesWhatControlsAre()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::appearance);
    QAccessibleInterface* slider
        = QAccessible::queryAccessibleInterface(&fixture.control<QWidget>(u"ringDiameter"_s));
    QCOMPARE(slider->role(), QAccessible::Slider);
    QCOMPARE(slider->text(QAccessible::Name), u"Diameter"_s);
    QCOMPARE(slider->valueInterface()->currentValue().toInt(), 320);
    QCOMPARE(slider->valueInterface()->maximumValue().toInt(), 550);
    slider->valueInterface()->setCurrentValue(333);
    QCOMPARE(fixture.settings.ringDiameter(), 333.0);

    QAccessibleInterface* toggle
        = QAccessible::queryAccessibleInterface(&fixture.control<QWidget>(u"showsAppNames"_s));
    QCOMPARE(toggle->role(), QAccessible::CheckBox);
    QVERIFY(toggle->state().checked);
    QCOMPARE(toggle->text(QAccessible::Name), u"Show application names"_s);

    fixture.open(Section::updates);
    const auto& choice = fixture.control<SegmentedChoice>(u"updateCheckFrequency"_s);
    QAccessibleInterface* segment
        = QAccessible::queryAccessibleInterface(choice.segments().constFirst());
    QCOMPARE(segment->role(), QAccessible::RadioButton);
    QCOMPARE(segment->text(QAccessible::Name), u"Frequency: Daily"_s);
    QVERIFY(segment->state().checked);
}

void SettingsControlsTest::tabReachesTheChosenOfSeveral()
{
    SettingsWindowFixture fixture;
    fixture.settings.applyTheme(ThemePreset::presets().at(2));
    QStringList stops;
    for (const QStringView section : {Section::hints, Section::theme}) {
        SettingsPage& page = fixture.open(section);
        fixture.control<QWidget>(section.toString()).setFocus();
        for (const QWidget* before = nullptr; QApplication::focusWidget() != before;) {
            before = QApplication::focusWidget();
            QTest::keyClick(fixture.view.window(), Qt::Key_Tab);
            const auto* reached = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
            if (reached && reached->autoExclusive()) {
                stops.append(reached->text());
            }
            if (!page.isAncestorOf(QApplication::focusWidget())) {
                break;
            }
        }
    }
    QCOMPARE(stops, (QStringList{u"25"_s, u"Hints"_s, u"Graphite Ember"_s, u"Theme"_s}));
}

void SettingsControlsTest::slidersFollowThePointer()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::appearance);
    auto& slider = fixture.control<SettingsSlider>(u"maxVisibleApps"_s);
    QTest::mousePress(&slider, Qt::LeftButton, {}, slider.knobCenter(5));
    QCOMPARE(fixture.settings.maxVisibleApps(), 5);
    QTest::mouseMove(&slider, slider.knobCenter(20));
    QCOMPARE(fixture.settings.maxVisibleApps(), 20);
    QTest::mouseMove(&slider, QPoint(-500, 0));
    QCOMPARE(fixture.settings.maxVisibleApps(), 1);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, slider.knobCenter(1));
    QTest::mouseMove(&slider, slider.knobCenter(9));
    QCOMPARE(fixture.settings.maxVisibleApps(), 1);
}

void SettingsControlsTest::theWheelScrollsThePageUnlessASliderHasTheFocus()
{
    SettingsWindowFixture fixture;
    fixture.view.resize(LauncherSettingsView::smallestSize);
    SettingsPage& page = fixture.open(Section::theme);
    auto& slider = fixture.control<SettingsSlider>(u"ringOpacity"_s);
    page.ensureWidgetVisible(&slider);
    const int place = page.verticalScrollBar()->value();
    scroll(slider, -120);
    QCOMPARE(fixture.settings.ringOpacity(), 0.82);
    QVERIFY(page.verticalScrollBar()->value() > place);
    slider.setFocus();
    scroll(slider, -120);
    QVERIFY(fixture.settings.ringOpacity() < 0.82);
}

void SettingsControlsTest::slidersLeapAndGoToTheirEnds()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::appearance);
    auto& slider = fixture.control<SettingsSlider>(u"ringDiameter"_s);
    const QList<std::pair<Qt::Key, double>> steps{{Qt::Key_End, 550},
                                                  {Qt::Key_Right, 550},
                                                  {Qt::Key_PageDown, 540},
                                                  {Qt::Key_Left, 539},
                                                  {Qt::Key_Home, 250},
                                                  {Qt::Key_PageUp, 260},
                                                  {Qt::Key_Up, 261}};
    for (const auto& [key, diameter] : steps) {
        QTest::keyClick(&slider, key);
        QCOMPARE(fixture.settings.ringDiameter(), diameter);
    }
}

void SettingsControlsTest::colorsAreTypedAndMistypedOnesForgotten()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::theme);
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

void SettingsControlsTest::swatchesArePickedByKeyboard()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::theme);
    auto& well = fixture.control<ColorField>(u"highlightColorHex"_s).well();
    well.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&well, Qt::Key_Space);
    auto* popover = fixture.view.findChild<SwatchPopover*>();
    QVERIFY(popover && popover->isVisible());
    QVERIFY(fixture.view.rect().contains(popover->geometry()));
    const auto buttons = popover->findChildren<QAbstractButton*>();
    QCOMPARE(std::size_t(buttons.size()), darkSwatches().size() + accentSwatches().size());
    // The stored color is one of them, so it has the focus.
    QWidget* focused = QApplication::focusWidget();
    QCOMPARE(focused->accessibleName(), u"Blue"_s);
    QTest::keyClick(focused, Qt::Key_Right);
    QCOMPARE(fixture.settings.highlightColorHex(), accentSwatches()[1].hex);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(well.hasFocus());
    fixture.settle();
    QCOMPARE(fixture.view.findChild<SwatchPopover*>(), nullptr);
}

void SettingsControlsTest::theSwatchesGoWhenSomethingElseIsDone()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::theme);
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

void SettingsControlsTest::colorsFollowTheDesktopAtOnce_data()
{
    QTest::addColumn<bool>("isInsideAWindow");
    QTest::newRow("a window itself") << false;
    QTest::newRow("inside a window") << true;
}

void SettingsControlsTest::colorsFollowTheDesktopAtOnce()
{
    QFETCH(const bool, isInsideAWindow);
    SettingsWindowFixture fixture;
    const Framed frame(fixture.view, isInsideAWindow);
    QApplication::setPalette(QPalette(QColor(230, 230, 230), QColor(240, 240, 240)));
    fixture.open(Section::appearance);
    const QPoint page(500, 690);
    const QPoint sidebar(20, 690);
    QCOMPARE(picture(fixture.view).pixelColor(page), QColor(0xF4, 0xF5, 0xF7));
    QApplication::setPalette(QPalette(QColor(50, 50, 50), QColor(30, 30, 30)));
    fixture.settle();
    const QImage dark = picture(fixture.view);
    QCOMPARE(dark.pixelColor(page), QColor(0x1E, 0x1F, 0x22));
    QCOMPARE(dark.pixelColor(sidebar), QColor(0x26, 0x27, 0x2B));
    // Texts and controls follow as well.
    for (const SettingsLabel* label : fixture.view.findChildren<SettingsLabel*>()) {
        QVERIFY(label->palette().color(label->foregroundRole()).lightness() > 128);
    }
}

void SettingsControlsTest::theCloseShortcutClosesTheWholeWindow()
{
    SettingsWindowFixture fixture;
    const Framed frame(fixture.view, true);
    fixture.open(Section::general);
    QTest::keyClick(&fixture.view, Qt::Key_W, Qt::ControlModifier);
    QVERIFY(!fixture.view.window()->isVisible());
}

void SettingsControlsTest::nothingIsCutOffInTheSmallestWindow_data()
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<double>("factor");
    QTest::addColumn<bool>("isChangedWhileOpen");
    for (const double factor : {1.0, 1.5}) {
        for (const Section& section : allSettingsSections) {
            const QByteArray title = section.title.toUtf8();
            QTest::addRow("%s %.1f", title.constData(), factor)
                << section.id.toString() << factor << false;
            if (factor > 1) {
                QTest::addRow("%s %.1f, changed while open", title.constData(), factor)
                    << section.id.toString() << factor << true;
            }
        }
    }
}

void SettingsControlsTest::nothingIsCutOffInTheSmallestWindow()
{
    QFETCH(const QString, section);
    QFETCH(const double, factor);
    QFETCH(const bool, isChangedWhileOpen);
    const QFont usual = QApplication::font();
    const auto restore = qScopeGuard([&] { QApplication::setFont(usual); });
    SettingsWindowFixture fixture;
    const Framed frame(fixture.view, true);
    if (isChangedWhileOpen) {
        fixture.open(section);
    }
    QApplication::setFont(scaledFont(usual, factor));
    fixture.view.window()->resize(LauncherSettingsView::smallestSize);
    const SettingsPage& page = fixture.open(section);
    fixture.settle();
    QCOMPARE(fixture.view.size(), LauncherSettingsView::smallestSize);
    for (const QAbstractButton* title :
         fixture.control<SettingsSidebar>({}).findChildren<QAbstractButton*>()) {
        QVERIFY2(title->width() >= title->sizeHint().width(), qPrintable(title->text()));
        QVERIFY2(title->visibleRegion().boundingRect() == title->rect(), qPrintable(title->text()));
    }
    // No page is wider than its viewport, and no text lacks the room it needs.
    QVERIFY(page.widget()->width() <= page.viewport()->width());
    for (const SettingsLabel* label : page.findChildren<SettingsLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty()) {
            QVERIFY2(label->height() >= label->heightForWidth(label->width()) || !label->wordWrap(),
                     qPrintable(label->text()));
            QVERIFY2(label->wordWrap() || label->width() >= label->sizeHint().width(),
                     qPrintable(label->text()));
        }
    }
    for (QAbstractButton* button : page.findChildren<QAbstractButton*>()) {
        if (button->isVisible()) {
            const QSize needed = button->minimumSizeHint();
            QVERIFY2(button->width() >= needed.width() && button->height() >= needed.height(),
                     qPrintable(button->accessibleName()));
        }
    }
}

QTEST_MAIN(SettingsControlsTest)
#include "SettingsControlsTest.moc"
