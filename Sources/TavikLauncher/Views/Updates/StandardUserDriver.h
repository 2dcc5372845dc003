// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Updates/UpdateWindow.h>
#include <TavikLauncherPlatform/Updater.h>

#include <memory>
#include <optional>

class QUrl;

namespace Tavik {

class DesktopAppearance;
class MainQueue;
class StandardUserDriverDelegate;
class UpdateAlertView;
class UpdateMessageView;
class UpdateStatusView;

/// Shows what the updater does and asks, one window at a time, and lets its delegate hint at what
/// was found by schedule instead. Windows live only while they are shown.
class StandardUserDriver final : public UpdateUserDriver
{
public:
    struct Dependencies
    {
        MainQueue& mainQueue;
        WindowServer& windowServer;
        const DesktopAppearance& appearance;
        StandardUserDriverDelegate& delegate;
    };
    struct Options
    {
        QString ownVersion; ///< Of the running program.
        QString nothingNewTitle; ///< Of the answer that there is no update.
        /// True while the user is at one of our windows.
        std::function<bool()> isInImmediateFocus;
        /// Called with every window before it is shown, to place it.
        std::function<void(AuxiliaryWindow&)> windowMade;
        std::function<void(const QUrl&)> openLink;
    };

    StandardUserDriver(const Dependencies& dependencies, Options options);
    ~StandardUserDriver() override;
    StandardUserDriver(const StandardUserDriver&) = delete;
    StandardUserDriver& operator=(const StandardUserDriver&) = delete;

    void showUserInitiatedUpdateCheck(std::function<void()> cancel) override;
    void showUpdateFound(const UpdateItem& item,
                         const UpdateUserState& state,
                         std::function<void(UpdateChoice)> reply) override;
    void showUpdateReleaseNotes(const ReleaseNotes& notes) override;
    void showUpdateReleaseNotesFailedToDownload(const QString& reason) override;
    void showUpdateNotFound(const QString& reason, std::function<void()> acknowledged) override;
    void showUpdaterError(const QString& reason, std::function<void()> acknowledged) override;
    void showDownloadInitiated(std::function<void()> cancel) override;
    void showDownloadProgress(qint64 received, qint64 total) override;
    void showVerifyingUpdate() override;
    void showReadyToInstallAndRelaunch(std::function<void(UpdateChoice)> reply) override;
    void showInstallingUpdate() override;
    void showUpdateHandedOver(std::function<void()> acknowledged) override;
    [[nodiscard]] bool isReminding() const override
    {
        return m_found && m_found->reply && !m_window;
    }
    void showUpdateInFocus() override;
    void dismissUpdateInstallation() override;

private:
    /// The update that the session is about.
    struct Found
    {
        UpdateItem item;
        std::function<void(UpdateChoice)> reply; ///< Empty once it has been given.
        std::optional<ReleaseNotes> notes; ///< Those that were fetched.
        QString notesFailure; ///< Why they were not.
        bool hasAttention = false;
    };

    /// `isAwaited`: the user waits for this window and for nothing else.
    void showFound(const UpdateUserState& state, bool isAwaited);
    void choose(UpdateChoice choice);
    void receiveAttention();
    [[nodiscard]] QString version() const;
    [[nodiscard]] QString failureTitle() const;
    /// Lets the status window show a stage; makes the window if there is none.
    template <typename Stage> void showStatus(const Stage& stage);
    void
    showAlert(const QString& title, const QString& text, const std::function<void()>& acknowledged);
    void present(UpdateView* view, const AuxiliaryWindow::Options& options);
    /// Brings the window before the user, and gives it the keyboard if it may have that.
    void bringUp(bool takesKeyboard);
    /// Whether what comes up now may have the keyboard: the user waits for it, or is at one of our
    /// windows. To be asked while the window before it is still there.
    [[nodiscard]] bool mayTakeKeyboard() const;
    /// Whether the user went on to something else from the window that is there.
    [[nodiscard]] bool isLeft() const;
    void takeDown();

    Dependencies m_dependencies;
    Options m_options;
    /// The user has asked for what comes next; not so once the update has been chosen, for then
    /// it takes its time.
    bool m_isAwaited = false;
    std::optional<Found> m_found;
    std::unique_ptr<UpdateWindow, DeleteLater> m_window;
    UpdateAlertView* m_alert = nullptr; ///< The window's content, if it is that.
    UpdateStatusView* m_status = nullptr; ///< The window's content, if it is that.
    std::optional<QRect> m_lastFrame; ///< Of the session's last window.
    QSize m_lastBorder; ///< How much larger that was than the window in it.
};

} // namespace Tavik
