// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/ToldWindows.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayConnection.h>

namespace Tavik {

/// The windows that sway lists over its socket, also those of its X server. It is asked for all of
/// them when it tells of a change.
class SwayWindows final : public ToldWindows
{
public:
    explicit SwayWindows(const QString& socketPath);
    ~SwayWindows() override;
    SwayWindows(const SwayWindows&) = delete;
    SwayWindows& operator=(const SwayWindows&) = delete;

    [[nodiscard]] Means runningMeans() const override;
    [[nodiscard]] Means raisingMeans() const override;
    /// Asks again, because sway tells nobody of a window that is dragged.
    [[nodiscard]] std::optional<QRect> placeOfOwn(const QString& title) override;
    [[nodiscard]] bool isOpen() const { return m_sway.isOpen(); }

private:
    void raise(const QString& name) override;
    void receive(quint32 type, const QJsonDocument& message);
    void ask();

    SwayConnection m_sway;
    bool m_isAsked = false; ///< For the windows, and has not answered yet.
    bool m_mustAskAgain = false;
};

} // namespace Tavik
