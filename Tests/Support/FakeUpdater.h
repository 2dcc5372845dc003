// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Updater.h>

#include <QStringList>

namespace Tavik::Test {

/// An updater that finds what the test says; notes what it was told in order.
class FakeUpdater final : public Updater
{
public:
    [[nodiscard]] std::optional<QString> whyNotUpdating() const override { return whyNot; }
    void startUpdater(UpdateUserDriver& userDriver) override
    {
        note(QStringLiteral("start updater"));
        driver = &userDriver;
    }
    void setAutomaticallyChecksForUpdates(bool checks) override
    {
        note(checks ? QStringLiteral("check by itself") : QStringLiteral("check when asked"));
    }
    void setUpdateCheckInterval(std::chrono::seconds interval) override
    {
        note(QStringLiteral("every %1 s").arg(interval.count()));
    }
    void checkForUpdates() override { note(QStringLiteral("check")); }
    void stopUpdater() override
    {
        note(QStringLiteral("stop updater"));
        driver = nullptr;
    }
    [[nodiscard]] std::optional<QString> programToRelaunch() const override { return std::nullopt; }

    std::optional<QString> whyNot;
    UpdateUserDriver* driver = nullptr; ///< While it is started.
    QStringList calls;
    std::function<void(const QString&)> onCall; ///< May be empty.

private:
    void note(const QString& call)
    {
        calls << call;
        if (onCall) {
            onCall(call);
        }
    }
};

} // namespace Tavik::Test
