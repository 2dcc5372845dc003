// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastItemReader.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateKind.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateStatement.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateUrls.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace Tavik {

namespace {

// Characters.
constexpr qsizetype mostTitle = 300;
constexpr qsizetype mostVersion = 100;
constexpr qsizetype mostUrl = 4000;
constexpr qsizetype mostNotes = 1'000'000;

constexpr qsizetype mostEnclosures = 16;
constexpr qsizetype mostInformationalVersions = 100;
/// A longer step between two groups is taken for this one.
constexpr qint64 mostRolloutInterval = 365LL * 24 * 60 * 60;

/// How well a text suits us; of equals the first is taken.
enum class Fit {
    none,
    other, ///< In another language.
    best, ///< In English or without a language.
};

/// What is gathered of an item until its end has been read.
struct Draft
{
    AppcastItem item;
    QString enclosureVersion; ///< The form of older feeds.
    QString enclosureShortVersion;
    Fit title = Fit::none;
    Fit notes = Fit::none;
    Fit notesUrl = Fit::none;
    bool hasForeignEnclosure = false;
    QList<QByteArray> statements; ///< The signatures of what is said of each enclosure.
};

QStringView sparkle()
{
    return u"http://www.andymatuschak.org/xml-namespaces/sparkle";
}

bool isSparkle(const QXmlStreamReader& xml, QStringView name)
{
    return xml.name() == name && xml.namespaceUri() == sparkle();
}

QString sparkleAttribute(const QXmlStreamReader& xml, QLatin1StringView name)
{
    return xml.attributes().value(sparkle().toString(), name).toString();
}

/// What this program's feeds say beyond the format.
QString ownAttribute(const QXmlStreamReader& xml, QLatin1StringView name)
{
    return xml.attributes().value(u"urn:tavik-launcher:feed"_s, name).toString();
}

QByteArray signatureIn(const QString& text)
{
    return UpdateSignature::fromBase64(text, UpdateSignature::signatureSize).value_or(QByteArray());
}

/// A text for one line, without what is invisible or turns the direction of its surroundings.
QString oneLine(const QString& text, qsizetype mostCharacters)
{
    QString line = text.left(2 * mostCharacters).simplified();
    line.removeIf([](QChar character) { return !character.isPrint() && !character.isSurrogate(); });
    return line.left(mostCharacters);
}

/// What is compared as a version; empty when it is too long to be one.
QString versionText(const QString& text)
{
    return text.size() > mostVersion ? QString() : oneLine(text, mostVersion);
}

QString readText(QXmlStreamReader& xml)
{
    return xml.readElementText(QXmlStreamReader::SkipChildElements);
}

QUrl safeUrl(const QString& text, const QUrl& feedUrl)
{
    const QString address = text.trimmed();
    if (address.isEmpty() || address.size() > mostUrl) {
        return {};
    }
    const QUrl url = feedUrl.resolved(QUrl(address));
    return mayFollow(feedUrl, url) ? url : QUrl();
}

QDateTime date(QString text)
{
    // The weekday says nothing new, and where it is wrong the date is not; the reader of dates
    // knows zones as numbers only.
    text = text.left(mostTitle).simplified();
    text = text.mid(text.indexOf(u',') + 1).trimmed();
    for (const QString& zone : {u" GMT"_s, u" UTC"_s, u" UT"_s, u" Z"_s}) {
        if (text.endsWith(zone, Qt::CaseInsensitive)) {
            text.replace(text.size() - zone.size(), zone.size(), u" +0000"_s);
        }
    }
    return QDateTime::fromString(text, Qt::RFC2822Date);
}

Fit languageFit(const QXmlStreamReader& xml)
{
    const QStringView language
        = xml.attributes().value(u"http://www.w3.org/XML/1998/namespace"_s, "lang"_L1);
    const bool isEnglish = language.left(2).compare(u"en", Qt::CaseInsensitive) == 0
        && (language.size() == 2 || language.mid(2, 1) == u"-");
    return language.isEmpty() || isEnglish ? Fit::best : Fit::other;
}

/// Whether what the reader stands at suits better than what there is.
bool improves(Fit& present, Fit offered)
{
    if (offered <= present) {
        return false;
    }
    present = offered;
    return true;
}

ReleaseNotes::Format notesFormat(const QString& name)
{
    if (name == u"plain-text"_s) {
        return ReleaseNotes::Format::plainText;
    }
    return name == u"markdown"_s ? ReleaseNotes::Format::markdown : ReleaseNotes::Format::html;
}

std::optional<QString> enclosureFault(const AppcastEnclosure& enclosure, bool hasSignature)
{
    if (enclosure.url.isEmpty()) {
        return Texts::tr("The update cannot be downloaded, because its address is not a safe one.");
    }
    if (!hasSignature) {
        return Texts::tr("The update is not signed, so it cannot be installed.");
    }
    if (enclosure.signature.isEmpty()) {
        return Texts::tr("The update's signature is damaged, so it cannot be installed.");
    }
    if (enclosure.length <= 0) {
        return Texts::tr("The update does not say how large it is, so it cannot be installed.");
    }
    if (enclosure.length > UpdateSignature::mostFileBytes) {
        return Texts::tr("The update is larger than %1 MB, so it cannot be installed.")
            .arg(UpdateSignature::mostFileBytes / 1'000'000);
    }
    return {};
}

void readEnclosure(QXmlStreamReader& xml, const QUrl& feedUrl, Draft& draft)
{
    const QString system = sparkleAttribute(xml, "os"_L1);
    if (!system.isEmpty() && system != u"linux"_s) {
        draft.hasForeignEnclosure = true;
    } else if (draft.item.enclosures.size() < mostEnclosures) {
        const QXmlStreamAttributes attributes = xml.attributes();
        const QString signature = sparkleAttribute(xml, "edSignature"_L1);
        AppcastEnclosure enclosure;
        enclosure.url = safeUrl(attributes.value("url"_L1).toString(), feedUrl);
        enclosure.length = attributes.value("length"_L1).toLongLong();
        enclosure.signature = signatureIn(signature);
        enclosure.digest = updateDigest(ownAttribute(xml, "sha256"_L1)).value_or(QByteArray());
        enclosure.mimeType = oneLine(attributes.value("type"_L1).toString(), mostTitle);
        enclosure.processor = oneLine(ownAttribute(xml, "processor"_L1), mostVersion);
        enclosure.isForLinux = !system.isEmpty();
        enclosure.fault = enclosureFault(enclosure, !signature.trimmed().isEmpty());
        draft.item.enclosures.append(enclosure);
        draft.statements.append(signatureIn(ownAttribute(xml, "statement"_L1)));
        if (draft.enclosureVersion.isEmpty()) {
            draft.enclosureVersion = sparkleAttribute(xml, "version"_L1);
            draft.enclosureShortVersion = sparkleAttribute(xml, "shortVersionString"_L1);
        }
    }
    xml.skipCurrentElement();
}

/// Whether the maker says of the enclosure what the feed says of it.
void checkStatements(Draft& draft, const QByteArray& publicKey)
{
    for (qsizetype at = 0; at < draft.statements.size(); ++at) {
        AppcastEnclosure& enclosure = draft.item.enclosures[at];
        const UpdateStatement statement{.version = draft.item.update.versionString,
                                        .length = enclosure.length,
                                        .kind = updateKindName(enclosure),
                                        .processor = enclosure.processor,
                                        .digest = enclosure.digest};
        enclosure.isStated = !enclosure.digest.isEmpty() && !enclosure.processor.isEmpty()
            && UpdateSignature::isSigned(statement.text(), draft.statements[at], publicKey);
        if (!enclosure.isStated && !enclosure.fault) {
            enclosure.fault = Texts::tr(
                "Its makers have not signed which version it is, so it cannot be installed.");
        }
    }
}

void readInformationalUpdate(QXmlStreamReader& xml, AppcastItem& item)
{
    item.isMarkedInformational = true;
    while (xml.readNextStartElement()) {
        const bool isBelow = isSparkle(xml, u"belowVersion");
        if (!isBelow && !isSparkle(xml, u"version")) {
            xml.skipCurrentElement();
            continue;
        }
        const QString version = versionText(readText(xml));
        if (!version.isEmpty() && item.informationalVersions.size() < mostInformationalVersions) {
            item.informationalVersions.append(isBelow ? u"<"_s + version : version);
        }
    }
}

/// Marks of older feeds: elements without content.
void readTags(QXmlStreamReader& xml, AppcastItem& item)
{
    while (xml.readNextStartElement()) {
        item.isMarkedCritical = item.isMarkedCritical || isSparkle(xml, u"criticalUpdate");
        xml.skipCurrentElement();
    }
}

void readCriticalUpdate(QXmlStreamReader& xml, AppcastItem& item)
{
    item.isMarkedCritical = true;
    item.criticalBelowVersion = versionText(sparkleAttribute(xml, "version"_L1));
    xml.skipCurrentElement();
}

void readRolloutInterval(QXmlStreamReader& xml, AppcastItem& item)
{
    const qint64 seconds = readText(xml).trimmed().toLongLong();
    if (seconds > 0) {
        item.phasedRolloutInterval = std::chrono::seconds(std::min(seconds, mostRolloutInterval));
    }
}

void readSparkleElement(QXmlStreamReader& xml, const QUrl& feedUrl, Draft& draft)
{
    AppcastItem& item = draft.item;
    const QStringView name = xml.name();
    if (name == u"version") {
        item.update.versionString = versionText(readText(xml));
    } else if (name == u"shortVersionString") {
        item.update.displayVersionString = oneLine(readText(xml), mostVersion);
    } else if (name == u"minimumSystemVersion") {
        item.minimumSystemVersion = versionText(readText(xml));
    } else if (name == u"maximumSystemVersion") {
        item.maximumSystemVersion = versionText(readText(xml));
    } else if (name == u"channel") {
        item.channel = oneLine(readText(xml), mostTitle);
    } else if (name == u"phasedRolloutInterval") {
        readRolloutInterval(xml, item);
    } else if (name == u"criticalUpdate") {
        readCriticalUpdate(xml, item);
    } else if (name == u"tags") {
        readTags(xml, item);
    } else if (name == u"informationalUpdate") {
        readInformationalUpdate(xml, item);
    } else if (name == u"enclosure") {
        readEnclosure(xml, feedUrl, draft);
    } else if (name == u"releaseNotesLink" && improves(draft.notesUrl, languageFit(xml))) {
        item.update.releaseNotesUrl = safeUrl(readText(xml), feedUrl);
    } else {
        xml.skipCurrentElement();
    }
}

void readPlainElement(QXmlStreamReader& xml, const QUrl& feedUrl, Draft& draft)
{
    UpdateItem& update = draft.item.update;
    const QStringView name = xml.name();
    if (name == u"title" && improves(draft.title, languageFit(xml))) {
        update.title = oneLine(readText(xml), mostTitle);
    } else if (name == u"link") {
        update.infoUrl = safeUrl(readText(xml), feedUrl);
    } else if (name == u"pubDate") {
        update.date = date(readText(xml));
    } else if (name == u"description" && improves(draft.notes, languageFit(xml))) {
        const ReleaseNotes::Format format = notesFormat(sparkleAttribute(xml, "format"_L1));
        update.releaseNotes
            = ReleaseNotes{.format = format, .text = readText(xml).left(mostNotes).trimmed()};
    } else if (name == u"enclosure") {
        readEnclosure(xml, feedUrl, draft);
    } else {
        xml.skipCurrentElement();
    }
}

std::optional<AppcastItem> finished(Draft draft, const QByteArray& publicKey)
{
    AppcastItem& item = draft.item;
    UpdateItem& update = item.update;
    if (update.versionString.isEmpty()) {
        update.versionString = versionText(draft.enclosureVersion);
    }
    if (update.displayVersionString.isEmpty()) {
        update.displayVersionString = oneLine(draft.enclosureShortVersion, mostVersion);
    }
    if (update.displayVersionString.isEmpty()) {
        update.displayVersionString = update.versionString;
    }
    if (update.releaseNotes && update.releaseNotes->text.isEmpty()) {
        update.releaseNotes.reset();
    }
    const bool isOnlyPage
        = item.enclosures.isEmpty() && !draft.hasForeignEnclosure && !update.infoUrl.isEmpty();
    if (update.versionString.isEmpty() || (item.enclosures.isEmpty() && !isOnlyPage)) {
        return {};
    }
    checkStatements(draft, publicKey);
    return std::move(item);
}

} // namespace

std::optional<AppcastItem> readAppcastItem(QXmlStreamReader& xml, const AppcastOrigin& origin)
{
    Draft draft;
    while (xml.readNextStartElement()) {
        if (xml.namespaceUri() == sparkle()) {
            readSparkleElement(xml, origin.feedUrl, draft);
        } else if (xml.namespaceUri().isEmpty()) {
            readPlainElement(xml, origin.feedUrl, draft);
        } else {
            xml.skipCurrentElement();
        }
    }
    return finished(std::move(draft), origin.publicKey);
}

} // namespace Tavik
