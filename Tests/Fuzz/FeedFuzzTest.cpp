// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/SafeReleaseNotes.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastReader.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastSelection.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastVersion.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateUrls.h>

#include <QRegularExpression>
#include <QTest>

#include <Fuzz/Mutator.h>

using namespace Tavik;
using Test::tryDamaged;
using namespace Qt::StringLiterals;

namespace {

const QByteArray notes
    = "<h2>New &amp; <i>better</i></h2><script src='a'>b</script>\n"
      "<ul class='c'><li>One <a "
      "href='https://example.org/?a=1&amp;b=2'>link</a><li><b>Two</b></ul>\n"
      "<pre>c</pre><img src='https://example.org/d'><table><tr><td>e</table><!-- f --> &#x67;";

/// Every element there is, twice, with different versions.
QByteArray wellFormedFeed()
{
    const QByteArray item
        = "<item><title>\xC3\x84pp 2</title><link>https://example.org/2</link>\n"
          "<sparkle:version>2.0b1</sparkle:version>"
          "<sparkle:shortVersionString>2.0</sparkle:shortVersionString>\n"
          "<sparkle:channel></sparkle:channel>"
          "<sparkle:releaseNotesLink>notes.html</sparkle:releaseNotesLink>\n"
          "<pubDate>Mon, 05 Oct 2015 19:20:11 +0200</pubDate><description xml:lang='en'><![CDATA["
        + notes
        + "]]></description>\n"
          "<sparkle:minimumSystemVersion>5.10</sparkle:minimumSystemVersion>\n"
          "<sparkle:maximumSystemVersion>7</sparkle:maximumSystemVersion>\n"
          "<sparkle:phasedRolloutInterval>86400</sparkle:phasedRolloutInterval>\n"
          "<sparkle:criticalUpdate sparkle:version='1.5'/>"
          "<sparkle:tags><sparkle:criticalUpdate/></sparkle:tags>\n"
          "<sparkle:informationalUpdate><sparkle:version>1.4</sparkle:version>"
          "<sparkle:belowVersion>1.0</sparkle:belowVersion></sparkle:informationalUpdate>\n"
          "<enclosure url='Tavik%20Launcher.AppImage' length='5' type='application/x-appimage' "
          "sparkle:os='linux' sparkle:edSignature='"
        + QByteArray(64, 's').toBase64() + "'/></item>";
    return "<?xml version='1.0' encoding='utf-8'?>\n<rss version='2.0' "
           "xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel>"
        + item + QByteArray(item).replace("2.0b1", "1.9") + "</channel></rss>";
}

bool isFetchableOrEmpty(const QUrl& url)
{
    return url.isEmpty() || mayFetch(url);
}

bool isInstallable(const AppcastEnclosure& enclosure)
{
    return mayFetch(enclosure.url) && enclosure.length > 0
        && enclosure.length <= UpdateSignature::mostFileBytes
        && enclosure.signature.size() == UpdateSignature::signatureSize;
}

} // namespace

class FeedFuzzTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedFeedsAreRefusedOrSafe()
    {
        const QUrl feedUrl(u"https://example.org/feed.xml"_s);
        tryDamaged(21, wellFormedFeed(), 1000, [&](const QByteArray& damaged, int& understood) {
            const AppcastFeed feed = AppcastReader::read(damaged, {feedUrl, {}});
            if (feed.error) {
                QVERIFY(feed.items.isEmpty() && !feed.error->isEmpty());
                return;
            }
            ++understood;
            for (const AppcastItem& item : feed.items) {
                const UpdateItem& update = item.update;
                QVERIFY(!update.versionString.isEmpty() && !update.displayVersionString.isEmpty());
                QVERIFY(isFetchableOrEmpty(update.infoUrl)
                        && isFetchableOrEmpty(update.releaseNotesUrl));
                QVERIFY(!item.enclosures.isEmpty() || !update.infoUrl.isEmpty());
                for (const AppcastEnclosure& enclosure : item.enclosures) {
                    QVERIFY(enclosure.fault || isInstallable(enclosure));
                }
            }
            const AppcastSelection::Selection selection
                = AppcastSelection::select(feed.items,
                                           {.runningVersion = u"1.0"_s,
                                            .systemVersion = u"6.1"_s,
                                            .now = QDateTime::currentDateTimeUtc(),
                                            .kinds = {u"appimage"_s},
                                            .processor = u"x86_64"_s,
                                            .pageHosts = {u"example.org"_s}});
            QVERIFY(selection.offer.has_value() == selection.reason.isEmpty());
            if (selection.offer) {
                const UpdateItem& update = selection.offer->update;
                QVERIFY(AppcastVersion::compare(u"1.0", update.versionString) < 0);
                QCOMPARE(selection.offer->enclosure.has_value(), !update.isInformationOnly);
                QVERIFY(update.isInformationOnly || isInstallable(*selection.offer->enclosure));
            }
        });
    }

    void damagedNotesLoadNothing()
    {
        static const QRegularExpression written(
            u"<(?!(/?(p|h3|h4|pre|ul|ol|li|blockquote|b|i|u|s|code|a)|br|hr|a href=\"[^\"<>]*\")>)"_s);
        for (const ReleaseNotes::Format format : {ReleaseNotes::Format::html,
                                                  ReleaseNotes::Format::markdown,
                                                  ReleaseNotes::Format::plainText}) {
            tryDamaged(23,
                       notes + "\n\n# a *b* [c](https://example.org) ![d](e)\n- f\n",
                       200,
                       [&](const QByteArray& damaged, int& understood) {
                           const QString text = QString::fromUtf8(damaged);
                           const QString safe
                               = safeReleaseNotesHtml({.format = format, .text = text});
                           QVERIFY2(!written.match(safe).hasMatch(), qPrintable(safe));
                           understood += safe.contains(u"link") ? 1 : 0;
                       });
        }
    }
};

QTEST_MAIN(FeedFuzzTest)
#include "FeedFuzzTest.moc"
