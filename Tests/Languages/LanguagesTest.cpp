// SPDX-License-Identifier: MIT
#include <TavikLauncher/Languages/Languages.h>
#include <TavikLauncher/Settings/LaunchHints.h>
#include <TavikLauncher/Views/SettingsWindow/LauncherSettingsView.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QApplication>
#include <QScopeGuard>
#include <QTest>
#include <QTranslator>

#include <Gallery/Scenes.h>
#include <Support/CutTexts.h>
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
        // How large texts are from the start, and after a change while the window is open.
        const Table<QString, double, double> row;
        row("English", {}, 1, 1);
        row("English, large texts while open", {}, 1, 1.5);
        for (const QString& language : QStringList{QString()} + Languages::all()) {
            row(qPrintable(language + u" large texts"_s), language, 1.5, 1.5);
        }
        for (const QString& language : Languages::all()) {
            row(qPrintable(language), language, 1, 1);
        }
    }
    static void nothingIsCutOffInTheSmallestWindow()
    {
        const auto [language, atFirst, later] = fetch<QString, double, double>();
        const auto width = [](const QString& text) {
            return QFontMetrics(QApplication::font()).horizontalAdvance(text);
        };
        // There is room in the ring for the longest of the English ones.
        const QStringList english = hints();
        const int room = width(*std::ranges::max_element(english, {}, width));
        const Spoken spoken(language);
        QCOMPARE(Texts::tr("Install") == u"Install"_s, language.isEmpty());
        for (const QString& hint : hints()) {
            QVERIFY2(width(hint) <= room, qPrintable(hint));
        }
        const QFont usual = QApplication::font();
        const auto restore = qScopeGuard([&usual] { QApplication::setFont(usual); });
        const auto enlarge = [&usual](double factor) {
            QFont font = usual;
            font.setPixelSize(qRound(QFontInfo(usual).pixelSize() * factor));
            QApplication::setFont(font);
        };
        QStringList cut;
        enlarge(atFirst);
        GalleryScenes(u"light"_s)
            .drawWindows([&](const QString& name, const QImage&, QWidget* view) {
                if (later != atFirst) {
                    enlarge(later);
                }
                if (qobject_cast<LauncherSettingsView*>(view)) {
                    view->resize(LauncherSettingsView::smallestSize);
                } else if (later != atFirst) {
                    view->adjustSize(); // As its window does.
                }
                // A new font makes each layout tell the one around it by an event, and a text that
                // needs another height then makes its own layout begin anew.
                const auto places = [view] {
                    QList<QRect> all;
                    for (const QWidget* child : view->findChildren<QWidget*>()) {
                        all << child->geometry();
                    }
                    return all;
                };
                for (QList<QRect> before; before != places();) {
                    before = places();
                    QCoreApplication::sendPostedEvents();
                }
                for (const QString& text : cutTexts(*view)) {
                    cut << name + u": "_s + text;
                }
                if (later != atFirst) {
                    enlarge(atFirst);
                }
            });
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
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
