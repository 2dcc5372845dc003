// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/Spring.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Tavik {

void Spring::advance(double seconds, double tolerance)
{
    if (isAtRest() || seconds <= 0) {
        return;
    }
    const double frequency = 2 * std::numbers::pi / response;
    // The solution below is the underdamped one; a fraction of 1 is its limit.
    const double fraction = std::min(dampingFraction, 0.9999);
    const double decay = fraction * frequency;
    const double damped = frequency * std::sqrt(1 - fraction * fraction);

    const double offset = value - target;
    const double sine = (velocity + decay * offset) / damped;
    const double envelope = std::exp(-decay * seconds);
    const double cosT = std::cos(damped * seconds);
    const double sinT = std::sin(damped * seconds);
    const double position = envelope * (offset * cosT + sine * sinT);

    velocity = -decay * position + envelope * damped * (sine * cosT - offset * sinT);
    value = target + position;
    if (std::abs(position) < tolerance && std::abs(velocity) < tolerance * frequency) {
        jumpTo(target);
    }
}

void Spring::jumpTo(double position)
{
    value = position;
    target = position;
    velocity = 0;
}

} // namespace Tavik
