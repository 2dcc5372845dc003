// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tavik {

/// Whether the system starts this program when the user logs in. Main thread only.
class LoginItem
{
public:
    enum class Status {
        notRegistered = 0,
        enabled = 1,
        requiresApproval = 2,
        notFound = 3,
    };

    virtual ~LoginItem() = default;

    [[nodiscard]] virtual Status status() const = 0;
    /// Both return whether it was done.
    virtual bool registerItem() = 0;
    virtual bool unregisterItem() = 0;
    /// Where the system would start this program in a place that it has been moved away from: has
    /// it start the one that runs.
    virtual void mend() { }
    /// Where nobody is known to look for what `registerItem` leaves: a line that does the same in
    /// whatever the user's session starts. Empty elsewhere.
    [[nodiscard]] virtual QString lineOfOwn() const { return {}; }
};

} // namespace Tavik
