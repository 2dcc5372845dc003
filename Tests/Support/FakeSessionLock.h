// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/SessionLock.h>

namespace Tavik::Test {

class FakeSessionLock : public SessionLock
{
public:
    [[nodiscard]] bool isLocked() const override { return locked; }
    [[nodiscard]] bool isInputTaken() const override { return inputTaken; }
    void lock()
    {
        locked = true;
        onLocked();
    }

    bool locked = false;
    bool inputTaken = false;
};

} // namespace Tavik::Test
