// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QString>

namespace Tavik {

class RecentAppsStore;
class Workspace;

/// Remembers the applications that the user turns to: those that a menu would show, except this
/// program.
class RecentActivations
{
public:
    RecentActivations(Workspace& workspace, RecentAppsStore& recents, QString ownIdentifier);

    /// From now on, for as long as this object lives.
    void follow();

private:
    void recordActivatedApplication();

    Workspace& m_workspace;
    RecentAppsStore& m_recents;
    QString m_ownIdentifier;
    ObserverToken m_observer;
};

} // namespace Tavik
