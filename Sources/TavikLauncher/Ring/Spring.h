// SPDX-License-Identifier: MIT
#pragma once

namespace Tavik {

/// A damped spring that pulls `value` to `target`: mass 1, stiffness (2π / response)², friction
/// 4π · dampingFraction / response. It is the exact solution of the damped harmonic oscillator, so
/// its course does not depend on the step; a new target keeps the velocity.
struct Spring
{
    double response = 0.24; ///< Seconds of one undamped oscillation.
    double dampingFraction = 0.82; ///< Below 1: it overshoots.
    double value = 0;
    double target = 0;
    double velocity = 0; ///< Per second.

    /// Moves on by `seconds`. Once within `tolerance` of rest it comes to rest on the target.
    void advance(double seconds, double tolerance);
    /// Puts the value on `position` and stops.
    void jumpTo(double position);
    [[nodiscard]] bool isAtRest() const { return value == target && velocity == 0; }
};

} // namespace Tavik
