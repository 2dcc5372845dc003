// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>

namespace Tavik {

/// The keyboard as the toolkit tells of it, in our own windows alone, where a compositor numbers
/// keys as the kernel does. No key can be had system-wide.
class ToolkitKeyEvents final : public KeyEvents
{
public:
    [[nodiscard]] HotKeyResult registerHotKey(const HotKey& hotKey,
                                              HotKeyHandlers handlers) override;
    [[nodiscard]] int hotKeyStatus(const HotKey&) override { return statusUnsupported; }
    [[nodiscard]] Means triggerMeans(bool isChord) const override;
    [[nodiscard]] Means releaseMeans() const override;
    [[nodiscard]] bool hasKeys(quint64, std::optional<quint16>) const override { return true; }
    [[nodiscard]] std::unique_ptr<KeyMonitor> addLocalMonitor(Kind kind, Filter filter) override;
    [[nodiscard]] std::unique_ptr<KeyMonitor> addGlobalMonitor(Kind kind,
                                                               Observer observer) override;
    [[nodiscard]] std::unique_ptr<EventTap>
    createEventTap(Kind kind, Observer observer, std::function<void()> disabled) override;
    /// True only while one of our windows has the keyboard.
    [[nodiscard]] std::optional<quint64> heldModifiers() override;
    [[nodiscard]] std::optional<quint16> keyCode(const NativeKey& key) const override;
    [[nodiscard]] std::optional<QString> characters(const NativeKey& key) const override;
    [[nodiscard]] LevelUse levelUse(const NativeKey& key) const override;

private:
    static constexpr int statusUnsupported = -1;
};

} // namespace Tavik
