# SPDX-License-Identifier: MIT

# Ends the configuration where the key for updates could verify nothing: a build with such a key could
# never be updated, and nobody would see it before the first version that follows.
string(STRIP "${TAVIK_UPDATE_PUBLIC_KEY}" key)
string(LENGTH "${key}" length)
# 32 bytes; the last of the 43 digits has two bits that mean nothing and have to be zero.
if(length GREATER 0 AND NOT (length EQUAL 44 AND key MATCHES "^[A-Za-z0-9+/]+[AEIMQUYcgkosw048]=$"))
  message(FATAL_ERROR
    "TAVIK_UPDATE_PUBLIC_KEY is no key: it has to be the 44 characters that docs/updates.md tells how to print.")
endif()
