// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/AppcastItemReader.h>

namespace Tavik::AppcastReader {

constexpr qint64 mostBytes = 5'000'000; ///< Of a feed.
constexpr int mostItems = 1000; ///< Of a feed.

/// Reads a feed: RSS 2.0 with the elements of the namespace
/// http://www.andymatuschak.org/xml-namespaces/sparkle, as UTF-8. Items without a version, and
/// those for other systems, are left out; an item with a file that cannot be installed stays and
/// says why. No entity but the five of XML is known, and a document type is refused. Any thread.
[[nodiscard]] AppcastFeed read(const QByteArray& feed, const AppcastOrigin& origin);

} // namespace Tavik::AppcastReader
