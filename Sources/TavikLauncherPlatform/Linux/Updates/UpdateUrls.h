// SPDX-License-Identifier: MIT
#pragma once

class QUrl;

namespace Tavik {

/// Whether anything may be fetched from there, asked of every address of a feed and of every
/// redirect: absolute, without user or password, over HTTPS; plain HTTP only from this machine
/// itself, by a loopback address or as "localhost".
[[nodiscard]] bool mayFetch(const QUrl& url);

} // namespace Tavik
