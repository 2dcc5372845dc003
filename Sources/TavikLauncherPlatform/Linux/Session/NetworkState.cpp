// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/Gio.h>
#include <TavikLauncherPlatform/Linux/Session/NetworkState.h>

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
        Gio::load()->g_signal_handler_disconnect(m_monitor, m_listener);
    }
}

bool SystemNetworkState::isOnline()
{
    const Gio* gio = Gio::load();
    if (!gio) {
        return true;
    }
    if (!m_monitor) {
        m_monitor = gio->g_network_monitor_get_default();
        m_listener = gio->g_signal_connect_data(
            m_monitor, "network-changed", G_CALLBACK(tellChange), this, nullptr, GConnectFlags(0));
    }
    return gio->g_network_monitor_get_network_available(m_monitor) != 0;
}

} // namespace Tavik
