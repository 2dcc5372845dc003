// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Wayland/WaylandConnection.h>

namespace Tavik {

/// The part of a surface that it plays above all windows (wlr-layer-shell, version 1).
using WaylandLayer = WaylandObject<zwlr_layer_surface_v1>;

namespace WaylandLayers {

constexpr const char* scope = "tavik-launcher";
/// Panels do not push such a surface aside.
constexpr int32_t overPanels = -1;

} // namespace WaylandLayers

} // namespace Tavik
