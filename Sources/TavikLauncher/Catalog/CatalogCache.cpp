// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogCache.h>
#include <TavikLauncher/Catalog/CatalogLog.h>
#include <TavikLauncherCore/NameOrder.h>
#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <filesystem>
#include <utility>

namespace Tavik::CatalogCache {

namespace {

using namespace Qt::StringLiterals;

/// One entry of the file.
struct CachedApp
{
    QString name;
    std::optional<QString> bundleIdentifier;
    QString path;
    QString sortedFor; ///< With the first entry: the language for which the list is sorted.
};

void logFailure(const char* what, const QString& why)
{
    qCWarning(catalogLog).noquote().nospace() << "TavikLauncher: " << what << ": " << why;
}

QByteArray encoded(const QList<IndexedApp>& apps)
{
    QJsonArray entries;
    for (const IndexedApp& app : apps) {
        QJsonObject entry{{u"name"_s, app.name()}, {u"path"_s, app.path()}};
        if (app.bundleIdentifier()) {
            entry.insert(u"bundleIdentifier"_s, *app.bundleIdentifier());
        }
        if (entries.isEmpty()) {
            entry.insert(u"sortedFor"_s, nameOrderLanguage());
        }
        entries.append(entry);
    }
    return QJsonDocument(entries).toJson(QJsonDocument::Compact);
}

/// Absent when a key that must be there is missing, or a value is not a text.
std::optional<CachedApp> decodedEntry(const QJsonValue& value)
{
    const QJsonObject object = value.toObject();
    const QJsonValue name = object.value("name"_L1);
    const QJsonValue path = object.value("path"_L1);
    const QJsonValue identifier = object.value("bundleIdentifier"_L1);
    if (!name.isString() || !path.isString()
        || !(identifier.isString() || identifier.isUndefined())) {
        return std::nullopt;
    }
    CachedApp app{.name = name.toString(),
                  .bundleIdentifier = {},
                  .path = path.toString(),
                  .sortedFor = object.value("sortedFor"_L1).toString()};
    if (identifier.isString()) {
        app.bundleIdentifier = identifier.toString();
    }
    return app;
}

struct DecodeResult
{
    QList<CachedApp> apps;
    QString error; ///< Empty on success.
};

DecodeResult decoded(const QByteArray& bytes)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        return {.apps = {}, .error = parseError.errorString()};
    }
    if (!document.isArray()) {
        return {.apps = {}, .error = u"the file is not a list of applications"_s};
    }
    DecodeResult result;
    const QJsonArray entries = document.array();
    for (const QJsonValue& value : entries) {
        std::optional<CachedApp> app = decodedEntry(value);
        if (!app) {
            return {.apps = {},
                    .error = u"entry %1 is not an application"_s.arg(result.apps.size() + 1)};
        }
        result.apps.append(*std::move(app));
    }
    return result;
}

void save(const FileManager& fileManager, const QList<IndexedApp>& apps)
{
    const std::optional<QString> path = cacheURL(fileManager);
    if (!path) {
        return;
    }
    if (const auto error = fileManager.writeFileAtomically(*path, encoded(apps))) {
        logFailure("failed to save cache", *error);
    }
}

} // namespace

std::optional<QString> cacheURL(const FileManager& fileManager)
{
    constexpr const char* failure = "failed to resolve cache path";
    const FileManager::FolderResult support = fileManager.applicationSupportFolder();
    if (support.path.isEmpty()) {
        logFailure(failure, support.error);
        return std::nullopt;
    }
    const QString folder = support.path + "/TavikLauncher"_L1;
    std::error_code error;
    std::filesystem::create_directories(folder.toStdU16String(), error);
    if (error) {
        logFailure(failure, QString::fromStdString(error.message()));
        return std::nullopt;
    }
    return folder + "/app_index.json"_L1;
}

void saveCachedApplications(const FileManager& fileManager,
                            WorkQueue& workQueue,
                            const QList<IndexedApp>& apps)
{
    workQueue.schedule(WorkPriority::utility, [&fileManager, apps]() -> WorkQueue::Done {
        save(fileManager, apps);
        return [] {
        };
    });
}

void loadCachedApplicationsAsync(const FileManager& fileManager,
                                 WorkQueue& workQueue,
                                 std::function<void(const CachedApplications&)> done)
{
    workQueue.run(
        WorkPriority::userInitiated,
        [&fileManager] { return loadCachedApplications(fileManager); },
        std::move(done));
}

CachedApplications loadCachedApplications(const FileManager& fileManager)
{
    const std::optional<QString> path = cacheURL(fileManager);
    if (!path) {
        return {};
    }
    const qint64 size = fileManager.fileSize(*path).value_or(0);
    if (size < 1 || size > maxReadableSize) {
        return {};
    }
    constexpr const char* failure = "failed to load cache";
    const std::optional<QByteArray> bytes = fileManager.readFile(*path, maxReadableSize);
    if (!bytes) {
        logFailure(failure, u"it is no file that can be read"_s);
        return {};
    }
    const DecodeResult content = decoded(*bytes);
    if (!content.error.isEmpty()) {
        logFailure(failure, content.error);
        return {};
    }
    CachedApplications known;
    known.areSorted
        = !content.apps.isEmpty() && content.apps.first().sortedFor == nameOrderLanguage();
    known.apps.reserve(content.apps.size());
    for (const CachedApp& cached : content.apps) {
        if (!cached.path.startsWith(u'/') || !fileManager.fileExists(cached.path)) {
            continue;
        }
        // Nothing is opened: the icon is looked for when it is drawn, other names come with the
        // walk.
        known.apps.append(
            IndexedApp(cached.name, cached.bundleIdentifier, cached.path, AppIcon{cached.path}));
    }
    return known;
}

} // namespace Tavik::CatalogCache
