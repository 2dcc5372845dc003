// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>

namespace Tavik {

/// Where this build's newer versions come from.
struct UpdateSource
{
    QString feedUrl; ///< Empty: this build is not updated by itself.
    QString publicKey; ///< Ed25519, 32 bytes in Base64; empty: as above.
    QString version; ///< Of the running program.
    QStringList pageHosts; ///< Where the feed may lead people to, besides its own host.
};

/// Where to read what is new in a version. The text comes from the network: it is for a view that
/// neither runs scripts nor loads anything.
struct ReleaseNotes
{
    enum class Format {
        plainText,
        html,
        markdown,
    };
    Format format = Format::plainText;
    QString text;

    bool operator==(const ReleaseNotes&) const = default;
};

/// One version that the feed offers and this program may take.
struct UpdateItem
{
    QString versionString; ///< What is compared; never empty.
    QString displayVersionString; ///< What people read; never empty.
    QString title;
    QDateTime date; ///< Invalid when the feed does not say.
    std::optional<ReleaseNotes> releaseNotes; ///< Inline notes.
    QUrl releaseNotesUrl; ///< Notes to be fetched; empty without.
    QUrl infoUrl; ///< The page about the version; empty without.
    qint64 contentLength = 0; ///< Of the package, in bytes; 0 without a package.
    bool isInformationOnly = false; ///< There is a page to read, and nothing to install.
    bool isCritical = false; ///< Cannot be skipped.

    bool operator==(const UpdateItem&) const = default;
};

/// How an update came to be shown.
struct UpdateUserState
{
    bool userInitiated = false; ///< The user asked; otherwise the schedule did.

    bool operator==(const UpdateUserState&) const = default;
};

enum class UpdateChoice {
    install,
    remindLater, ///< Also what closing the window means.
    skip,
};

/// What the updater shows and asks. Implemented by windows; every call comes on the main thread,
/// and each handed closure is called at most once. A call that shows something replaces what was
/// shown before.
class UpdateUserDriver
{
public:
    virtual ~UpdateUserDriver() = default;

    /// The feed is being read because the user asked.
    virtual void showUserInitiatedUpdateCheck(std::function<void()> cancel) = 0;
    virtual void showUpdateFound(const UpdateItem& item,
                                 const UpdateUserState& state,
                                 std::function<void(UpdateChoice)> reply)
        = 0;
    /// The linked notes of the update that was found, or why there are none to read.
    virtual void showUpdateReleaseNotes(const ReleaseNotes& notes) = 0;
    virtual void showUpdateReleaseNotesFailedToDownload(const QString& reason) = 0;
    /// Nothing newer; `reason` is a whole sentence for people.
    virtual void showUpdateNotFound(const QString& reason, std::function<void()> acknowledged) = 0;
    /// `reason` is a whole sentence for people.
    virtual void showUpdaterError(const QString& reason, std::function<void()> acknowledged) = 0;
    virtual void showDownloadInitiated(std::function<void()> cancel) = 0;
    /// Bytes that are here and bytes in all. Called often.
    virtual void showDownloadProgress(qint64 received, qint64 total) = 0;
    virtual void showVerifyingUpdate() = 0;
    /// The package is verified; `install` puts it in place and starts it, `remindLater` and `skip`
    /// leave everything as it is.
    virtual void showReadyToInstallAndRelaunch(std::function<void(UpdateChoice)> reply) = 0;
    virtual void showInstallingUpdate() = 0;
    /// The package was handed to the desktop's installer, which takes it from here.
    virtual void showUpdateHandedOver(std::function<void()> acknowledged) = 0;
    /// True while what was found waits behind a quiet reminder: no window shows it. Something newer
    /// may then be found in its place.
    [[nodiscard]] virtual bool isReminding() const = 0;
    /// The user asked again while a session is under way: brings up what it shows, or what a
    /// quiet reminder stands for.
    virtual void showUpdateInFocus() = 0;
    /// The session is over; takes down whatever is still shown.
    virtual void dismissUpdateInstallation() = 0;
};

/// Looks for newer versions of this program by schedule and on demand, and installs them. One
/// session (check, question, download, installation) at a time. Main thread only.
class Updater
{
public:
    virtual ~Updater() = default;

    /// Why this build is not updated by itself, in whole sentences for people; absent when it is.
    [[nodiscard]] virtual std::optional<QString> whyNotUpdating() const = 0;
    /// Begins the schedule. Once, before the other commands; `driver` outlives the updater's use.
    virtual void startUpdater(UpdateUserDriver& driver) = 0;
    virtual void setAutomaticallyChecksForUpdates(bool checks) = 0;
    virtual void setUpdateCheckInterval(std::chrono::seconds interval) = 0;
    /// A check by the user: always answered, by windows of the driver.
    virtual void checkForUpdates() = 0;
    /// Ends the session and the schedule: nothing calls the driver any more.
    virtual void stopUpdater() = 0;
    /// The program to start in place of this one once it has ended; absent unless an update was
    /// installed that wants it.
    [[nodiscard]] virtual std::optional<QString> programToRelaunch() const = 0;

    /// Ends this program so that `programToRelaunch` can be started.
    std::function<void()> onTerminate;
};

} // namespace Tavik
