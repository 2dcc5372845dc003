// SPDX-License-Identifier: MIT
#pragma once

namespace Tavik::RingAccessibility {

/// Teaches assistive technology to read the ring: every slot a push button with the application's
/// name, whether it runs and its place in its description, and the selected state; the filter and
/// the centre's texts as text. What a filter finds is announced. Call once, before the ring is
/// made.
void install();

} // namespace Tavik::RingAccessibility
