// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/SettingsWindow/SwatchColors.h>

#include <QCoreApplication>

#include <array>

namespace Tavik {

namespace {

constexpr std::array darks{Swatch{u"#000000", QT_TRANSLATE_NOOP("Tavik::Texts", "Black")},
                           Swatch{u"#151515", QT_TRANSLATE_NOOP("Tavik::Texts", "Charcoal")},
                           Swatch{u"#202124", QT_TRANSLATE_NOOP("Tavik::Texts", "Graphite")},
                           Swatch{u"#2C2C2E", QT_TRANSLATE_NOOP("Tavik::Texts", "Slate")},
                           Swatch{u"#050A12", QT_TRANSLATE_NOOP("Tavik::Texts", "Midnight")},
                           Swatch{u"#0B1B33", QT_TRANSLATE_NOOP("Tavik::Texts", "Navy")},
                           Swatch{u"#07150F", QT_TRANSLATE_NOOP("Tavik::Texts", "Forest")},
                           Swatch{u"#12261E", QT_TRANSLATE_NOOP("Tavik::Texts", "Pine")},
                           Swatch{u"#16091E", QT_TRANSLATE_NOOP("Tavik::Texts", "Plum")},
                           Swatch{u"#2A1038", QT_TRANSLATE_NOOP("Tavik::Texts", "Aubergine")},
                           Swatch{u"#240C0C", QT_TRANSLATE_NOOP("Tavik::Texts", "Oxblood")},
                           Swatch{u"#2B1D10", QT_TRANSLATE_NOOP("Tavik::Texts", "Espresso")}};

constexpr std::array accents{Swatch{u"#0A84FF", QT_TRANSLATE_NOOP("Tavik::Texts", "Blue")},
                             Swatch{u"#64D2FF", QT_TRANSLATE_NOOP("Tavik::Texts", "Sky")},
                             Swatch{u"#00C7D9", QT_TRANSLATE_NOOP("Tavik::Texts", "Cyan")},
                             Swatch{u"#30D5A0", QT_TRANSLATE_NOOP("Tavik::Texts", "Mint")},
                             Swatch{u"#34C759", QT_TRANSLATE_NOOP("Tavik::Texts", "Green")},
                             Swatch{u"#A4D22E", QT_TRANSLATE_NOOP("Tavik::Texts", "Lime")},
                             Swatch{u"#FFD60A", QT_TRANSLATE_NOOP("Tavik::Texts", "Yellow")},
                             Swatch{u"#FF9F0A", QT_TRANSLATE_NOOP("Tavik::Texts", "Orange")},
                             Swatch{u"#FF6A3D", QT_TRANSLATE_NOOP("Tavik::Texts", "Ember")},
                             Swatch{u"#FF453A", QT_TRANSLATE_NOOP("Tavik::Texts", "Red")},
                             Swatch{u"#FF4F9A", QT_TRANSLATE_NOOP("Tavik::Texts", "Pink")},
                             Swatch{u"#BF5AF2", QT_TRANSLATE_NOOP("Tavik::Texts", "Purple")}};

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
