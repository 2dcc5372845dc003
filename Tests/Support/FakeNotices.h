// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Notices.h>

#include <map>

namespace Tavik::Test {

/// A desktop whose notices are at hand.
class FakeNotices : public Notices
{
public:
    void show(Subject subject, const Notice& notice) override { shown[subject] = notice; }
    void withdraw(Subject subject) override { shown.erase(subject); }

    std::map<Subject, Notice> shown;
};

} // namespace Tavik::Test
