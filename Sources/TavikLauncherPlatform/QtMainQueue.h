// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QObject>

namespace Tavik {

/// The main queue of the running program, on the Qt event loop.
class QtMainQueue final : public MainQueue
{
public:
    void post(std::function<void()> closure) override;
    [[nodiscard]] Task after(double seconds, std::function<void()> closure) override;
    [[nodiscard]] Task every(double seconds, std::function<void()> closure) override;
    [[nodiscard]] double systemUptime() const override;

private:
    QObject m_context;
};

} // namespace Tavik
