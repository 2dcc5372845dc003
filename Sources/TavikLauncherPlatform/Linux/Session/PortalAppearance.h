// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/DesktopAppearance.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <array>

namespace Tavik {

class WorkQueue;

/// The desktop's wishes as the settings portal on the session bus tells them. Nothing here waits
/// for the bus; until it has answered, and without one, nothing is asked for.
class PortalAppearance final : public QObject, public DesktopAppearance
{
    Q_OBJECT

public:
    explicit PortalAppearance(WorkQueue& workQueue);

    /// What one setting of the portal says about motion; for the tests.
    [[nodiscard]] static bool
    asksForLessMotion(const QString& group, const QString& key, const QVariant& value);

    /// What a value of the portal's colour scheme means; for the tests.
    [[nodiscard]] static ColorScheme colorScheme(const QVariant& value);

    [[nodiscard]] bool reducesMotion() const override;
    [[nodiscard]] ColorScheme colorScheme() const override { return m_colorScheme; }

private Q_SLOTS:
    void settingChanged(const QDBusMessage& message);

private:
    void listen(const QDBusConnection& bus);
    void take(std::size_t setting, const QVariant& value);

    std::array<bool, 3> m_asks{}; ///< One for each setting that may ask for less motion.
    ColorScheme m_colorScheme = ColorScheme::noPreference;
};

} // namespace Tavik
