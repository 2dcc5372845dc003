// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/SettingsOffer.h>
#include <TavikLauncherPlatform/StatusTray.h>

#include <QApplication>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {

/// By then a desktop that has a tray has said so, if it was there before us.
constexpr double trayPatienceSeconds = 3;

} // namespace

SettingsOffer::SettingsOffer(const StatusTray& tray,
                             MainQueue& mainQueue,
                             std::function<void()> showSettings)
    : m_tray(tray)
    , m_mainQueue(mainQueue)
    , m_showSettings(std::move(showSettings))
{ }

void SettingsOffer::makeSoon(std::function<bool()> isFirstOfLogin)
{
    m_wait = m_mainQueue.after(trayPatienceSeconds,
                               [this, isFirstOfLogin = std::move(isFirstOfLogin)] {
                                   if (isFirstOfLogin()) {
                                       make();
                                   }
                               });
}

void SettingsOffer::make()
{
    const bool isSeen = m_tray.host() != StatusTray::Host::none
        || std::ranges::any_of(QApplication::topLevelWidgets(), &QWidget::isVisible);
    if (!isSeen) {
        m_showSettings();
    }
}

} // namespace Tavik
