// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

class QWidget;

namespace Tavik {

class DesktopAppearance;
class MainQueue;
class WindowServer;

/// A celebration over a window: confetti in a window of its own that lets every click through and
/// goes by itself. Several may rain at once.
namespace ConfettiWindow {

struct Dependencies
{
    MainQueue& mainQueue;
    WindowServer& windowServer;
    DesktopAppearance& appearance;
};

/// Starts a burst over `window`, or over the middle of the primary screen without one. Nothing
/// happens when the desktop asks for less motion.
void burst(const Dependencies& dependencies, const QWidget* window);

} // namespace ConfettiWindow

} // namespace Tavik
