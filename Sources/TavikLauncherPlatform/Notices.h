// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace Tavik {

/// What a notice says, and what follows when the user chooses it.
struct Notice
{
    QString title; ///< One line.
    QString text{}; ///< May be empty. Some desktops read markup in it, so it has no marks of that.
    std::function<void()> chosen{};
    bool stays = false; ///< Until it is closed; else for as long as the desktop shows others.
};

/// The desktop's own notices to the user, which it shows in a corner of the screen and may keep in
/// a list. One of ours at a time for each subject. Main thread only.
class Notices
{
public:
    enum class Subject {
        update,
        shortcut
    };

    virtual ~Notices() = default;

    /// Shows `notice` in the place of the one that there was about `subject`. Where the desktop
    /// shows none, the log says so, and it is shown as soon as the desktop does.
    virtual void show(Subject subject, const Notice& notice) = 0;
    /// Takes down what is shown about `subject`.
    virtual void withdraw(Subject subject) = 0;
};

} // namespace Tavik
