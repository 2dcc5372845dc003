// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/ViewsLog.h>

namespace Tavik {

Q_LOGGING_CATEGORY(viewsLog, "tavik.views")

} // namespace Tavik
