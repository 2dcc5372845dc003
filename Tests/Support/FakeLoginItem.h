// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/LoginItem.h>

#include <QStringList>

namespace Tavik::Test {

/// A login item whose state the test sets and whose calls it reads.
class FakeLoginItem final : public LoginItem
{
public:
    [[nodiscard]] Status status() const override { return state; }
    bool registerItem() override
    {
        calls.append(QStringLiteral("register"));
        state = succeeds ? Status::enabled : state;
        return succeeds;
    }
    bool unregisterItem() override
    {
        calls.append(QStringLiteral("unregister"));
        state = succeeds ? Status::notRegistered : state;
        return succeeds;
    }

    Status state = Status::notRegistered;
    bool succeeds = true;
    QStringList calls;
};

} // namespace Tavik::Test
