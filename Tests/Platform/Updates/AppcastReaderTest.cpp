// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastReader.h>

#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QUrl feedUrl(u"https://example.org/tavik/feed.xml"_s);
const QByteArray signature = QByteArray(64, 's').toBase64();

QByteArray feed(const QByteArray& items)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rss version=\"2.0\" "
           "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">\n"
           "<channel><title>Changes</title><link>https://example.org</link>"
        + items + "</channel></rss>";
}

QByteArray enclosure(const QByteArray& more = {})
{
    return "<enclosure url='a.AppImage' length='5' sparkle:edSignature='" + signature + "' " + more
        + "/>";
}

QByteArray version(const QByteArray& more = {})
{
    return "<sparkle:version>2</sparkle:version>" + more;
}

QByteArray item(const QByteArray& content)
{
    return "<item>" + content + "</item>";
}

AppcastItem only(const QByteArray& items)
{
    const AppcastFeed read = AppcastReader::read(feed(items), feedUrl);
    return read.items.size() == 1 && !read.error ? read.items.first() : AppcastItem();
}

} // namespace

class AppcastReaderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingThatIsDocumentedIsRead();
    void olderFormsMeanTheSame_data();
    void olderFormsMeanTheSame();
    void datesAreReadAsTheyAreFound_data();
    void datesAreReadAsTheyAreFound();
    void itemsForOthersAreLeftOut_data();
    void itemsForOthersAreLeftOut();
    void theFileForLinuxIsPreferred();
    void filesThatCannotBeInstalledSayWhy_data();
    void filesThatCannotBeInstalledSayWhy();
    void englishNotesArePreferred();
    void textsAreShortenedAndFreeOfTricks();
    void hostileFeedsAreRefused_data();
    void hostileFeedsAreRefused();
};

