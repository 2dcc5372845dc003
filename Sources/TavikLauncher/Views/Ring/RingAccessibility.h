// SPDX-License-Identifier: MIT
#pragma once

namespace Tavik::RingAccessibility {

/// Teaches assistive technology to read the ring: every slot a push button with the application's
/// name, "running" in its description where it runs, and the selected state; the filter and the
/// centre's texts as text. Call once, before the ring is made.
void install();

} // namespace Tavik::RingAccessibility
