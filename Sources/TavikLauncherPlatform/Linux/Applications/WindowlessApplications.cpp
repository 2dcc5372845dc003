// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntries.h>
#include <TavikLauncherPlatform/Linux/Applications/WindowlessApplications.h>

#include <QGuiApplication>

#include <algorithm>

namespace Tavik {

WindowlessApplications::WindowlessApplications(MainQueue& mainQueue,
                                               WorkQueue& workQueue,
                                               const QString& ownUnit)
    : m_names(workQueue)
    , m_units(mainQueue, workQueue, ownUnit)
{
    connect(&m_names, &ServiceNames::changed, this, &WindowlessApplications::changed);
    connect(&m_units, &ApplicationUnits::changed, this, &WindowlessApplications::changed);
}

void WindowlessApplications::follow(const DesktopEntries& entries)
{
    QSet<QString> ids;
    for (const SharedDesktopEntry& entry : entries.all()) {
        if (!entry->isHidden && entry->id != QGuiApplication::desktopFileName()) {
            ids.insert(entry->id);
        }
    }
    m_names.follow(ids);
    m_units.follow(ids);
}

QList<ApplicationWindow> WindowlessApplications::running(const DesktopEntries& entries) const
{
    QList<ApplicationWindow> running;
    for (const QString& id : m_names.owned() | m_units.running()) {
        if (const DesktopEntry* entry = entries.withId(id)) {
            running.append({.window = 0,
                            .isRegular = true,
                            .group = entry->path,
                            .bundlePath = entry->path,
                            .bundleIdentifier = entry->id});
        }
    }
    std::ranges::sort(running, {}, &ApplicationWindow::group);
    return running;
}

} // namespace Tavik
