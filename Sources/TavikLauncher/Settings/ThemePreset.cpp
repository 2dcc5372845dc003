// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/ThemePreset.h>

namespace Tavik {

using namespace Qt::StringLiterals;

const QList<ThemePreset>& ThemePreset::presets()
{
    // clang-format off
    static const QList<ThemePreset> all {
        {u"tavik-classic"_s,  u"Tavik Classic"_s,  u"#000000"_s, 0.82, u"#0A84FF"_s, 0.72, 0.94},
        {u"midnight-cyan"_s,  u"Midnight Cyan"_s,  u"#050A12"_s, 0.88, u"#00C7D9"_s, 0.76, 0.94},
        {u"graphite-ember"_s, u"Graphite Ember"_s, u"#151515"_s, 0.84, u"#FF6A3D"_s, 0.78, 0.95},
        {u"forest-signal"_s,  u"Forest Signal"_s,  u"#07150F"_s, 0.84, u"#34C759"_s, 0.72, 0.93},
        {u"plum-neon"_s,      u"Plum Neon"_s,      u"#16091E"_s, 0.86, u"#BF5AF2"_s, 0.74, 0.94},
        {u"glass-graphite"_s, u"Glass Graphite"_s, u"#202124"_s, 0.56, u"#64D2FF"_s, 0.62, 0.90},
    };
    // clang-format on
    return all;
}

} // namespace Tavik
