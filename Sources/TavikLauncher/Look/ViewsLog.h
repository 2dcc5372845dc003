// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

namespace Tavik {

Q_DECLARE_LOGGING_CATEGORY(viewsLog)

} // namespace Tavik
