// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogRecord.h>
#include <TavikLauncherPlatform/FileManager.h>

namespace Tavik::CatalogRecord {

QString displayName(const QString& path, const std::optional<Bundle>& bundle)
{
    if (bundle && bundle->displayName) {
        return *bundle->displayName;
    }
    if (bundle && bundle->name) {
        return *bundle->name;
    }
    const QString fileName = path.mid(path.lastIndexOf(u'/') + 1);
    const qsizetype dot = fileName.lastIndexOf(u'.');
    return dot > 0 ? fileName.first(dot) : fileName;
}

IndexedApp record(const QString& path, const std::optional<Bundle>& bundle)
{
    const QString icon = bundle ? bundle->iconSource : QString();
    return IndexedApp(displayName(path, bundle),
                      bundle ? bundle->identifier : std::nullopt,
                      icon == path ? icon : path, // Then both share the memory of one text.
                      AppIcon{icon})
        .withOtherNames(bundle ? bundle->otherNames : QString());
}

} // namespace Tavik::CatalogRecord
