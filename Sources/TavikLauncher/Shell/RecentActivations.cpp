// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/RecentAppsStore.h>
#include <TavikLauncher/Shell/RecentActivations.h>
#include <TavikLauncherPlatform/Workspace.h>

#include <utility>

namespace Tavik {

RecentActivations::RecentActivations(Workspace& workspace,
                                     RecentAppsStore& recents,
                                     QString ownIdentifier)
    : m_workspace(workspace)
    , m_recents(recents)
    , m_ownIdentifier(std::move(ownIdentifier))
{ }

void RecentActivations::follow()
{
    m_observer = m_workspace.notificationCenter().addObserver(
        Workspace::didActivateApplication,
        [this](const NotificationCenter::Notification&) { recordActivatedApplication(); });
}

void RecentActivations::recordActivatedApplication()
{
    const std::optional<RunningApplication> app = m_workspace.frontmostApplication();
    if (!app || app->activationPolicy != RunningApplication::ActivationPolicy::regular
        || !app->isListed || app->bundleIdentifier == m_ownIdentifier || !app->bundlePath) {
        return;
    }
    m_recents.recordLaunch(*app->bundlePath);
}

} // namespace Tavik
