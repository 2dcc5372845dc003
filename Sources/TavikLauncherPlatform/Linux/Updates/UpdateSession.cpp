// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppImage.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastReader.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastVersion.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateFolder.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateRecord.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSession.h>
#include <TavikLauncherPlatform/Texts.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QSysInfo>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostNotesBytes = 1'000'000;

void removeLeftovers(const UpdateEnvironment& environment)
{
    const auto remove
        = [folder = environment.folder, image = environment.image, now = environment.wallClock()] {
              UpdateFolder::removeLeftovers(folder, now);
              return image.isEmpty() || PartFile::removeLeftover(AppImage::partFile(image));
          };
    environment.workQueue.run(WorkPriority::utility, remove, [](bool) {});
}

} // namespace

UpdateSession::UpdateSession(const UpdateEnvironment& environment,
                             UpdateRecord& record,
                             UpdateUserDriver& driver,
                             Hooks hooks)
    : m_environment(environment)
    , m_record(record)
    , m_driver(driver)
    , m_hooks(std::move(hooks))
{ }

void UpdateSession::begin(const UpdateUserState& state)
{
    m_state = state;
    m_isChecking = true;
    removeLeftovers(m_environment);
    fetchFeed();
    if (m_state.userInitiated) {
        showCheck();
    }
}

bool UpdateSession::isReminding() const
{
    return m_isFound && !m_state.userInitiated && m_driver.isReminding();
}

void UpdateSession::lookAgain()
{
    m_isLookingAgain = true;
    fetchFeed();
}

void UpdateSession::fetchFeed()
{
    m_fetch = std::make_unique<UpdateDocumentFetch>(
        m_environment.transfer(),
        UpdateDocumentFetch::Request{.url = m_environment.feedUrl,
                                     .subject = Texts::tr("The list of updates"),
                                     .mostBytes = AppcastReader::mostBytes},
        [this](const UpdateDocument& document, const std::optional<QString>& failure) {
            feedArrived(document, failure);
        });
}

void UpdateSession::userAsked()
{
    if (m_isChecking && !m_state.userInitiated) {
        m_state.userInitiated = true;
        showCheck();
    } else {
        m_driver.showUpdateInFocus();
    }
}

void UpdateSession::showCheck()
{
    m_driver.showUserInitiatedUpdateCheck(m_stage.answer([this] { end(); }));
}

void UpdateSession::feedArrived(const UpdateDocument& document,
                                const std::optional<QString>& failure)
{
    m_fetch.reset();
    if (failure) {
        checkFailed(*failure);
        return;
    }
    struct Reading
    {
        AppcastFeed feed;
        QStringList kinds; ///< That can be installed here.
    };
    const auto read = [this](const Reading& reading) {
        feedRead(reading.feed, reading.kinds);
    };
    m_environment.workQueue.run(
        WorkPriority::userInitiated,
        [document,
         key = m_environment.publicKey,
         isImage = !m_environment.image.isEmpty(),
         hasInstaller = m_environment.hasInstaller] {
            return Reading{
                .feed
                = AppcastReader::read(document.bytes, {.feedUrl = document.url, .publicKey = key}),
                .kinds = isImage ? QStringList(u"appimage"_s) : updateKindsFor(hasInstaller)};
        },
        m_stage.news(read));
}

void UpdateSession::feedRead(const AppcastFeed& feed, const QStringList& kinds)
{
    if (feed.error) {
        checkFailed(*feed.error);
        return;
    }
    const QDateTime now = m_environment.wallClock();
    const AppcastSelection::Selection selection
        = AppcastSelection::select(feed.items,
                                   {.runningVersion = m_environment.version,
                                    .systemVersion = QSysInfo::kernelVersion(),
                                    .userInitiated = m_state.userInitiated,
                                    .now = now,
                                    .skippedVersion = m_record.skippedVersion(),
                                    .rolloutGroup = m_record.rolloutGroup(),
                                    .newestSeenVersion = m_record.newestSeenVersion(now),
                                    .kinds = kinds,
                                    .processor = m_environment.processor,
                                    .pageHosts = m_environment.pageHosts});
    if (selection.isRefused) {
        checkFailed(selection.reason);
        return;
    }
    m_record.setNewestSeenVersion(selection.newestSeenVersion, now);
    if (std::exchange(m_isLookingAgain, false)) {
        m_hooks.checked({});
        const bool isBetter = selection.offer && isReminding()
            && (AppcastVersion::compare(m_offer.update.versionString,
                                        selection.offer->update.versionString)
                    < 0
                || (selection.offer->update.isCritical && !m_offer.update.isCritical));
        if (isBetter) {
            offer(*selection.offer);
        }
        return;
    }
    m_isChecking = false;
    m_hooks.checked({});
    if (selection.offer) {
        offer(*selection.offer);
    } else {
        nothingFound(selection.reason);
    }
}

