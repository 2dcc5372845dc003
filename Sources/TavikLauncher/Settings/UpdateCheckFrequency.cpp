// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/UpdateCheckFrequency.h>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

QString rawValue(UpdateCheckFrequency frequency)
{
    switch (frequency) {
    case UpdateCheckFrequency::daily:
        break;
    case UpdateCheckFrequency::weekly:
        return u"weekly"_s;
    case UpdateCheckFrequency::monthly:
        return u"monthly"_s;
    }
    return u"daily"_s;
}

std::optional<UpdateCheckFrequency> updateCheckFrequency(QStringView word)
{
    const auto found = std::ranges::find(allUpdateCheckFrequencies, word, rawValue);
    if (found == allUpdateCheckFrequencies.end()) {
        return std::nullopt;
    }
    return *found;
}

} // namespace Tavik
