// SPDX-License-Identifier: MIT
#pragma once

class QPainter;

namespace Tavik::AppIconArtwork {

/// Paints the application's icon, a wheel of coloured strokes on a dark tile, into a square of
/// `side` by `side` at the origin. Small sides get fewer and bolder details.
void paint(QPainter& painter, double side);

/// The same wheel in one colour and without the tile, for places that colour their symbols.
void paintSymbolic(QPainter& painter, double side);

} // namespace Tavik::AppIconArtwork
