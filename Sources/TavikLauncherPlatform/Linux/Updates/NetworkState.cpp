// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/NetworkState.h>

#include <gio/gio.h>

namespace Tavik {

namespace {

void tellChange(GNetworkMonitor*, gboolean, gpointer state)
{
    const auto& tell = static_cast<SystemNetworkState*>(state)->onChange;
    if (tell) {
        tell();
    }
}

} // namespace

SystemNetworkState::~SystemNetworkState()
{
    if (m_monitor) {
        g_signal_handler_disconnect(m_monitor, m_listener);
    }
}

bool SystemNetworkState::isOnline()
{
    if (!m_monitor) {
        m_monitor = g_network_monitor_get_default();
        m_listener = g_signal_connect(m_monitor, "network-changed", G_CALLBACK(tellChange), this);
    }
    return g_network_monitor_get_network_available(m_monitor) != 0;
}

} // namespace Tavik
