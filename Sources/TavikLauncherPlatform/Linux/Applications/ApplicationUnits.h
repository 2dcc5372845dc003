// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QSet>
#include <QString>

#include <optional>

class QDBusServiceWatcher;

namespace Tavik {

class WorkQueue;

/// Tells which applications run in units of the user's systemd, as desktops, Flatpak, Snap and this
/// program start them. Whatever is heard of a followed application's unit is only a reason to ask
/// soon which of them are active, so nothing is put together from single news. systemd is never
/// started for this. Main thread only.
class ApplicationUnits final : public QObject
{
    Q_OBJECT

public:
    /// `ownUnit` is the name of the unit that this program runs in, which tells of no application.
    /// The queues must outlive this.
    ApplicationUnits(MainQueue& mainQueue, WorkQueue& workQueue, const QString& ownUnit);
    ~ApplicationUnits() override;

    /// From now on these application IDs and no others.
    void follow(const QSet<QString>& ids);
    /// Those of them that have an active unit.
    [[nodiscard]] const QSet<QString>& running() const { return m_running; }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void unitCame(const QString& unit);
    void askSoon();
    void take(const QDBusMessage& answer);

private:
    void begin();
    void ask();
    void watch(const QSet<QString>& paths);
    void setRunning(const QSet<QString>& running);
    [[nodiscard]] QString followedIn(const QString& unit) const;

    MainQueue& m_mainQueue;
    const QString m_ownUnit;
    std::optional<QDBusConnection> m_bus;
    QDBusServiceWatcher* m_watcher; ///< Of systemd. A child.
    QSet<QString> m_ids;
    QSet<QString> m_paths; ///< The units whose states are heard of, active or not.
    QSet<QString> m_running;
    Task m_askTask;
};

} // namespace Tavik
