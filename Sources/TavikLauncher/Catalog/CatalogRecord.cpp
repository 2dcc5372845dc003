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
    return IndexedApp(displayName(path, bundle),
                      bundle ? bundle->identifier : std::nullopt,
                      path,
                      AppIcon{bundle ? bundle->iconSource : QString()})
        .withOtherNames(bundle ? bundle->otherNames : QStringList());
}

} // namespace Tavik::CatalogRecord
