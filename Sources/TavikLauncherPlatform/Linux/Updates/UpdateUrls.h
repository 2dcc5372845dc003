// SPDX-License-Identifier: MIT
#pragma once

class QUrl;

namespace Tavik {

/// Whether anything may be fetched from there, asked of every address of a feed and of every
/// redirect: absolute, without user or password, over HTTPS; plain HTTP only from this machine
/// itself, by a loopback address or as "localhost".
[[nodiscard]] bool mayFetch(const QUrl& url);

/// Whether what came from the one address may lead to the other: as above, and from HTTPS to HTTPS
/// only, so that no server can make this program knock at the doors of its own machine.
[[nodiscard]] bool mayFollow(const QUrl& from, const QUrl& to);

} // namespace Tavik
