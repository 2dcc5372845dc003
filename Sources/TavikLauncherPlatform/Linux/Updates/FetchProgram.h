// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

/// The process that talks to a server. It is this program, started with an argument of its own by
/// `FetchProcess`; asks for one address, tells what comes, and ends. Whatever the server does to
/// it, it has little memory, and nothing of the program's is in it.
namespace Tavik::FetchProgram {

inline constexpr const char* argument = "--fetch-update";
inline constexpr int connection = 0; ///< The open file over which it speaks to whoever started it.
inline constexpr int outOfMemory = 3; ///< The exit code that says so.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool isLimited = false; ///< A sanitizer needs far more than what it watches.
#else
inline constexpr bool isLimited = true;
#endif

/// Does the whole work and returns the exit code, where the arguments ask for it; otherwise
/// nothing. There is no application object yet.
[[nodiscard]] std::optional<int> run(int argc, char** argv);

} // namespace Tavik::FetchProgram
