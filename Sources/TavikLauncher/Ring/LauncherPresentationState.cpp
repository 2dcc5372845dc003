// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/LauncherPresentationState.h>

namespace Tavik {

void LauncherPresentationState::setAppearance(double scale, double opacity)
{
    if (scale == m_scale && opacity == m_opacity) {
        return;
    }
    m_scale = scale;
    m_opacity = opacity;
    Q_EMIT appearanceChanged();
}

void LauncherPresentationState::setDiameterOverride(std::optional<double> diameter)
{
    if (diameter == m_diameterOverride) {
        return;
    }
    m_diameterOverride = diameter;
    Q_EMIT diameterOverrideChanged();
}

void LauncherPresentationState::reset()
{
    setAppearance(1.0, 1.0);
    setDiameterOverride(std::nullopt);
    setAcceptsHover(true);
}

} // namespace Tavik
