// SPDX-License-Identifier: MIT
#pragma once

class QUrl;

namespace Tavik {

/// Opens a web page in the user's browser, which outlives this program. One line in the log when
/// the desktop knows none. Main thread only.
void openPage(const QUrl& url);

} // namespace Tavik
