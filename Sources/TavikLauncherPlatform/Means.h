// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tavik {

/// By what a part of the system does its work in this session, in words for the user.
struct Means
{
    QString way; ///< A sentence.
    QString lack{}; ///< What does not work that way, in sentences; empty when all does.

    bool operator==(const Means&) const = default;
};

} // namespace Tavik
