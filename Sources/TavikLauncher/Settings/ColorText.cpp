// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/ColorText.h>

#include <algorithm>
#include <cmath>

namespace Tavik::ColorText {

using namespace Qt::StringLiterals;

namespace {

bool isHexDigit(QChar character)
{
    const char16_t unit = character.toLower().unicode();
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'f');
}

int byteOf(float component)
{
    return std::clamp(static_cast<int>(std::lround(component * 255)), 0, 255);
}

} // namespace

QColor color(const QString& hex, const QColor& fallback)
{
    QStringView digits = hex;
    while (digits.startsWith(u'#')) {
        digits = digits.sliced(1);
    }
    while (digits.endsWith(u'#')) {
        digits.chop(1);
    }
    // The conversion below would also take a sign, white space or "0x".
    if (digits.size() != 6 || !std::ranges::all_of(digits, isHexDigit)) {
        return fallback;
    }
    return QColor::fromRgb(digits.toUInt(nullptr, 16));
}

QString hexString(const QColor& color)
{
    const QColor rgb = color.toRgb();
    return u"#%1%2%3"_s.arg(byteOf(rgb.redF()), 2, 16, QLatin1Char('0'))
        .arg(byteOf(rgb.greenF()), 2, 16, QLatin1Char('0'))
        .arg(byteOf(rgb.blueF()), 2, 16, QLatin1Char('0'))
        .toUpper();
}

} // namespace Tavik::ColorText
