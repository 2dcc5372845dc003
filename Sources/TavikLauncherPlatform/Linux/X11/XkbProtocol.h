// SPDX-License-Identifier: MIT
#pragma once

/// The keyboard extension's messages. Their header names a member with a word that C++ keeps for
/// itself, so it is included here and nowhere else.

// What that header includes in turn must not see the word replaced.
#include <xcb/xproto.h>

#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
