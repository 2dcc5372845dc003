// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/LinuxStatusTray.h>

#include <QStringList>

namespace Tavik {

LinuxStatusTray::LinuxStatusTray(WorkQueue& workQueue, const Session& session)
    // That desktop's bar is dark in light and dark alike, and tells nobody.
    : m_isAlwaysDark(session.desktop.split(u':').contains(u"GNOME"))
    , m_notifier(workQueue)
{
    m_notifier.onChanged = [this] {
        changed();
    };
    if (session.isX11) {
        m_embedding.emplace();
        m_embedding->onChanged = [this] {
            changed();
        };
    }
}

StatusTray::Host LinuxStatusTray::host() const
{
    if (m_notifier.hasHost()) {
        return Host::notifier;
    }
    return m_embedding && m_embedding->isPresent() ? Host::embedding : Host::none;
}

std::optional<QColor> LinuxStatusTray::symbolColor() const
{
    if (m_embedding && m_embedding->symbolColor()) {
        return m_embedding->symbolColor();
    }
    return m_isAlwaysDark ? std::optional<QColor>(Qt::white) : std::nullopt;
}

void LinuxStatusTray::changed() const
{
    if (onChanged) {
        onChanged();
    }
}

} // namespace Tavik
