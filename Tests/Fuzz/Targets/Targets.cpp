// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Views/Updates/SafeReleaseNotes.h>
#include <TavikLauncherPlatform/Linux/Applications/ApplicationFolder.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>
#include <TavikLauncherPlatform/Linux/Applications/IconThemeIndex.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyList.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyListBounds.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastReader.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateUrls.h>

#include <QGuiApplication>
#include <QLoggingCategory>

#include <array>
#include <cstdlib>
#include <string_view>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

/// What is found must hold whatever was read; the fuzzer takes an abort for a fault.
void require(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

void readDefaults(const QByteArray& bytes)
{
    if (const auto list = PropertyList::fromBytes(bytes)) {
        const QByteArray written = list->toXml();
        require(!PropertyListBounds::areKept(written) || PropertyList::fromBytes(written));
    }
}

void readShortcut(const QByteArray& bytes)
{
    if (const auto config = HotKeyConfig::fromJson(bytes)) {
        require(HotKeyConfig::fromJson(config->toJson()) == config);
    }
}

void readBundle(const QByteArray& bytes)
{
    if (bytes.size() <= ApplicationFolder::maxInfoSize) {
        (void)ApplicationFolder::parse(bytes);
    }
}

void readEntry(const QByteArray& bytes)
{
    if (bytes.size() <= DesktopEntryFile::maxSize) {
        const Bundle bundle = DesktopEntryFile::bundle(DesktopEntryFile::parse(bytes, {}, u"x"_s));
        require(bundle.identifier == u"x"_s && (bundle.isHidden || bundle.name));
        require(bundle.iconSource.startsWith(u'/') || !bundle.iconSource.contains(u'/'));
    }
}

void readTheme(const QByteArray& bytes)
{
    for (const auto& folder : IconThemeIndex::parse(bytes).value_or(IconThemeIndex()).directories) {
        require(!folder.path.startsWith(u'/') && !folder.path.split(u'/').contains(u".."_s));
        require(folder.size >= 1 && folder.scale >= 1);
    }
}

void readFeed(const QByteArray& bytes)
{
    const AppcastFeed feed
        = AppcastReader::read(bytes, {QUrl(u"https://example.org/feed.xml"_s), {}});
    require(!feed.error || feed.items.isEmpty());
    for (const AppcastItem& item : feed.items) {
        for (const AppcastEnclosure& enclosure : item.enclosures) {
            require(enclosure.fault || (mayFetch(enclosure.url) && enclosure.length > 0));
        }
    }
}

void readNotes(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    for (const auto format : {ReleaseNotes::Format::html, ReleaseNotes::Format::markdown}) {
        const QString safe = safeReleaseNotesHtml({.format = format, .text = text});
        require(!safe.contains(u"<script"_s) && !safe.contains(u"<img"_s));
    }
}

struct Target
{
    std::string_view name;
    void (*read)(const QByteArray&);
};

constexpr std::array targets{Target{"bundle", readBundle},
                             Target{"defaults", readDefaults},
                             Target{"entry", readEntry},
                             Target{"feed", readFeed},
                             Target{"notes", readNotes},
                             Target{"shortcut", readShortcut},
                             Target{"theme", readTheme}};
const Target* chosen = nullptr;

} // namespace

/// The parser is named by TAVIK_FUZZ.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    QLoggingCategory::setFilterRules(u"*=false"_s);
    const QByteArray wanted = qgetenv("TAVIK_FUZZ");
    for (const Target& target : targets) {
        chosen = target.name == wanted.toStdString() ? &target : chosen;
    }
    require(chosen);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    chosen->read(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
