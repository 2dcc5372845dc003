// SPDX-License-Identifier: MIT
// The library's header as its later releases have it, where it differs from Debian's.
#pragma once
#define plist_from_memory plist_from_memory_of_this_release
#include_next <plist/plist.h>
#undef plist_from_memory

extern "C" int plist_from_memory(const char* data, uint32_t length, plist_t* plist, int* format);
