// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/StatusTray.h>

namespace Tavik::Test {

/// A tray that the test brings and takes away.
class FakeStatusTray : public StatusTray
{
public:
    [[nodiscard]] Host host() const override { return present; }
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
