// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/StandardUserDriver.h>
#include <TavikLauncher/Views/Updates/StandardUserDriverDelegate.h>
#include <TavikLauncher/Views/Updates/UpdateAlertView.h>
#include <TavikLauncher/Views/Updates/UpdateMessageView.h>
#include <TavikLauncher/Views/Updates/UpdateStatusView.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QApplication>
#include <QLayout>
#include <QUrl>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestVersion = 40; ///< In titles and in a menu.
constexpr qsizetype longestTitle = 120;

/// What the feed says, as one line of at most so many characters.
QString shortened(const QString& text, qsizetype longest)
{
    const QString line = text.simplified();
    return line.size() <= longest ? line : line.left(longest - 1) + u'…';
}

/// For closures that are to be called at most once, whatever they lead to.
template <typename... Arguments>
void callOnce(std::function<void(Arguments...)>& closure, Arguments... arguments)
{
    if (const auto taken = std::exchange(closure, nullptr)) {
        taken(arguments...);
    }
}

} // namespace

StandardUserDriver::StandardUserDriver(const Dependencies& dependencies, Options options)
    : m_dependencies(dependencies)
    , m_options(std::move(options))
{ }

StandardUserDriver::~StandardUserDriver()
{
    // At the end of the program nothing is deleted later any more.
    const std::unique_ptr<UpdateWindow> gone(m_window.release());
}

void StandardUserDriver::showUserInitiatedUpdateCheck(std::function<void()> cancel)
{
    m_isAwaited = true;
    showStatus([this, &cancel](UpdateStatusView& status) {
        status.showChecking([this, cancel = std::move(cancel)]() mutable {
            takeDown();
            callOnce(cancel);
        });
    });
    m_window->activate();
}

void StandardUserDriver::showUpdateFound(const UpdateItem& item,
                                         const UpdateUserState& state,
                                         std::function<void(UpdateChoice)> reply)
{
    m_isAwaited = state.userInitiated;
    m_found = Found{.item = item, .reply = std::move(reply)};
    m_found->item.displayVersionString = shortened(item.displayVersionString, longestVersion);
    m_found->item.title = shortened(item.title, longestTitle);
    StandardUserDriverDelegate& delegate = m_dependencies.delegate;
    const bool shows = state.userInitiated || !delegate.supportsGentleScheduledUpdateReminders()
        || delegate.standardUserDriverShouldHandleShowingScheduledUpdate(
            m_found->item, m_options.isInImmediateFocus());
    if (shows) {
        showFound(state, state.userInitiated && !isLeft());
    } else {
        takeDown();
        delegate.standardUserDriverWillHandleShowingUpdate(false, m_found->item, state);
    }
}

void StandardUserDriver::showFound(const UpdateUserState& state, bool isAwaited)
{
    const bool takesKeyboard = mayTakeKeyboard();
    takeDown();
    m_dependencies.delegate.standardUserDriverWillHandleShowingUpdate(true, m_found->item, state);
    auto* view = new UpdateAlertView(m_found->item,
                                     {.ownVersion = m_options.ownVersion, .isAwaited = isAwaited},
                                     {.choose = [this](UpdateChoice choice) { choose(choice); },
                                      .openLink = m_options.openLink});
    if (m_found->notes) {
        view->showReleaseNotes(*m_found->notes);
    } else if (!m_found->notesFailure.isEmpty()) {
        view->showReleaseNotesFailure(m_found->notesFailure);
    }
    present(view, {.size = view->preferredSize(), .smallestSize = view->smallestSize()});
    m_alert = view;
    m_window->onActivated = [this] {
        receiveAttention();
    };
    bringUp(takesKeyboard);
}

void StandardUserDriver::choose(UpdateChoice choice)
{
    takeDown();
    receiveAttention();
    m_isAwaited = false;
    if (m_found) {
        callOnce(m_found->reply, choice);
    }
}

void StandardUserDriver::receiveAttention()
{
    if (m_found && !std::exchange(m_found->hasAttention, true)) {
        m_dependencies.delegate.standardUserDriverDidReceiveUserAttention(m_found->item);
    }
}

void StandardUserDriver::showUpdateReleaseNotes(const ReleaseNotes& notes)
{
    if (m_found) {
        m_found->notes = notes;
    }
    if (m_alert) {
        m_alert->showReleaseNotes(notes);
    }
}

void StandardUserDriver::showUpdateReleaseNotesFailedToDownload(const QString& reason)
{
    if (m_found) {
        m_found->notesFailure = reason;
    }
    if (m_alert) {
        m_alert->showReleaseNotesFailure(reason);
    }
}

void StandardUserDriver::showUpdateNotFound(const QString& reason,
                                            std::function<void()> acknowledged)
{
    m_isAwaited = true; // Who has not asked is not answered.
    showAlert(m_options.nothingNewTitle, reason, acknowledged);
}

void StandardUserDriver::showUpdaterError(const QString& reason, std::function<void()> acknowledged)
{
    showAlert(failureTitle(), reason, acknowledged);
}

