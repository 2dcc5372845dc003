// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/ApplicationUnits.h>
#include <TavikLauncherPlatform/Linux/Applications/RunningApplicationList.h>
#include <TavikLauncherPlatform/Linux/Applications/ServiceNames.h>

#include <QList>
#include <QObject>

namespace Tavik {

class DesktopEntries;

/// The applications that are seen to run where nobody tells of their windows: by their names on
/// the session bus, and by their systemd units. Main thread only.
class WindowlessApplications final : public QObject
{
    Q_OBJECT

public:
    /// `ownUnit` is the name of the unit that this program runs in. The queues must outlive this.
    WindowlessApplications(MainQueue& mainQueue, WorkQueue& workQueue, const QString& ownUnit);

    /// From now on those of the entries that menus show, but for our own.
    void follow(const DesktopEntries& entries);
    /// Each that runs, once.
    [[nodiscard]] QList<ApplicationWindow> running(const DesktopEntries& entries) const;
    /// Whether it has a name on the bus, under which it can be asked to show itself.
    [[nodiscard]] bool canBeAsked(const QString& id) const { return m_names.owned().contains(id); }

Q_SIGNALS:
    void changed();

private:
    ServiceNames m_names;
    ApplicationUnits m_units;
};

} // namespace Tavik