void UpdateSession::offer(const AppcastSelection::Offer& offer)
{
    m_offer = offer;
    if (m_offer.enclosure) {
        m_kind = updateKind(*m_offer.enclosure, !m_environment.image.isEmpty());
    }
    found();
}

void UpdateSession::checkFailed(const QString& reason)
{
    m_isChecking = false;
    m_hooks.checked(reason);
    if (std::exchange(m_isLookingAgain, false)) {
        return; // What was found before still is.
    }
    if (m_state.userInitiated) {
        fail(reason);
    } else {
        end();
    }
}

void UpdateSession::nothingFound(const QString& reason)
{
    if (!m_state.userInitiated) {
        end();
        return;
    }
    m_stage.next();
    m_driver.showUpdateNotFound(reason, m_stage.answer([this] { end(); }));
}

void UpdateSession::found()
{
    m_isFound = true;
    m_stage.next();
    const UpdateItem update = m_offer.update;
    const UpdateUserState state = m_state;
    if (!update.releaseNotes && !update.releaseNotesUrl.isEmpty()) {
        fetchNotes();
    }
    m_driver.showUpdateFound(
        update, state, m_stage.answer([this](UpdateChoice choice) { decide(choice); }));
}

void UpdateSession::fetchNotes()
{
    m_fetch = std::make_unique<UpdateDocumentFetch>(
        m_environment.transfer(),
        UpdateDocumentFetch::Request{.url = m_offer.update.releaseNotesUrl,
                                     .subject = Texts::tr("The text about the new version"),
                                     .mostBytes = mostNotesBytes},
        [this](const UpdateDocument& document, const std::optional<QString>& failure) {
            m_fetch.reset();
            const std::optional<ReleaseNotes> notes
                = failure ? std::nullopt : releaseNotes(document);
            if (notes) {
                m_driver.showUpdateReleaseNotes(*notes);
            } else {
                m_driver.showUpdateReleaseNotesFailedToDownload(failure.value_or(
                    Texts::tr("What the server sent about the new version is no text.")));
            }
        });
}

void UpdateSession::decide(UpdateChoice choice)
{
    m_isFound = false;
    m_fetch.reset();
    const UpdateItem& update = m_offer.update;
    if (choice == UpdateChoice::install) {
        if (m_offer.enclosure) {
            install();
        } else {
            openPage();
        }
        return;
    }
    if (choice == UpdateChoice::skip && !update.isCritical) {
        m_record.setSkippedVersion(update.versionString);
    }
    end();
}

void UpdateSession::install()
{
    m_installation
        = std::make_unique<UpdateInstallation>(m_environment,
                                               m_driver,
                                               *m_offer.enclosure,
                                               m_kind,
                                               [this](const UpdateInstallation::Outcome& outcome) {
                                                   if (outcome.failure.isEmpty()) {
                                                       end(outcome.programToRelaunch);
                                                   } else {
                                                       fail(outcome.failure);
                                                   }
                                               });
    m_installation->begin();
}

void UpdateSession::openPage()
{
    m_environment.workQueue.run(
        WorkPriority::launch,
        [open = m_environment.open, page = m_offer.update.infoUrl] { return open(page); },
        m_stage.news([this](const std::optional<QString>& failure) {
            if (failure) {
                fail(*failure);
            } else {
                end();
            }
        }));
}

void UpdateSession::fail(const QString& reason)
{
    m_stage.next();
    m_driver.showUpdaterError(reason, m_stage.answer([this] { end(); }));
}

void UpdateSession::end(const std::optional<QString>& programToRelaunch)
{
    m_stage.next();
    m_fetch.reset();
    const auto ended = m_hooks.ended; // The driver may stop the updater.
    m_driver.dismissUpdateInstallation();
    ended(programToRelaunch);
}

} // namespace Tavik
