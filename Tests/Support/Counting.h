// SPDX-License-Identifier: MIT
#pragma once

namespace Tavik::Test {

/// A callback that counts its calls, whatever it is told.
inline auto counting(int& count)
{
    return [&count](auto&&...) {
        ++count;
    };
}

} // namespace Tavik::Test
