// SPDX-License-Identifier: MIT
#pragma once

#include <QCollator>

namespace Tavik {

/// Orders names as the user's language does, ignoring case. In the C locale, which knows no
/// language, names are ordered as in English. One per thread, made at the thread's first use.
[[nodiscard]] const QCollator& nameCollator();

/// The language that names are ordered for, as a BCP 47 tag.
[[nodiscard]] QString nameOrderLanguage();

} // namespace Tavik
