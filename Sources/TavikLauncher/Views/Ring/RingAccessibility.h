// SPDX-License-Identifier: MIT
#pragma once

namespace Tavik::RingAccessibility {

/// Teaches assistive technology to read the ring: every application a push button with its name,
/// whether it runs and its place in its description, and the selected state; the filter and the
/// centre's texts as text. The selected one has the focus while the ring has the keyboard. What a
/// filter finds is announced where the selected button does not tell it. Call once, before the ring
/// is made.
void install();

} // namespace Tavik::RingAccessibility
