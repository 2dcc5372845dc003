// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppLauncher.h>
#include <TavikLauncher/Catalog/CatalogLog.h>
#include <TavikLauncher/Catalog/RecentAppsStore.h>
#include <TavikLauncherCore/IndexedApp.h>
#include <TavikLauncherPlatform/Workspace.h>

namespace Tavik {

AppLauncher::AppLauncher(Workspace& workspace, RecentAppsStore& recentApps)
    : m_workspace(workspace)
    , m_recentApps(recentApps)
{ }

QUrl AppLauncher::resolvedLaunchURL(const IndexedApp& app) const
{
    if (const auto& identifier = app.bundleIdentifier()) {
        if (const std::optional<QString> path = m_workspace.pathForApplication(*identifier)) {
            return QUrl::fromLocalFile(*path);
        }
    }
    return QUrl::fromLocalFile(app.path());
}

void AppLauncher::launch(const IndexedApp& app)
{
    const QString path = resolvedLaunchURL(app).toLocalFile();
    m_recentApps.recordLaunch(path);
    m_workspace.openApplication(
        path, {.activates = true}, [path](const std::optional<QString>& error) {
            if (error) {
                qCWarning(catalogLog).noquote().nospace()
                    << "Tavik Launcher failed to open " << path << ": " << *error;
            }
        });
}

} // namespace Tavik
