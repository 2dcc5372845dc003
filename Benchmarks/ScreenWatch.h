// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace Tavik::Benchmarks {

/// Watches one square of the screen for changed pixels, with the compositor's work included: the
/// server reports each drawing as damage, and a look at the pixels tells whether it could be seen.
class ScreenWatch
{
public:
    using Clock = std::chrono::steady_clock;
    using Pixels = std::vector<std::uint8_t>;
    struct Area
    {
        std::int16_t x = 0;
        std::int16_t y = 0;
        std::uint16_t side = 0;
    };

    explicit ScreenWatch(xcb_connection_t* connection);

    /// The square of that side around the middle of the screen.
    [[nodiscard]] Area middle(std::uint16_t side) const;
    [[nodiscard]] Pixels pixels(const Area& area) const;

    /// Drops what has been reported so far.
    void forget();
    /// Waits for the first drawing after which the area no longer looks like `before`; the time is
    /// that of the drawing's report. Nothing when it takes longer than `timeout`.
    [[nodiscard]] std::optional<Clock::time_point>
    waitForChange(const Area& area, const Pixels& before, std::chrono::milliseconds timeout);
    /// Waits until the area looks like `wanted` again.
    [[nodiscard]] bool
    waitForLook(const Area& area, const Pixels& wanted, std::chrono::milliseconds timeout);

private:
    [[nodiscard]] bool waitForEvent(Clock::time_point deadline) const;
    [[nodiscard]] bool takeDamage(const Area& area);

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    xcb_damage_damage_t m_damage;
    std::uint8_t m_damageEvent;
};

} // namespace Tavik::Benchmarks
