// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/SafeReleaseNotes.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastReader.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastSelection.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastVersion.h>
#include <TavikLauncherPlatform/Linux/Updates/FetchMessages.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateUrls.h>

#include <QRegularExpression>

#include <Fuzz/Parsers.h>

namespace Tavik::Fuzz {

using namespace Qt::StringLiterals;

namespace {

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

void requireSafe(const AppcastItem& item)
{
    const UpdateItem& update = item.update;
    require(!update.versionString.isEmpty() && !update.displayVersionString.isEmpty(),
            "it has a version");
    require(isFetchableOrEmpty(update.infoUrl) && isFetchableOrEmpty(update.releaseNotesUrl),
            "its pages may be fetched");
    require(!item.enclosures.isEmpty() || !update.infoUrl.isEmpty(), "there is something to have");
    for (const AppcastEnclosure& enclosure : item.enclosures) {
        require(enclosure.fault || isInstallable(enclosure), "a file has a fault or none");
    }
}

void requireSafe(const AppcastSelection::Selection& selection)
{
    require(selection.offer.has_value() == selection.reason.isEmpty(),
            "there is a reason for none");
    if (selection.offer) {
        const UpdateItem& update = selection.offer->update;
        require(AppcastVersion::compare(u"1.0", update.versionString) < 0, "it is newer");
        require(selection.offer->enclosure.has_value() != update.isInformationOnly,
                "it has a file unless it is for reading");
        require(update.isInformationOnly || isInstallable(*selection.offer->enclosure),
                "its file can be installed");
    }
}

} // namespace

bool readFeed(const QByteArray& bytes)
{
    const AppcastFeed feed
        = AppcastReader::read(bytes, {QUrl(u"https://example.org/feed.xml"_s), {}});
    require(!feed.error || (feed.items.isEmpty() && !feed.error->isEmpty()), "an error says why");
    for (const AppcastItem& item : feed.items) {
        requireSafe(item);
    }
    requireSafe(AppcastSelection::select(feed.items,
                                         {.runningVersion = u"1.0"_s,
                                          .systemVersion = u"6.1"_s,
                                          .now = QDateTime::fromSecsSinceEpoch(1'800'000'000),
                                          .kinds = {u"appimage"_s},
                                          .processor = u"x86_64"_s,
                                          .pageHosts = {u"example.org"_s}}));
    return !feed.error;
}

bool readFetched(const QByteArray& bytes)
{
    QByteArray received = bytes;
    bool isUnderstood = false;
    while (const auto message = FetchMessages::take(received)) {
        require(message->value.size() <= FetchMessages::mostBytes, "a message is small");
        const auto request = FetchMessages::request(*message);
        const auto answer = FetchMessages::answer(*message);
        const auto end = FetchMessages::end(*message);
        require(int(request.has_value()) + int(answer.has_value()) + int(end.has_value()) <= 1,
                "a message is of one kind");
        if (answer) {
            require(answer->length.value_or(0) >= 0, "a length is one");
        }
        require(!end || *end <= FetchEnd::brokenOff, "an end is one of those that there are");
        isUnderstood = isUnderstood || request || answer || end;
    }
    return isUnderstood;
}

bool readNotes(const QByteArray& bytes)
{
    static const QRegularExpression unsafe(
        u"<(?!(/?(p|h3|h4|pre|ul|ol|li|blockquote|b|i|u|s|code|a)|br|hr|a href=\"[^\"<>]*\")>)"_s);
    bool hasLink = false;
    for (const auto format : {ReleaseNotes::Format::html,
                              ReleaseNotes::Format::markdown,
                              ReleaseNotes::Format::plainText}) {
        const QString safe
            = safeReleaseNotesHtml({.format = format, .text = QString::fromUtf8(bytes)});
        require(!unsafe.match(safe).hasMatch(), "nothing is written but what may stay");
        hasLink = hasLink || safe.contains(u"href"_s);
    }
    return hasLink;
}

} // namespace Tavik::Fuzz
