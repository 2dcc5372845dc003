// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <optional>

class QDBusServiceWatcher;

namespace Tavik {

class WorkQueue;

/// Tells which applications have their name on the session bus: they run, also where nobody tells
/// of their windows. Only names that it was asked to follow wake the program. Main thread only.
class ServiceNames final : public QObject
{
    Q_OBJECT

public:
    explicit ServiceNames(WorkQueue& workQueue);
    ~ServiceNames() override;

    /// From now on these application IDs and no others; what can be no name is left out.
    void follow(const QSet<QString>& ids);
    /// Those of them that somebody has.
    [[nodiscard]] const QSet<QString>& owned() const { return m_owned; }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void takeAll(const QStringList& names);

private:
    void watch();
    void take(const QSet<QString>& owned);

    std::optional<QDBusConnection> m_bus;
    QDBusServiceWatcher* m_watcher; ///< A child.
    QSet<QString> m_ids;
    QSet<QString> m_owned;
};

} // namespace Tavik
