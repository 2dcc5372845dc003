// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/AppcastSelection.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateDocument.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateEnvironment.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateInstallation.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateKind.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateStage.h>

#include <memory>

namespace Tavik {

class UpdateRecord;

/// One look for updates and all that comes of it. What the schedule began stays silent unless it
/// finds something or the user joins in. Main thread only.
class UpdateSession
{
public:
    struct Hooks
    {
        /// The feed was read and judged; or why not, as a whole sentence for people.
        std::function<void(const std::optional<QString>& failure)> checked;
        /// Called once, when nothing is shown any more. May destroy the session.
        std::function<void(const std::optional<QString>& programToRelaunch)> ended;
    };

    UpdateSession(const UpdateEnvironment& environment,
                  UpdateRecord& record,
                  UpdateUserDriver& driver,
                  Hooks hooks);

    /// Once. Destroying the session cancels it, without a word to the driver.
    void begin(const UpdateUserState& state);
    /// The user asks while the session is under way.
    void userAsked();
    /// What was found by schedule waits for the user, who has not looked at it.
    [[nodiscard]] bool isReminding() const;
    /// While it is reminding: looks at the feed once more, and reminds of something newer, or of
    /// something that has become critical, instead.
    void lookAgain();
    [[nodiscard]] bool isUserInitiated() const { return m_state.userInitiated; }

private:
    void showCheck();
    void fetchFeed();
    void feedArrived(const UpdateDocument& document, const std::optional<QString>& failure);
    void feedRead(const AppcastFeed& feed, const QStringList& kinds);
    void offer(const AppcastSelection::Offer& offer);
    void checkFailed(const QString& reason);
    void nothingFound(const QString& reason);
    void found();
    void fetchNotes();
    void decide(UpdateChoice choice);
    void install();
    void openPage();
    void fail(const QString& reason);
    void end(const std::optional<QString>& programToRelaunch = {});

    const UpdateEnvironment& m_environment;
    UpdateRecord& m_record;
    UpdateUserDriver& m_driver;
    Hooks m_hooks;
    UpdateUserState m_state;
    bool m_isChecking = false;
    bool m_isLookingAgain = false;
    bool m_isFound = false; ///< And the user has not decided.
    AppcastSelection::Offer m_offer;
    UpdateKind m_kind;
    std::unique_ptr<UpdateDocumentFetch> m_fetch; ///< Of the feed, later of the notes.
    std::unique_ptr<UpdateInstallation> m_installation;
    UpdateStage m_stage;
};

} // namespace Tavik
