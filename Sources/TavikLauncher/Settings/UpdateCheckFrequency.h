// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>
#include <optional>

namespace Tavik {

/// How often the program looks for updates by itself.
enum class UpdateCheckFrequency {
    daily,
    weekly,
    monthly,
};

inline constexpr std::array allUpdateCheckFrequencies{
    UpdateCheckFrequency::daily, UpdateCheckFrequency::weekly, UpdateCheckFrequency::monthly};

/// The word under which a frequency is stored; also its identity in lists.
[[nodiscard]] QString rawValue(UpdateCheckFrequency frequency);
/// The frequency stored as `word`; absent for any other word.
[[nodiscard]] std::optional<UpdateCheckFrequency> updateCheckFrequency(QStringView word);

} // namespace Tavik
