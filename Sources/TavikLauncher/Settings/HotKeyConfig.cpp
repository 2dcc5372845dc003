// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 deviceIndependentFlags = ~quint64{0xFFFF};

struct ModifierGlyph
{
    quint64 flag;
    char16_t glyph;
};

constexpr std::array modifierGlyphs{ModifierGlyph{ModifierFlags::control, u'⌃'},
                                    ModifierGlyph{ModifierFlags::option, u'⌥'},
                                    ModifierGlyph{ModifierFlags::shift, u'⇧'},
                                    ModifierGlyph{ModifierFlags::command, u'⌘'}};

struct NamedKey
{
    quint16 keyCode;
    QStringView label;
};

constexpr std::array namedKeys{NamedKey{36, u"↩"},    NamedKey{48, u"⇥"},    NamedKey{49, u"Space"},
                               NamedKey{51, u"⌫"},    NamedKey{53, u"Esc"},  NamedKey{122, u"F1"},
                               NamedKey{120, u"F2"},  NamedKey{99, u"F3"},   NamedKey{118, u"F4"},
                               NamedKey{96, u"F5"},   NamedKey{97, u"F6"},   NamedKey{98, u"F7"},
                               NamedKey{100, u"F8"},  NamedKey{101, u"F9"},  NamedKey{109, u"F10"},
                               NamedKey{103, u"F11"}, NamedKey{111, u"F12"}, NamedKey{123, u"←"},
                               NamedKey{124, u"→"},   NamedKey{125, u"↓"},   NamedKey{126, u"↑"}};

/// A whole number from 0 to `highest`. Beyond the integers JSON text keeps a double, which is still
/// exact for modifier flags, as their low bits are zero.
std::optional<quint64> wholeNumber(const QJsonValue& value, quint64 highest)
{
    constexpr double beyondUnsigned = 18446744073709551616.0;
    if (!value.isDouble()) {
        return std::nullopt;
    }
    const double number = value.toDouble();
    if (!(number >= 0 && number < beyondUnsigned) || number != std::floor(number)) {
        return std::nullopt;
    }
    constexpr double beyondSigned = beyondUnsigned / 2;
    const auto whole = number < beyondSigned ? static_cast<quint64>(value.toInteger(0))
                                             : static_cast<quint64>(number);
    return whole <= highest ? std::optional(whole) : std::nullopt;
}

QJsonValue jsonNumber(quint64 number)
{
    if (number > static_cast<quint64>(std::numeric_limits<qint64>::max())) {
        return static_cast<double>(number);
    }
    return static_cast<qint64>(number);
}

} // namespace

HotKeyConfig HotKeyConfig::defaultConfig()
{
    return make(ModifierFlags::control | ModifierFlags::option, std::nullopt);
}

HotKeyConfig HotKeyConfig::make(quint64 modifierFlags,
                                std::optional<quint16> keyCode,
                                const std::optional<QString>& characters)
{
    QString name;
    for (const auto& [flag, glyph] : modifierGlyphs) {
        if ((modifierFlags & flag) != 0) {
            name += QChar(glyph);
        }
    }
    name += keyCode ? keyLabel(*keyCode, characters) : u" (hold)"_s;
    return {.modifierFlagsRaw = modifierFlags & deviceIndependentFlags,
            .keyCode = keyCode,
            .displayName = name};
}

HotKeyConfig HotKeyConfig::withSpace() const
{
    constexpr quint16 space = 49;
    return make(modifierFlagsRaw, space);
}

QString HotKeyConfig::nameOfKey() const
{
    const auto* const end = std::ranges::find_if_not(displayName, [](QChar character) {
        return std::ranges::find(modifierGlyphs, character, &ModifierGlyph::glyph)
            != modifierGlyphs.end();
    });
    return keyCode ? QString(end, displayName.cend() - end) : QString();
}

QString HotKeyConfig::keyLabel(quint16 keyCode, const std::optional<QString>& characters)
{
    const auto named = std::ranges::find(namedKeys, keyCode, &NamedKey::keyCode);
    if (named != namedKeys.end()) {
        return named->label.toString();
    }
    return characters ? characters->toUpper() : u"Key%1"_s.arg(keyCode);
}

std::optional<HotKeyConfig> HotKeyConfig::fromJson(const QByteArray& json)
{
    // A record of ours has about a hundred bytes.
    constexpr qsizetype mostBytes = 64 * 1024;
    if (json.size() > mostBytes) {
        return std::nullopt;
    }
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const auto flags
        = wholeNumber(object.value("modifierFlagsRaw"_L1), std::numeric_limits<quint64>::max());
    const QJsonValue name = object.value("displayName"_L1);
    if (!flags || !name.isString()) {
        return std::nullopt;
    }
    HotKeyConfig config{.modifierFlagsRaw = *flags & deviceIndependentFlags,
                        .keyCode = std::nullopt,
                        .displayName = name.toString()};
    const QJsonValue key = object.value("keyCode"_L1);
    if (!key.isUndefined() && !key.isNull()) {
        const auto code = wholeNumber(key, std::numeric_limits<quint16>::max());
        if (!code) {
            return std::nullopt;
        }
        config.keyCode = static_cast<quint16>(*code);
    }
    return config;
}

QByteArray HotKeyConfig::toJson() const
{
    QJsonObject object{{u"modifierFlagsRaw"_s, jsonNumber(modifierFlagsRaw)},
                       {u"displayName"_s, displayName}};
    if (keyCode) {
        object.insert("keyCode"_L1, *keyCode);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace Tavik
