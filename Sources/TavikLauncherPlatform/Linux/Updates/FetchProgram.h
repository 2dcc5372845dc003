// SPDX-License-Identifier: MIT
#pragma once

/// The program that talks to a server, and the only one that is linked with what that needs.
/// `FetchProcess` starts it; it asks for one address, tells what comes, and ends. Whatever the
/// server does to it, it has little memory, and nothing of the launcher's is in it.
namespace Tavik::FetchProgram {

inline constexpr int connection = 0; ///< The open file over which it speaks to whoever started it.
inline constexpr int outOfMemory = 3; ///< The exit code that says so.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool isLimited = false; ///< A sanitizer needs far more than what it watches.
#else
inline constexpr bool isLimited = true;
#endif

/// Does the whole work and returns the exit code. There is no application object yet.
[[nodiscard]] int run(int argc, char** argv);

} // namespace Tavik::FetchProgram
