// SPDX-License-Identifier: MIT
#pragma once

namespace Tavik::PresentationAnimation {

/// Seconds from the dot under the pointer to the ring at rest.
inline constexpr double duration = 0.425;
/// Seconds between two steps.
inline constexpr double step = 1.0 / 120.0;
/// Seconds of the plain fade that replaces the animation where the desktop asks for less motion.
inline constexpr double reducedDuration = 0.12;

/// The scale at which a ring of `diameter` points starts: a dot about 5 points wide.
[[nodiscard]] double startScale(double diameter);
/// The scale at `progress` (0 to 1): overshoots to 1.1, dips to 0.9, settles at 1.
[[nodiscard]] double bounceScale(double progress, double startScale);
/// The opacity at `progress`: from 0.2 up to 1.
[[nodiscard]] double opacity(double progress);

} // namespace Tavik::PresentationAnimation
