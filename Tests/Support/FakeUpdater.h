// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Updater.h>

#include <QStringList>

#include <Support/Noting.h>

namespace Tavik::Test {

/// An updater that finds what the test says; notes what it was told in order.
class FakeUpdater final : public Updater, public Noting
{
public:
    [[nodiscard]] std::optional<QString> whyNotUpdating() const override { return whyNot; }
    void startUpdater(UpdateUserDriver& userDriver) override
    {
        told(QStringLiteral("start updater"));
        driver = &userDriver;
    }
    void setAutomaticallyChecksForUpdates(bool checks) override
    {
        told(checks ? QStringLiteral("check by itself") : QStringLiteral("check when asked"));
    }
    void setUpdateCheckInterval(std::chrono::seconds interval) override
    {
        told(QStringLiteral("every %1 s").arg(interval.count()));
    }
    void checkForUpdates() override { told(QStringLiteral("check")); }
    void stopUpdater() override
    {
        told(QStringLiteral("stop updater"));
        driver = nullptr;
    }
    [[nodiscard]] std::optional<QString> programToRelaunch() const override { return std::nullopt; }

    std::optional<QString> whyNot;
    UpdateUserDriver* driver = nullptr; ///< While it is started.
    QStringList calls;

private:
    void told(const QString& call)
    {
        calls << call;
        note(qPrintable(call));
    }
};

} // namespace Tavik::Test