void StandardUserDriver::showDownloadInitiated(std::function<void()> cancel)
{
    showStatus([this, &cancel](UpdateStatusView& status) {
        status.showDownload(version(), [this, cancel = std::move(cancel)]() mutable {
            takeDown();
            callOnce(cancel);
        });
    });
    m_window->activate();
}

void StandardUserDriver::showDownloadProgress(qint64 received, qint64 total)
{
    if (m_status) {
        m_status->showDownloadProgress(received, total);
    }
}

void StandardUserDriver::showVerifyingUpdate()
{
    showStatus([](UpdateStatusView& status) { status.showVerifying(); });
    m_window->appear();
}

void StandardUserDriver::showReadyToInstallAndRelaunch(std::function<void(UpdateChoice)> reply)
{
    const bool takesKeyboard = mayTakeKeyboard();
    const auto answer = std::make_shared<std::function<void(UpdateChoice)>>(std::move(reply));
    showStatus([this, &answer](UpdateStatusView& status) {
        status.showReady(
            version(),
            [answer] { callOnce(*answer, UpdateChoice::install); },
            [this, answer] {
                takeDown();
                callOnce(*answer, UpdateChoice::remindLater);
            });
    });
    bringUp(takesKeyboard);
}

void StandardUserDriver::showInstallingUpdate()
{
    showStatus([](UpdateStatusView& status) { status.showInstalling(); });
    m_window->appear();
}

void StandardUserDriver::showUpdateHandedOver(std::function<void()> acknowledged)
{
    showAlert(
        Texts::tr("The update is with your installer."),
        Texts::tr(
            "Tavik Launcher %1 has been downloaded and verified. Your desktop's installer takes "
            "it from here. Once it is done, quit Tavik Launcher and start it again.")
            .arg(version()),
        acknowledged);
}

void StandardUserDriver::showUpdateInFocus()
{
    m_isAwaited = true;
    if (m_found && m_found->reply && !m_alert) {
        showFound({.userInitiated = true}, true);
    } else if (m_alert) {
        m_dependencies.delegate.standardUserDriverWillHandleShowingUpdate(
            true, m_found->item, {.userInitiated = true});
        m_window->activate();
    } else if (m_window) {
        m_window->activate();
    }
    receiveAttention();
}

void StandardUserDriver::dismissUpdateInstallation()
{
    takeDown();
    m_dependencies.delegate.standardUserDriverWillFinishUpdateSession();
    m_found.reset();
    m_lastFrame.reset();
    m_isAwaited = false;
}

QString StandardUserDriver::version() const
{
    return m_found ? m_found->item.displayVersionString : QString();
}

QString StandardUserDriver::failureTitle() const
{
    if (!m_found) {
        return Texts::tr("Looking for updates did not work.");
    }
    return m_found->item.isInformationOnly ? Texts::tr("The page could not be opened.")
                                           : Texts::tr("The update was not installed.");
}

template <typename Stage> void StandardUserDriver::showStatus(const Stage& stage)
{
    if (m_status) {
        stage(*m_status);
        return;
    }
    auto* view = new UpdateStatusView(m_dependencies.mainQueue, m_dependencies.appearance);
    stage(*view);
    present(view, {});
    m_status = view;
}

void StandardUserDriver::showAlert(const QString& title,
                                   const QString& text,
                                   const std::function<void()>& acknowledged)
{
    const bool takesKeyboard = mayTakeKeyboard();
    const bool isAwaited = m_isAwaited && !isLeft();
    takeDown();
    if (takesKeyboard) {
        m_dependencies.delegate.standardUserDriverWillShowModalAlert();
    }
    present(new UpdateMessageView({.title = title, .text = text, .isAwaited = isAwaited},
                                  [this, acknowledged = acknowledged]() mutable {
                                      takeDown();
                                      callOnce(acknowledged);
                                  }),
            {});
    bringUp(takesKeyboard);
}

bool StandardUserDriver::mayTakeKeyboard() const
{
    return m_isAwaited || m_options.isInImmediateFocus();
}

bool StandardUserDriver::isLeft() const
{
    return m_window && m_window->isLeft();
}

void StandardUserDriver::bringUp(bool takesKeyboard)
{
    if (takesKeyboard) {
        m_window->activate();
    } else {
        m_window->appear();
        QApplication::alert(m_window.get());
    }
}

void StandardUserDriver::present(UpdateView* view, const AuxiliaryWindow::Options& options)
{
    takeDown();
    AuxiliaryWindow::Options complete = options;
    complete.title = Texts::tr("Software Update");
    m_window.reset(new UpdateWindow(m_dependencies.windowServer, complete, view));
    m_window->layout()->activate();
    m_options.windowMade(*m_window);
    if (m_lastFrame) {
        // Where the user has moved the one before to. The new one has no frame yet.
        QRect frame({}, m_window->size() + m_lastBorder);
        frame.moveCenter(m_lastFrame->center());
        m_window->move(frame.topLeft());
    }
}

void StandardUserDriver::takeDown()
{
    if (m_window) {
        if (m_window->isVisible()) {
            m_lastFrame = m_window->frameGeometry();
            m_lastBorder = m_lastFrame->size() - m_window->size();
        }
        m_window->hide();
        m_window.reset();
    }
    m_alert = nullptr;
    m_status = nullptr;
}

} // namespace Tavik
