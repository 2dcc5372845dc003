// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/IconDecoder.h>

namespace Tavik {

/// Decodes an icon and finishes it for the ring: rounded corners, a soft shadow, and the margin
/// that the shadow needs, so that painting a slot is one unscaled blit. May run on any thread.
class IconSpriteDecoder final : public IconDecoder
{
public:
    /// `icons` must outlive this object.
    explicit IconSpriteDecoder(IconDecoder& icons);

    /// The sprite for an icon of `side` device pixels; larger than that by the shadow's margin, its
    /// device pixel ratio set to `scale`.
    [[nodiscard]] QImage decode(const AppIcon& icon, int side, double scale) const override;
    void reload() override { m_icons.reload(); }

private:
    IconDecoder& m_icons;
};

} // namespace Tavik
