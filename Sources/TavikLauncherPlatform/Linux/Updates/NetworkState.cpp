// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/NetworkState.h>

#include <QNetworkInformation>

namespace Tavik {

bool SystemNetworkState::isOnline()
{
    if (!m_isLoaded) {
        load();
    }
    const QNetworkInformation* information = QNetworkInformation::instance();
    return !information
        || information->reachability() != QNetworkInformation::Reachability::Disconnected;
}

void SystemNetworkState::load()
{
    using enum QNetworkInformation::Feature;
    m_isLoaded = true;
    // The usual one needs a service that not every system runs.
    if (!QNetworkInformation::loadDefaultBackend()
        && !QNetworkInformation::loadBackendByFeatures(Reachability)) {
        return;
    }
    QObject::connect(QNetworkInformation::instance(),
                     &QNetworkInformation::reachabilityChanged,
                     &m_context,
                     [this] {
                         if (onChange) {
                             onChange();
                         }
                     });
}

} // namespace Tavik
