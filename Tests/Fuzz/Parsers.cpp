// SPDX-License-Identifier: MIT
#include <QtGlobal>

#include <Fuzz/Parsers.h>

void Tavik::Fuzz::require(bool condition, const char* what)
{
    if (!condition) {
        qFatal("What was read breaks the rule: %s", what);
    }
}
