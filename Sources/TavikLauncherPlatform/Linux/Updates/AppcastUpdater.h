// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Session/NetworkState.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateEnvironment.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateRecord.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSession.h>
#include <TavikLauncherPlatform/Updater.h>

#include <memory>

namespace Tavik {

class UserDefaults;

/// The updater of a build that has a feed and a key. The schedule follows the wall clock, across
/// restarts and sleep; without automatic checks nothing wakes up for it.
class AppcastUpdater final : public Updater
{
public:
    struct Dependencies
    {
        UserDefaults& userDefaults;
        std::unique_ptr<NetworkState> networkState;
        std::function<double()> random; ///< From 0 to below 1.
        UpdateEnvironment environment;
    };

    explicit AppcastUpdater(Dependencies dependencies);
    ~AppcastUpdater() override;
    AppcastUpdater(const AppcastUpdater&) = delete;
    AppcastUpdater& operator=(const AppcastUpdater&) = delete;

    /// Why nothing can be updated from there, in whole sentences for people; absent when all is
    /// there.
    [[nodiscard]] static std::optional<QString> whyNotUpdating(const UpdateSource& source);

    [[nodiscard]] std::optional<QString> whyNotUpdating() const override { return std::nullopt; }
    void startUpdater(UpdateUserDriver& driver) override;
    void setAutomaticallyChecksForUpdates(bool checks) override;
    void setUpdateCheckInterval(std::chrono::seconds interval) override;
    void checkForUpdates() override;
    void stopUpdater() override;
    [[nodiscard]] std::optional<QString> programToRelaunch() const override;

private:
    void scheduleNext();
    void wakeAfter(double seconds);
    void beginSession(const UpdateUserState& state);
    void checked(const std::optional<QString>& failure);
    void sessionEnded(const std::optional<QString>& programToRelaunch);
    [[nodiscard]] bool isFeedOnThisMachine() const;

    UpdateEnvironment m_environment;
    UpdateRecord m_record;
    std::unique_ptr<NetworkState> m_networkState;
    std::function<double()> m_random;
    UpdateUserDriver* m_driver = nullptr;
    bool m_automaticallyChecks = false;
    UpdateSchedule::Rhythm m_rhythm;
    double m_quietUntil = 0; ///< In `MainQueue::systemUptime`.
    std::optional<QString> m_programToRelaunch;
    Task m_wake;
    std::unique_ptr<UpdateSession> m_session;
};

} // namespace Tavik
