// SPDX-License-Identifier: MIT
// The library's header as its later releases have it, where it differs from Debian's.
#pragma once
#define plist_from_memory plist_from_memory_of_this_release
#define plist_from_xml plist_from_xml_of_this_release
#define plist_from_bin plist_from_bin_of_this_release
#define plist_to_xml plist_to_xml_of_this_release
#define PLIST_UINT PLIST_INT
#include_next <plist/plist.h>
#undef plist_from_memory
#undef plist_from_xml
#undef plist_from_bin
#undef plist_to_xml

extern "C" {
int plist_from_memory(const char* data, uint32_t length, plist_t* plist, int* format);
int plist_from_xml(const char* data, uint32_t length, plist_t* plist);
int plist_from_bin(const char* data, uint32_t length, plist_t* plist);
int plist_to_xml(plist_t plist, char** xml, uint32_t* length);
plist_t plist_new_int(int64_t number);
}
