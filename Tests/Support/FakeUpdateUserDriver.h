// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Updater.h>

#include <QStringList>

#include <utility>

namespace Tavik::Test {

/// Shows nothing and records what it should show, in order. Answers when the test says so, or at
/// once where the test has put an answer down.
class FakeUpdateUserDriver final : public UpdateUserDriver
{
public:
    void showUserInitiatedUpdateCheck(std::function<void()> cancel) override
    {
        cancelCheck = std::move(cancel);
        record(QStringLiteral("checking"));
    }
    void showUpdateFound(const UpdateItem& found,
                         const UpdateUserState& state,
                         std::function<void(UpdateChoice)> reply) override
    {
        item = found;
        choose = std::move(reply);
        record(QStringLiteral("found ") + found.displayVersionString
               + (state.userInitiated ? QStringLiteral(" for the user") : QString()));
        if (choice) {
            choose(*choice);
        }
    }
    void showUpdateReleaseNotes(const ReleaseNotes& fetched) override
    {
        record(QStringLiteral("notes"));
        notes = fetched;
    }
    void showUpdateReleaseNotesFailedToDownload(const QString& why) override
    {
        record(QStringLiteral("no notes"));
        reason = why;
    }
    void showUpdateNotFound(const QString& why, std::function<void()> acknowledged) override
    {
        tell(QStringLiteral("not found"), why, acknowledged);
    }
    void showUpdaterError(const QString& why, std::function<void()> acknowledged) override
    {
        tell(QStringLiteral("error"), why, acknowledged);
    }
    void showDownloadInitiated(std::function<void()> cancel) override
    {
        cancelDownload = std::move(cancel);
        record(QStringLiteral("downloading"));
    }
    void showDownloadProgress(qint64, qint64) override { }
    void showVerifyingUpdate() override { record(QStringLiteral("verifying")); }
    void showReadyToInstallAndRelaunch(std::function<void(UpdateChoice)> reply) override
    {
        install = std::move(reply);
        record(QStringLiteral("ready"));
        if (choice) {
            install(*choice);
        }
    }
    void showInstallingUpdate() override { record(QStringLiteral("installing")); }
    void showUpdateHandedOver(std::function<void()> acknowledged) override
    {
        tell(QStringLiteral("handed over"), {}, acknowledged);
    }
    [[nodiscard]] bool isReminding() const override { return reminds; }
    void showUpdateInFocus() override { record(QStringLiteral("in focus")); }
    void dismissUpdateInstallation() override { record(QStringLiteral("over")); }

    /// To every question, at once; nothing waits for the test.
    std::optional<UpdateChoice> choice;

    bool reminds = false; ///< What was found waits behind a reminder.

    /// Runs inside every call, as a driver may end everything there.
    std::function<void(const QString& call)> onCall;

    QStringList calls;
    QString reason; ///< The last sentence for people.
    UpdateItem item;
    ReleaseNotes notes;
    std::function<void()> cancelCheck;
    std::function<void()> cancelDownload;
    std::function<void(UpdateChoice)> choose;
    std::function<void(UpdateChoice)> install;

private:
    void record(const QString& call)
    {
        calls << call;
        if (onCall) {
            onCall(call);
        }
    }
    void tell(const QString& call, const QString& why, const std::function<void()>& acknowledged)
    {
        reason = why;
        record(call);
        acknowledged();
    }
};

} // namespace Tavik::Test
