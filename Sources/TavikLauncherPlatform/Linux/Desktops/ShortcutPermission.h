// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/AccessibilityPermission.h>
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutSource.h>

#include <memory>

namespace Tavik {

/// The permission where a desktop listens in our place: it is there when the desktop serves, and
/// asking for it has the trigger set up. Owns the source.
class ShortcutPermission final : public AccessibilityPermission
{
public:
    /// `session` knows the desktop's own settings, for whoever has to bind a command by hand.
    ShortcutPermission(std::unique_ptr<ShortcutSource> source,
                       std::unique_ptr<AccessibilityPermission> session);

    [[nodiscard]] ShortcutSource& source() { return *m_source; }

    [[nodiscard]] bool isTrusted() const override { return m_source->serves(); }
    [[nodiscard]] bool isForKeys() const override { return m_source->isThere(); }
    [[nodiscard]] Obstacle obstacle() const override;
    void prompt() override { m_source->allow(); }
    void openSettings(std::function<void()> failed) override;

private:
    std::unique_ptr<ShortcutSource> m_source;
    std::unique_ptr<AccessibilityPermission> m_session;
};

} // namespace Tavik