void AppcastReaderTest::everythingThatIsDocumentedIsRead()
{
    const AppcastItem read = only(item(R"(
        <title> Version 2 &amp; more </title>
        <link>https://example.org/2</link>
        <sparkle:version>2000</sparkle:version>
        <sparkle:shortVersionString>2.0</sparkle:shortVersionString>
        <sparkle:channel>beta</sparkle:channel>
        <sparkle:releaseNotesLink> notes/2.html </sparkle:releaseNotesLink>
        <pubDate>Mon, 05 Oct 2015 19:20:11 +0200</pubDate>
        <description sparkle:format="markdown"><![CDATA[ *New* <b>]]></description>
        <sparkle:minimumSystemVersion>5.10</sparkle:minimumSystemVersion>
        <sparkle:maximumSystemVersion>7</sparkle:maximumSystemVersion>
        <sparkle:phasedRolloutInterval>86400</sparkle:phasedRolloutInterval>
        <sparkle:criticalUpdate sparkle:version="1500"></sparkle:criticalUpdate>
        <sparkle:informationalUpdate><sparkle:version>1400</sparkle:version><other/>
          <sparkle:belowVersion>1000</sparkle:belowVersion></sparkle:informationalUpdate>
        <sparkle:deltas><enclosure url="delta" length="1"/></sparkle:deltas>
        <x:version xmlns:x="https://example.org/x">9</x:version>
        <enclosure url="/files/Tavik%20Launcher.AppImage" length="5" type="application/x-appimage"
                   sparkle:os="linux" sparkle:edSignature=")"
                                       + signature + R"("/>)"));

    AppcastItem expected;
    expected.update.versionString = u"2000"_s;
    expected.update.displayVersionString = u"2.0"_s;
    expected.update.title = u"Version 2 & more"_s;
    expected.update.date = QDateTime({2015, 10, 5}, {17, 20, 11}, Qt::UTC);
    expected.update.releaseNotes
        = {.format = ReleaseNotes::Format::markdown, .text = u"*New* <b>"_s};
    expected.update.releaseNotesUrl = QUrl(u"https://example.org/tavik/notes/2.html"_s);
    expected.update.infoUrl = QUrl(u"https://example.org/2"_s);
    expected.channel = u"beta"_s;
    expected.minimumSystemVersion = u"5.10"_s;
    expected.maximumSystemVersion = u"7"_s;
    expected.phasedRolloutInterval = 24h;
    expected.isMarkedCritical = true;
    expected.criticalBelowVersion = u"1500"_s;
    expected.isMarkedInformational = true;
    expected.informationalVersions = {u"1400"_s, u"<1000"_s};
    expected.enclosure = {.url = QUrl(u"https://example.org/files/Tavik%20Launcher.AppImage"_s),
                          .length = 5,
                          .signature = QByteArray(64, 's'),
                          .mimeType = u"application/x-appimage"_s,
                          .fault = {}};
    QCOMPARE(read.update, expected.update);
    QCOMPARE(read.enclosure, expected.enclosure);
    QVERIFY(read == expected);
}

void AppcastReaderTest::olderFormsMeanTheSame_data()
{
    QTest::addColumn<QByteArray>("older");
    QTest::addColumn<QByteArray>("newer");

    QTest::newRow("versions of the enclosure")
        << enclosure("sparkle:version='2' sparkle:shortVersionString='2.0'")
        << version("<sparkle:shortVersionString>2.0</sparkle:shortVersionString>") + enclosure();
    QTest::newRow("a version to read that is not there")
        << version() + enclosure()
        << version("<sparkle:shortVersionString>2</sparkle:shortVersionString>") + enclosure();
    QTest::newRow("a critical mark")
        << version("<sparkle:tags><a/><sparkle:criticalUpdate/></sparkle:tags>") + enclosure()
        << version("<sparkle:criticalUpdate/>") + enclosure();
    QTest::newRow("notes without a format")
        << version("<description><![CDATA[<b>]]></description>") + enclosure()
        << version("<description sparkle:format='html'>&lt;b&gt;</description>") + enclosure();
    QTest::newRow("an enclosure in the other namespace")
        << version("<sparkle:enclosure url='a.AppImage' length='5' sparkle:os='linux' "
                   "sparkle:edSignature='")
            + signature + "'/>"
        << version() + enclosure("sparkle:os='linux'");
}

void AppcastReaderTest::olderFormsMeanTheSame()
{
    QFETCH(const QByteArray, older);
    QFETCH(const QByteArray, newer);
    const AppcastItem read = only(item(older));
    QCOMPARE(read.update.versionString, u"2"_s);
    QVERIFY(read == only(item(newer)));
}

void AppcastReaderTest::datesAreReadAsTheyAreFound_data()
{
    QTest::addColumn<QDateTime>("date");
    const QDateTime expected({2015, 10, 5}, {19, 20, 11}, Qt::UTC);
    for (const char* text : {"Mon, 05 Oct 2015 19:20:11 +0000",
                             "05 Oct 2015 19:20:11 +0000",
                             " Mon, 5 Oct 2015 21:20:11 +0200 ",
                             "Mon, 05 Oct 2015 19:20:11 GMT",
                             "Mon, 05 Oct 2015 19:20:11 Z",
                             "Wed, 05 Oct 2015 19:20:11 UT"}) {
        QTest::newRow(text) << expected;
    }
    for (const char* text :
         {"", "yesterday", "2015-10-05", "Mon, 35 Oct 2015 19:20:11 GMT", ",,,,", "GMT"}) {
        QTest::newRow(text) << QDateTime();
    }
}

void AppcastReaderTest::datesAreReadAsTheyAreFound()
{
    QFETCH(const QDateTime, date);
    const QByteArray text = QTest::currentDataTag();
    QCOMPARE(only(item(version("<pubDate>" + text + "</pubDate>") + enclosure())).update.date,
             date);
}

void AppcastReaderTest::itemsForOthersAreLeftOut_data()
{
    QTest::addColumn<QByteArray>("content");

    const QByteArray page = "<link>https://example.org</link>";
    QTest::newRow("no version") << page + enclosure();
    QTest::newRow("a version that is none")
        << "<sparkle:version>\n\t </sparkle:version>" + enclosure();
    QTest::newRow("an endless version")
        << "<sparkle:version>" + QByteArray(101, '1') + "</sparkle:version>" + enclosure();
    QTest::newRow("another system") << version(page) + enclosure("sparkle:os='windows'");
    QTest::newRow("neither file nor page") << version();
    QTest::newRow("an unsafe page") << version("<link>http://example.org</link>");
}

void AppcastReaderTest::itemsForOthersAreLeftOut()
{
    QFETCH(const QByteArray, content);
    const AppcastFeed read = AppcastReader::read(feed(item(content)), feedUrl);
    QCOMPARE(read.error, std::nullopt);
    QCOMPARE(read.items.size(), 0);
}

void AppcastReaderTest::theFileForLinuxIsPreferred()
{
    const auto file = [](const QByteArray& url, const QByteArray& more) {
        return "<enclosure url='" + url + "' " + more + "/>";
    };
    const QByteArray windows = file("w", "sparkle:os='windows'");
    const QByteArray any = file("a", "");
    const QByteArray linux = file("l", "sparkle:os='linux'");
    const std::pair<QByteArray, QString> cases[] = {{windows + any + linux, u"l"_s},
                                                    {linux + any + windows, u"l"_s},
                                                    {windows + any, u"a"_s},
                                                    {any + file("b", ""), u"a"_s}};
    for (const auto& [files, expected] : cases) {
        const AppcastItem read = only(item(version() + files));
        QVERIFY(read.enclosure);
        QCOMPARE(read.enclosure->url.fileName(), expected);
    }
}

void AppcastReaderTest::filesThatCannotBeInstalledSayWhy_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("fault");

    const QByteArray url = "url='https://example.org/a' ";
    const QByteArray length = "length='5' ";
    const QByteArray sign = "sparkle:edSignature='" + signature + "' ";
    const QString address = u"address is not a safe one"_s;
    const QString unsafe = u"is not signed"_s;
    const QString damaged = u"signature is damaged"_s;
    const QString size = u"does not say how large"_s;
    QTest::newRow("nothing missing") << url + length + sign << QString();
    QTest::newRow("no address") << length + sign << address;
    QTest::newRow("plain HTTP") << "url='http://example.org/a' " + length + sign << address;
    QTest::newRow("a file") << "url='file:///etc/passwd' " + length + sign << address;
    QTest::newRow("a password") << "url='https://a:b@example.org/a' " + length + sign << address;
    QTest::newRow("an endless address")
        << "url='https://example.org/" + QByteArray(4000, 'a') + "' " + length + sign << address;
    QTest::newRow("no signature") << url + length << unsafe;
    QTest::newRow("an empty signature") << url + length + "sparkle:edSignature=' ' " << unsafe;
    QTest::newRow("a signature of no namespace")
        << url + length + "edSignature='" + signature + "' " << unsafe;
    QTest::newRow("a signature that is too short") << url + length + "sparkle:edSignature='"
            + QByteArray(63, 's').toBase64() + "' " << damaged;
    QTest::newRow("a signature in other letters")
        << url + length + "sparkle:edSignature='" + QByteArray(88, '?') + "' " << damaged;
    QTest::newRow("an endless signature")
        << url + length + "sparkle:edSignature='" + QByteArray(100'000, 'A') + "' " << damaged;
    QTest::newRow("no length") << url + sign << size;
    QTest::newRow("a negative length") << url + sign + "length='-5' " << size;
    QTest::newRow("a length in words") << url + sign + "length='five' " << size;
    QTest::newRow("a length beyond 64 bits")
        << url + sign + "length='18446744073709551617' " << size;
    QTest::newRow("a length beyond all use")
        << url + sign + "length='500000001' " << u"larger than 500 MB"_s;
}

void AppcastReaderTest::filesThatCannotBeInstalledSayWhy()
{
    QFETCH(const QByteArray, attributes);
    QFETCH(const QString, fault);
    const AppcastItem read = only(item(version("<enclosure " + attributes + "/>")));
    QVERIFY(read.enclosure);
    const QString why = read.enclosure->fault.value_or(QString());
    QVERIFY2(fault.isEmpty() == why.isEmpty() && why.contains(fault), qPrintable(why));
}

void AppcastReaderTest::englishNotesArePreferred()
{
    const QByteArray german = "<description xml:lang='de'>Neu</description>";
    const QByteArray english = "<description xml:lang='en-GB'>New</description>";
    const std::pair<QByteArray, QString> cases[]
        = {{german + english, u"New"_s},
           {english + german, u"New"_s},
           {"<description>Any</description>" + english, u"Any"_s},
           {german, u"Neu"_s}};
    for (const auto& [notes, expected] : cases) {
        const AppcastItem read = only(item(version(notes) + enclosure()));
        QVERIFY(read.update.releaseNotes);
        QCOMPARE(read.update.releaseNotes->text, expected);
    }
}

void AppcastReaderTest::textsAreShortenedAndFreeOfTricks()
{
    const AppcastItem read
        = only(item(version("<title>Two\n\xE2\x80\xAE" + QByteArray(100'000, 'x')
                            + "</title><sparkle:shortVersionString>" + QByteArray(1000, '2')
                            + "</sparkle:shortVersionString><description>"
                            + QByteArray(1'500'000, 'n') + "</description>")
                    + enclosure()));
    QCOMPARE(read.update.title, u"Two "_s + QString(296, u'x'));
    QCOMPARE(read.update.displayVersionString, QString(100, u'2'));
    QCOMPARE(read.update.releaseNotes->text.size(), 1'000'000);
}

void AppcastReaderTest::hostileFeedsAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");

    const QByteArray good = feed(item(version() + enclosure()));
    const QString other = u"something other than a list of updates"_s;
    const QString page = u"web page"_s;
    const QString damaged = u"damaged"_s;
    const QString type = u"declares a document type"_s;
    QByteArray manyAttributes = "<rss";
    for (int number = 0; number < 300'000; ++number) {
        manyAttributes += " a" + QByteArray::number(number) + "=''";
    }
    const auto row = [](const char* name, const QByteArray& bytes, const QString& error) {
        QTest::newRow(name) << bytes << error;
    };
    row("nothing", "", u"is empty"_s);
    row("white space", "\n \n", u"is empty"_s);
    row("no items", feed(""), u"is empty"_s);
    row("too large", good + QByteArray(5'000'000, ' '), u"is too large"_s);
    row("too many items", feed(item("").repeated(1001)), u"more than 1000 entries"_s);
    row("a web page", "<!doctype HTML><html><p>Please log in", page);
    row("a web page without a type", "<html><body/></html>", page);
    row("another feed", "<feed xmlns='http://www.w3.org/2005/Atom'/>", other);
    row("no XML", "{\"items\": []}", other);
    row("bytes",
        QByteArray("\x7F"
                   "ELF\0\1\2",
                   7),
        other);
    row("other bytes", "\xFF\xFE<\0", u"not valid text"_s);
    row("cut off", good.left(good.size() - 20), damaged);
    row("two documents", good + good, damaged);
    row("crossed elements", feed("<item><a></item></a>"), damaged);
    row("an unknown entity", feed(item(version("<title>&nbsp;</title>"))), damaged);
    row("a name without a namespace", feed("<item><other:a/></item>"), damaged);
    row("entities of its own",
        "<!DOCTYPE rss [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;'>]>" + good.mid(39),
        type);
    row("a file as an entity",
        "<!DOCTYPE rss [<!ENTITY a SYSTEM 'file:///etc/passwd'>]><rss>&a;</rss>",
        type);
    row("a document type behind a comment", "<!-- > --><?a > ?><!DOCTYPE rss><rss/>", type);
    row("hundreds of thousands of attributes", manyAttributes + "/>", u"too long"_s);
    row("deep nesting", feed(item(QByteArray("<a>").repeated(1'000'000))), damaged);
    row("an element without an end", "<rss a='" + QByteArray(1'000'000, '<'), other);
}

void AppcastReaderTest::hostileFeedsAreRefused()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, error);
    const AppcastFeed read = AppcastReader::read(bytes, feedUrl);
    QVERIFY(read.items.isEmpty());
    QVERIFY2(read.error && read.error->contains(error), qPrintable(read.error.value_or(QString())));
}

QTEST_APPLESS_MAIN(AppcastReaderTest)
#include "AppcastReaderTest.moc"
