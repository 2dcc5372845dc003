// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastUpdater.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateUrls.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "tavik.updates")

using namespace std::chrono_literals;

constexpr auto defaultInterval = 24h;
constexpr double quietAfterStart = 5; ///< Seconds; the desktop has enough to do.
constexpr double quietAfterSession = 60; ///< Seconds; also after one that was cancelled.
constexpr double quietAfterConnecting = 10; ///< Seconds; names may not be found at once.
/// Seconds. The delay of a queue stands still while the computer sleeps, the wall clock does not.
constexpr double longestDelay = 3600;

QString otherWays()
{
    return u' '
        + Texts::tr("Newer versions come the way this one came: from your package manager, or from "
                    "whoever "
                    "built it for you.");
}

} // namespace

AppcastUpdater::AppcastUpdater(Dependencies dependencies)
    : m_environment(std::move(dependencies.environment))
    , m_record(dependencies.userDefaults, dependencies.random)
    , m_networkState(std::move(dependencies.networkState))
    , m_random(dependencies.random)
    , m_rhythm{.interval = defaultInterval, .jitter = m_random()}
{
    m_networkState->onChange = [this] {
        if (m_wake.isActive()) {
            m_quietUntil = m_environment.mainQueue.systemUptime() + quietAfterConnecting;
            scheduleNext();
        }
    };
}

AppcastUpdater::~AppcastUpdater() = default;

std::optional<QString> AppcastUpdater::whyNotUpdating(const UpdateSource& source)
{
    if (source.feedUrl.isEmpty()) {
        return Texts::tr("It was made without an update feed.") + otherWays();
    }
    if (source.publicKey.isEmpty()) {
        return Texts::tr("It was made without a key to tell genuine updates by.") + otherWays();
    }
    if (!mayFetch(QUrl(source.feedUrl, QUrl::StrictMode))) {
        return Texts::tr("It was made with an update feed at an address that is not safe: “%1”.")
                   .arg(source.feedUrl)
            + otherWays();
    }
    if (!UpdateSignature::fromBase64(source.publicKey, UpdateSignature::publicKeySize)) {
        return Texts::tr("It was made with a key for updates that is none.") + otherWays();
    }
    return std::nullopt;
}

void AppcastUpdater::startUpdater(UpdateUserDriver& driver)
{
    m_driver = &driver;
    m_quietUntil = m_environment.mainQueue.systemUptime() + quietAfterStart;
    scheduleNext();
}

void AppcastUpdater::setAutomaticallyChecksForUpdates(bool checks)
{
    m_automaticallyChecks = checks;
    scheduleNext();
}

void AppcastUpdater::setUpdateCheckInterval(std::chrono::seconds interval)
{
    m_rhythm.interval = interval;
    scheduleNext();
}

void AppcastUpdater::checkForUpdates()
{
    if (m_session) {
        m_session->userAsked();
    } else if (m_driver && !m_programToRelaunch) {
        beginSession({.userInitiated = true});
    }
}

void AppcastUpdater::stopUpdater()
{
    m_driver = nullptr;
    m_wake.cancel();
    m_session.reset();
}

std::optional<QString> AppcastUpdater::programToRelaunch() const
{
    return m_programToRelaunch;
}

void AppcastUpdater::scheduleNext()
{
    m_wake.cancel();
    const bool isBusy = m_session && !m_session->isReminding();
    if (!m_driver || !m_automaticallyChecks || isBusy || m_programToRelaunch) {
        return;
    }
    const auto due
        = UpdateSchedule::waitFor(m_record.history(), m_rhythm, m_environment.wallClock());
    const double quiet = m_quietUntil - m_environment.mainQueue.systemUptime();
    const double wait = std::max(static_cast<double>(due.count()), quiet);
    if (wait > 0) {
        wakeAfter(wait);
    } else if (!isFeedOnThisMachine() && !m_networkState->isOnline()) {
        wakeAfter(longestDelay); // Or when the network is back.
    } else if (m_session) {
        m_session->lookAgain();
    } else {
        beginSession({.userInitiated = false});
    }
}

void AppcastUpdater::wakeAfter(double seconds)
{
    m_wake = m_environment.mainQueue.after(std::min(seconds, longestDelay),
                                           [this] { scheduleNext(); });
}

bool AppcastUpdater::isFeedOnThisMachine() const
{
    return m_environment.feedUrl.scheme() == u"http"_s;
}

void AppcastUpdater::beginSession(const UpdateUserState& state)
{
    m_wake.cancel();
    m_session = std::make_unique<UpdateSession>(
        m_environment,
        m_record,
        *m_driver,
        UpdateSession::Hooks{.checked
                             = [this](const std::optional<QString>& failure) { checked(failure); },
                             .ended =
                                 [this](const std::optional<QString>& program) {
                                     sessionEnded(program);
                                 }});
    m_session->begin(state);
}

void AppcastUpdater::checked(const std::optional<QString>& failure)
{
    UpdateSchedule::History history = m_record.history();
    if (!failure) {
        history.failures = 0;
    } else if (!m_session->isUserInitiated()) {
        ++history.failures;
        qCWarning(log,
                  "Tavik Launcher: the scheduled check for updates failed: %s",
                  qUtf8Printable(*failure));
    } else {
        return; // The user sees it; the schedule tries for itself.
    }
    history.lastCheck = m_environment.wallClock();
    m_rhythm.jitter = m_random();
    m_record.setHistory(history);
    if (m_automaticallyChecks) {
        wakeAfter(0); // What was found may have to wait, and others may follow.
    }
}

void AppcastUpdater::sessionEnded(const std::optional<QString>& programToRelaunch)
{
    m_programToRelaunch = programToRelaunch;
    m_quietUntil = m_environment.mainQueue.systemUptime() + quietAfterSession;
    m_session.reset();
    scheduleNext();
    if (m_programToRelaunch && onTerminate) {
        onTerminate();
    }
}

} // namespace Tavik
