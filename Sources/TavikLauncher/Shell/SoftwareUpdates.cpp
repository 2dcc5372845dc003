// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Shell/OpenPage.h>
#include <TavikLauncher/Shell/SoftwareUpdates.h>
#include <TavikLauncher/Shell/UpdateDebugLog.h>
#include <TavikLauncherPlatform/Texts.h>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

std::chrono::seconds interval(UpdateCheckFrequency frequency)
{
    constexpr std::chrono::seconds day = 24h;
    switch (frequency) {
    case UpdateCheckFrequency::daily:
        break;
    case UpdateCheckFrequency::weekly:
        return 7 * day;
    case UpdateCheckFrequency::monthly:
        return 30 * day;
    }
    return day;
}

QString nothingNewTitle(const Updater& updater)
{
    return updater.whyNotUpdating() ? Texts::tr("This build is not updated by itself.")
                                    : Texts::tr("There is no update to install.");
}

} // namespace

SoftwareUpdates::SoftwareUpdates(const Dependencies& dependencies, Actions actions)
    : m_dependencies(dependencies)
    , m_actions(std::move(actions))
    , m_activation({.mainQueue = dependencies.mainQueue,
                    .application = dependencies.application,
                    .logUpdateDebug =
                        [this](const QString& message) {
                            logUpdateDebug(m_dependencies.fileManager, message);
                        }})
    , m_userDriver(
          {dependencies.mainQueue, dependencies.windowServer, dependencies.appearance, *this},
          {.ownVersion = dependencies.version,
           .nothingNewTitle = nothingNewTitle(dependencies.updater),
           .isInImmediateFocus = m_actions.isInImmediateFocus,
           .windowMade = m_actions.windowMade,
           .openLink = openPage})
{
    m_dependencies.updater.startUpdater(m_userDriver);
}

SoftwareUpdates::~SoftwareUpdates()
{
    m_dependencies.updater.stopUpdater();
}

void SoftwareUpdates::applyUpdateSettings()
{
    const LauncherSettings& settings = m_dependencies.settings;
    m_dependencies.updater.setAutomaticallyChecksForUpdates(settings.autoUpdatesEnabled());
    m_dependencies.updater.setUpdateCheckInterval(interval(settings.updateCheckFrequency()));
}

void SoftwareUpdates::checkForUpdates()
{
    m_dependencies.updater.checkForUpdates();
}

bool SoftwareUpdates::standardUserDriverShouldHandleShowingScheduledUpdate(const UpdateItem&,
                                                                           bool andInImmediateFocus)
{
    return andInImmediateFocus;
}

void SoftwareUpdates::standardUserDriverWillHandleShowingUpdate(bool handleShowingUpdate,
                                                                const UpdateItem& forUpdate,
                                                                const UpdateUserState& state)
{
    if (state.userInitiated) {
        m_activation.activateForSparkleUI({.repositionUpdateWindow = true});
    } else if (!handleShowingUpdate) {
        m_actions.showUpdateReminder(forUpdate.displayVersionString);
    }
}

void SoftwareUpdates::standardUserDriverDidReceiveUserAttention(const UpdateItem&)
{
    m_actions.clearUpdateReminder();
}

void SoftwareUpdates::standardUserDriverWillFinishUpdateSession()
{
    m_actions.clearUpdateReminder();
}

void SoftwareUpdates::standardUserDriverWillShowModalAlert()
{
    m_activation.activateForSparkleUI({.repositionUpdateWindow = false});
}

} // namespace Tavik
