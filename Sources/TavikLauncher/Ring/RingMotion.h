// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Ring/Spring.h>

#include <QHash>
#include <QString>

namespace Tavik {

class RingInteraction;

/// The ring's moving values: the sweeping highlight and the emphasis of the selected slot. Follows
/// a RingInteraction; whoever paints asks for the values of the moment and moves time on.
class RingMotion
{
public:
    /// Takes over the interaction's targets. Without animation everything is at its place at once.
    void follow(const RingInteraction& interaction, bool animated);
    /// Moves on by `seconds`; returns whether anything still moves.
    bool advance(double seconds);

    [[nodiscard]] bool isMoving() const;
    /// The highlight's angle now, in degrees.
    [[nodiscard]] double highlightDegrees() const { return m_highlight.value; }
    /// 0 for a slot at rest, 1 for a selected one; overshoots a little on the way.
    [[nodiscard]] double emphasis(const QString& appId) const;

private:
    Spring m_highlight{.response = 0.24, .dampingFraction = 0.82, .value = -90, .target = -90};
    QHash<QString, Spring> m_emphasis; ///< By application; slots at rest have no entry.
};

} // namespace Tavik
