// SPDX-License-Identifier: MIT
#include <TavikLauncher/Languages/Languages.h>
#include <TavikLauncher/Settings/LaunchHints.h>
#include <TavikLauncher/Views/SettingsWindow/LauncherSettingsView.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QTest>
#include <QTranslator>

#include <Gallery/Scenes.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/Table.h>
#include <algorithm>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// One language, spoken until the end of the scope.
struct Spoken
{
    explicit Spoken(const QString& language) { Languages::speak(*qApp, language); }
    ~Spoken() { qDeleteAll(catalogs()); }
    Q_DISABLE_COPY_MOVE(Spoken)

    static QList<QTranslator*> catalogs() { return qApp->findChildren<QTranslator*>(); }
};

/// Every text that has less room than it needs.
QStringList cutTexts(const QWidget& view)
{
    QStringList found;
    for (const QLabel* label : view.findChildren<QLabel*>()) {
        const int needed = label->hasHeightForWidth() ? label->heightForWidth(label->width())
                                                      : label->sizeHint().height();
        const bool isNarrow = !label->wordWrap() && label->width() < label->sizeHint().width();
        if (label->isVisible() && !label->text().isEmpty()
            && (isNarrow || label->height() < needed)) {
            found << label->text();
        }
    }
    for (const QAbstractButton* button : view.findChildren<QAbstractButton*>()) {
        const QSize needed = button->minimumSizeHint();
        if (button->isVisible()
            && (button->width() < needed.width() || button->height() < needed.height())) {
            found << button->text() + button->accessibleName();
        }
    }
    if (view.layout() && view.layout()->totalMinimumHeightForWidth(view.width()) > view.height()) {
        found << u"the whole"_s;
    }
    return found;
}

/// What the ring shows in its middle now and then.
QStringList hints()
{
    MemoryUserDefaults defaults;
    QStringList said = LaunchHints::tips();
    said << *LaunchHints::nextHint(defaults, {})
         << Texts::tr("Nothing here yet. Click to add apps in Settings → Permanent Apps.");
    return said;
}

} // namespace

class LanguagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void whoWantsALanguageGetsIt_data()
    {
        const Table<QStringList, QString> row;
        row("of a country", {u"de-AT"_s, u"en"_s}, u"de"_s);
        row("the first that there is", {u"eo"_s, u"ja-JP"_s, u"fr"_s}, u"ja"_s);
        row("English before another", {u"en-GB"_s, u"de-DE"_s}, QString());
        row("none at all", {u"C"_s, u"de"_s}, QString());
    }
    static void whoWantsALanguageGetsIt()
    {
        const auto [wanted, language] = fetch<QStringList, QString>();
        QCOMPARE(Languages::chosen(wanted), language);
    }

    static void nothingIsCutOffInTheSmallestWindow_data()
    {
        const Table<QString> row;
        for (const QString& language : Languages::all()) {
            row(qPrintable(language), language);
        }
    }
    static void nothingIsCutOffInTheSmallestWindow()
    {
        const auto [language] = fetch<QString>();
        const auto width = [](const QString& text) {
            return QFontMetrics(QApplication::font()).horizontalAdvance(text);
        };
        // There is room in the ring for the longest of the English ones.
        const QStringList english = hints();
        const int room = width(*std::ranges::max_element(english, {}, width));
        const Spoken spoken(language);
        QVERIFY(!Spoken::catalogs().isEmpty());
        QVERIFY(Texts::tr("Install") != u"Install"_s);
        QStringList cut;
        GalleryScenes(u"light"_s)
            .drawWindows([&](const QString& name, const QImage&, QWidget* view) {
                if (qobject_cast<LauncherSettingsView*>(view)) {
                    view->resize(LauncherSettingsView::smallestSize);
                    QTest::qWait(0);
                }
                for (const QString& text : cutTexts(*view)) {
                    cut << name + u": "_s + text;
                }
            });
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
        for (const QString& hint : hints()) {
            QVERIFY2(width(hint) <= room, qPrintable(hint));
        }
    }

    static void numbersHaveTheirForms()
    {
        const Spoken spoken(u"de"_s);
        QCOMPARE(Texts::tr("Indexed %n apps", nullptr, 1), u"1 App erfasst"_s);
        QCOMPARE(Texts::tr("Indexed %n apps", nullptr, 2), u"2 Apps erfasst"_s);
    }
};

QTEST_MAIN(LanguagesTest)
#include "LanguagesTest.moc"
