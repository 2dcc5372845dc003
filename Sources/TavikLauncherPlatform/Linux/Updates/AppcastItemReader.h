// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/Appcast.h>

class QXmlStreamReader;

namespace Tavik {

/// Where a feed comes from, and who makes it.
struct AppcastOrigin
{
    QUrl feedUrl; ///< In the end; relative addresses start there.
    QByteArray publicKey;
};

/// Reads the item whose start `xml` has just read, to its end. Absent when it is none for us: it
/// has no version that can be compared, only files for other systems, or neither a file nor a page.
[[nodiscard]] std::optional<AppcastItem> readAppcastItem(QXmlStreamReader& xml,
                                                         const AppcastOrigin& origin);

} // namespace Tavik
