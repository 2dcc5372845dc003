// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace Tavik::Test {

/// A fake that tells a recording of what it is asked for.
struct Noting
{
    std::function<void(const QString&)> onCall; ///< May be empty.

protected:
    ~Noting() = default;
    void note(const char* call) const
    {
        if (onCall) {
            onCall(QString::fromLatin1(call));
        }
    }
};

} // namespace Tavik::Test
