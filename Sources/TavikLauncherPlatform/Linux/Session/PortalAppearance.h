// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/Linux/Session/PortalWishes.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QObject>

#include <utility>

class QDBusPendingCallWatcher;

namespace Tavik {

class WorkQueue;

/// The desktop's wishes as the settings portal on the session bus tells them. Nothing here waits
/// for the bus; until it has answered, and without one, nothing is asked for.
class PortalAppearance final : public QObject, public DesktopAppearance
{
    Q_OBJECT

public:
    explicit PortalAppearance(WorkQueue& workQueue);

    [[nodiscard]] bool reducesMotion() const override { return m_wishes.reduceMotion(); }
    [[nodiscard]] ColorScheme colorScheme() const override { return m_wishes.colorScheme(); }
    [[nodiscard]] bool wantsHighContrast() const override { return m_wishes.wantHighContrast(); }

private Q_SLOTS:
    void settingChanged(const QDBusMessage& message);

private:
    void listen(const QDBusConnection& bus);
    void take(const QString& group, const QString& key, const QVariant& value);

    PortalWishes m_wishes;
    /// Those not answered, by group and key; children.
    QHash<std::pair<QString, QString>, QDBusPendingCallWatcher*> m_questions;
};

} // namespace Tavik
