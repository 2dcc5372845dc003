// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/RequestPerformer.h>
#include <TavikLauncher/Shell/ScreenGuard.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>

#include <utility>

namespace Tavik {

RequestPerformer::RequestPerformer(const Dependencies& dependencies, Actions actions)
    : m_dependencies(dependencies)
    , m_actions(std::move(actions))
{ }

void RequestPerformer::perform(const AppRequest& request)
{
    const auto act = [this, request] {
        m_dependencies.windowServer.beginActivation(request.activation);
        carryOut(request);
        m_dependencies.windowServer.endActivation();
    };
    if (bringsUpRing(request.action)) {
        m_dependencies.screenGuard.whenFree(act);
    } else {
        act();
    }
}

bool RequestPerformer::bringsUpRing(AppAction action) const
{
    return action == AppAction::activate || action == AppAction::showLauncher
        || ((action == AppAction::toggleLauncher || action == AppAction::summon)
            && !m_actions.isRingVisible());
}

void RequestPerformer::carryOut(const AppRequest& request)
{
    switch (request.action) {
    case AppAction::summon:
        m_actions.pressTrigger();
        break;
    case AppAction::activate:
    case AppAction::showLauncher:
        m_actions.showRing();
        break;
    case AppAction::toggleLauncher:
        if (m_actions.isRingVisible()) {
            m_actions.hideRing();
        } else {
            m_actions.showRing();
        }
        break;
    case AppAction::hideLauncher:
        m_actions.hideRing();
        break;
    case AppAction::settings:
        m_actions.showSettings(request.argument);
        break;
    case AppAction::reindex:
        m_actions.showReindex();
        break;
    case AppAction::tour:
        m_actions.showTour();
        break;
    case AppAction::checkForUpdates:
        m_actions.checkForUpdates();
        break;
    case AppAction::checkDesktop:
        m_actions.showSettings(SettingsSection::desktop.toString());
        break;
    case AppAction::quit:
        m_actions.quit();
        break;
    }
}

} // namespace Tavik
