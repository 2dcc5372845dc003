// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

namespace Tavik {

class IndexedApp;
class RecentAppsStore;
class Workspace;

/// Turns a record into a running application at the front. Created once, by start-up.
class AppLauncher
{
public:
    AppLauncher(Workspace& workspace, RecentAppsStore& recentApps);

    /// Where the system keeps its preferred copy of the application, else the record's own path.
    [[nodiscard]] QUrl resolvedLaunchURL(const IndexedApp& app) const;

    /// Records the launch and asks the system to open the application; returns at once. A failure
    /// is one line in the log.
    void launch(const IndexedApp& app);

private:
    Workspace& m_workspace;
    RecentAppsStore& m_recentApps;
};

} // namespace Tavik
