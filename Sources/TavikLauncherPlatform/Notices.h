// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace Tavik {

/// The desktop's own notices to the user, which it shows in a corner of the screen and may keep in
/// a list. One of ours at a time. Main thread only.
class Notices
{
public:
    virtual ~Notices() = default;

    /// Shows `text`, in one line, in the place of what was shown before. `chosen` is called when
    /// the user chooses the notice. Where the desktop shows none, the log says so.
    virtual void show(const QString& text, std::function<void()> chosen) = 0;
    /// Takes down what is shown.
    virtual void withdraw() = 0;
};

} // namespace Tavik
