// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogCache.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/SettingsBackup.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyList.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyListBounds.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QSet>
#include <QTemporaryDir>

#include <Fuzz/Parsers.h>
#include <Support/FakeFileManager.h>
#include <Support/FakeLoginItem.h>
#include <Support/MemoryUserDefaults.h>

namespace Tavik::Fuzz {

using namespace Test;
using namespace Qt::StringLiterals;

namespace {

/// User defaults that have been read, without the file.
class ReadDefaults final : public UserDefaults
{
public:
    explicit ReadDefaults(PropertyList list)
        : values(std::move(list))
    { }
    [[nodiscard]] QVariant object(const QString& key) const override { return values.value(key); }
    void setObject(const QString& key, const QVariant& value) override
    {
        values.setValue(key, value);
    }

    PropertyList values;
};

/// A disk on which the applications that the corpus names are installed.
class SomeApplications final : public FakeFileManager
{
public:
    SomeApplications()
    {
        for (int number = 0; number < 6; ++number) {
            existing.insert(u"/Applications/App %1.app"_s.arg(number));
        }
        static const QTemporaryDir folder; // It is made sure that it exists, by anybody.
        support.path = folder.path();
    }
};

void requireInRange(const LauncherSettings& settings)
{
    require(settings.ringDiameter() >= 250 && settings.ringDiameter() <= 550, "diameter");
    require(settings.ringOpacity() >= 0.2 && settings.ringOpacity() <= 1, "opacity");
    require(settings.maxVisibleApps() >= 1 && settings.maxVisibleApps() <= 24, "slots");
}

} // namespace

bool readBackup(const QByteArray& bytes)
{
    const SomeApplications files;
    MemoryUserDefaults defaults;
    FakeLoginItem loginItem;
    NotificationCenter notifications;
    LauncherSettings settings(defaults, loginItem, notifications);
    defaults.written.clear();
    if (!settings.applyBackup(bytes, files)) {
        require(defaults.written.isEmpty(), "a refused backup changes nothing");
        return false;
    }
    requireInRange(settings);
    for (const QString& path : settings.permanentAppPaths() + settings.pinnedPermanentAppPaths()) {
        require(files.existing.contains(path), "what is not installed is left out");
    }
    require(settings.applyBackup(settings.exportBackup(), files).has_value(),
            "what has been taken over can be written and read again");
    return true;
}

bool readCache(const QByteArray& bytes)
{
    const SomeApplications files;
    files.contents.insert(*CatalogCache::cacheURL(files), bytes);
    const QList<IndexedApp> loaded = CatalogCache::loadCachedApplications(files).apps;
    for (const IndexedApp& app : loaded) {
        require(files.existing.contains(app.path()), "what is not installed is left out");
    }
    return !loaded.isEmpty();
}

bool readDefaults(const QByteArray& bytes)
{
    auto list = PropertyList::fromBytes(bytes);
    if (!list) {
        return false;
    }
    ReadDefaults defaults(*std::move(list));
    FakeLoginItem loginItem;
    NotificationCenter notifications;
    LauncherSettings settings(defaults, loginItem, notifications);
    requireInRange(settings);
    const QStringList& permanent = settings.permanentAppPaths();
    require(settings.effectivePinnedAppPaths().size()
                == QSet<QString>(permanent.begin(), permanent.end()).size(),
            "every permanent application has a place");
    (void)settings.launchHintForThisSummon();
    const QByteArray written = defaults.values.toXml();
    require(!PropertyListBounds::areKept(written) || PropertyList::fromBytes(written),
            "what has been read and written can be read again");
    return true;
}

bool readShortcut(const QByteArray& bytes)
{
    const auto config = HotKeyConfig::fromJson(bytes);
    if (!config) {
        return false;
    }
    require((config->modifierFlagsRaw & 0xFFFF) == 0, "modifiers only");
    require(HotKeyConfig::fromJson(config->toJson()) == config, "it is written as it was read");
    return true;
}

} // namespace Tavik::Fuzz
