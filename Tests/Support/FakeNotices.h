// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Notices.h>

#include <utility>

namespace Tavik::Test {

/// A desktop whose one notice is at hand.
class FakeNotices : public Notices
{
public:
    void show(const QString& shown, std::function<void()> choice) override
    {
        text = shown;
        chosen = std::move(choice);
    }
    void withdraw() override { show({}, {}); }

    QString text; ///< Empty for none.
    std::function<void()> chosen;
};

} // namespace Tavik::Test
