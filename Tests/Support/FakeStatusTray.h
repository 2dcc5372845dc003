// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/StatusTray.h>

#include <Support/Noting.h>

namespace Tavik::Test {

/// A tray that the test brings and takes away.
class FakeStatusTray : public StatusTray, public Noting
{
public:
    [[nodiscard]] Host host() const override
    {
        note("ask for a tray");
        return present;
    }
    [[nodiscard]] std::optional<QColor> symbolColor() const override { return color; }

    void become(Host host)
    {
        present = host;
        tell();
    }
    void tell() const
    {
        if (onChanged) {
            onChanged();
        }
    }

    Host present = Host::none;
    std::optional<QColor> color;
};

} // namespace Tavik::Test
