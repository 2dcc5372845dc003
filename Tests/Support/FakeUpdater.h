// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Updater.h>

#include <QStringList>

namespace Tavik::Test {

/// An updater that finds what the test says; records what it was told in order.
class FakeUpdater : public Updater
{
public:
    [[nodiscard]] std::optional<QString> whyNotUpdating() const override { return whyNot; }
    void startUpdater(UpdateUserDriver& userDriver) override
    {
        calls << QStringLiteral("start");
        driver = &userDriver;
    }
    void setAutomaticallyChecksForUpdates(bool checks) override
    {
        calls << (checks ? QStringLiteral("automatic") : QStringLiteral("manual"));
    }
    void setUpdateCheckInterval(std::chrono::seconds interval) override
    {
        calls << QStringLiteral("every %1 s").arg(interval.count());
    }
    void checkForUpdates() override { calls << QStringLiteral("check"); }
    void stopUpdater() override
    {
        calls << QStringLiteral("stop");
        driver = nullptr;
    }
    [[nodiscard]] std::optional<QString> programToRelaunch() const override { return std::nullopt; }

    std::optional<QString> whyNot;
    UpdateUserDriver* driver = nullptr; ///< While it is started.
    QStringList calls;
};

} // namespace Tavik::Test
