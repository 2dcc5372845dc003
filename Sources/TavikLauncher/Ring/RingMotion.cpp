// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/RingInteraction.h>
#include <TavikLauncher/Ring/RingMotion.h>

#include <algorithm>

namespace Tavik {

namespace {

constexpr double angleTolerance = 0.05; // Degrees: less than a pixel at the largest radius.
constexpr double emphasisTolerance = 0.002;
constexpr Spring restingEmphasis{.response = 0.22, .dampingFraction = 0.86};

QString emphasizedApp(const RingInteraction& interaction)
{
    const int index = interaction.selectedIndex();
    const bool isSlot = index >= 0 && index < interaction.ringApps().size();
    return interaction.hasActiveSelection() && isSlot ? interaction.ringApps().at(index).id()
                                                      : QString();
}

} // namespace

void RingMotion::follow(const RingInteraction& interaction, bool animated)
{
    const QString selected = emphasizedApp(interaction);
    m_highlight.target = interaction.highlightedAngleDegrees();
    for (Spring& spring : m_emphasis) {
        spring.target = 0;
    }
    if (!selected.isEmpty()) {
        if (!m_emphasis.contains(selected)) {
            m_emphasis.insert(selected, restingEmphasis);
        }
        m_emphasis[selected].target = 1;
    }
    if (!animated) {
        m_highlight.jumpTo(m_highlight.target);
        for (Spring& spring : m_emphasis) {
            spring.jumpTo(spring.target);
        }
    }
    m_emphasis.removeIf(
        [](const auto& entry) { return entry.value().isAtRest() && entry.value().target == 0; });
}

bool RingMotion::advance(double seconds)
{
    m_highlight.advance(seconds, angleTolerance);
    for (Spring& spring : m_emphasis) {
        spring.advance(seconds, emphasisTolerance);
    }
    m_emphasis.removeIf(
        [](const auto& entry) { return entry.value().isAtRest() && entry.value().target == 0; });
    return isMoving();
}

bool RingMotion::isMoving() const
{
    return !m_highlight.isAtRest()
        || std::ranges::any_of(m_emphasis, [](const Spring& spring) { return !spring.isAtRest(); });
}

double RingMotion::emphasis(const QString& appId) const
{
    const auto found = m_emphasis.constFind(appId);
    return found == m_emphasis.cend() ? 0.0 : found->value;
}

} // namespace Tavik
