// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <compare>

namespace Tavik::AppcastVersion {

/// Orders two version strings the way the feed format does: by their numbers and words, one after
/// the other, whatever separates them. A number is compared by its value, however long; words are
/// compared letter by letter and come before every number, so 1.0b1 is older than 1.0; what one of
/// the two lacks counts as 0, so 2.1 and 2.1.0 are equivalent. What follows the first hyphen is the
/// name of a build and is not compared. Linear in the length.
[[nodiscard]] std::weak_ordering compare(QStringView left, QStringView right);

} // namespace Tavik::AppcastVersion
