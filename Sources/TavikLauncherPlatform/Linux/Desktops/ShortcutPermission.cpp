// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutPermission.h>
#include <TavikLauncherPlatform/Texts.h>

#include <utility>

namespace Tavik {

ShortcutPermission::ShortcutPermission(std::unique_ptr<ShortcutSource> source,
                                       std::unique_ptr<AccessibilityPermission> session)
    : m_source(std::move(source))
    , m_session(std::move(session))
{ }

AccessibilityPermission::Obstacle ShortcutPermission::obstacle() const
{
    Obstacle told = m_session->obstacle();
    if (const QString request = m_source->request(); !request.isEmpty()) {
        told.limit = request;
    }
    if (const QString line = m_source->line(); !line.isEmpty()) {
        told.remedy = Texts::tr("Add this line to the configuration of your desktop: %1").arg(line);
        told.line = line;
        told.command = line;
        told.hasSettings = false;
    }
    told.isLiftedByPrompt = m_source->awaitsConsent();
    told.isOfShortcut = m_source->isRefused();
    return told;
}

void ShortcutPermission::openSettings(std::function<void()> failed)
{
    m_session->openSettings(std::move(failed));
}

} // namespace Tavik
