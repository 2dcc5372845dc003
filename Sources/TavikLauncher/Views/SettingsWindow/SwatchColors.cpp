// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/SettingsWindow/SwatchColors.h>

#include <array>

namespace Tavik {

namespace {

constexpr std::array darks{Swatch{u"#000000", u"Black"},
                           Swatch{u"#151515", u"Charcoal"},
                           Swatch{u"#202124", u"Graphite"},
                           Swatch{u"#2C2C2E", u"Slate"},
                           Swatch{u"#050A12", u"Midnight"},
                           Swatch{u"#0B1B33", u"Navy"},
                           Swatch{u"#07150F", u"Forest"},
                           Swatch{u"#12261E", u"Pine"},
                           Swatch{u"#16091E", u"Plum"},
                           Swatch{u"#2A1038", u"Aubergine"},
                           Swatch{u"#240C0C", u"Oxblood"},
                           Swatch{u"#2B1D10", u"Espresso"}};

constexpr std::array accents{Swatch{u"#0A84FF", u"Blue"},
                             Swatch{u"#64D2FF", u"Sky"},
                             Swatch{u"#00C7D9", u"Cyan"},
                             Swatch{u"#30D5A0", u"Mint"},
                             Swatch{u"#34C759", u"Green"},
                             Swatch{u"#A4D22E", u"Lime"},
                             Swatch{u"#FFD60A", u"Yellow"},
                             Swatch{u"#FF9F0A", u"Orange"},
                             Swatch{u"#FF6A3D", u"Ember"},
                             Swatch{u"#FF453A", u"Red"},
                             Swatch{u"#FF4F9A", u"Pink"},
                             Swatch{u"#BF5AF2", u"Purple"}};

} // namespace

std::span<const Swatch> darkSwatches()
{
    return darks;
}

std::span<const Swatch> accentSwatches()
{
    return accents;
}

} // namespace Tavik
