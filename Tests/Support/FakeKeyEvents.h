// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/AccessibilityPermission.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <QList>
#include <QStringList>

#include <Support/Noting.h>
#include <utility>

namespace Tavik::Test {

class FakeAccessibilityPermission : public AccessibilityPermission, public Noting
{
public:
    [[nodiscard]] bool isTrusted() const override
    {
        note("ask for the permission");
        return trusted;
    }
    void prompt() override { calls << QStringLiteral("prompt"); }
    [[nodiscard]] bool isForKeys() const override { return forKeys; }
    [[nodiscard]] Obstacle obstacle() const override { return told; }
    void openSettings(std::function<void()> failed) override
    {
        calls << QStringLiteral("settings");
        if (!settingsOpen) {
            failed();
        }
    }

    bool trusted = true;
    bool forKeys = false;
    Obstacle told;
    bool settingsOpen = true;
    QStringList calls;
};

/// A keyboard whose events the test writes, source by source. Must outlive what it hands out.
class FakeKeyEvents : public KeyEvents, public Noting
{
public:
    [[nodiscard]] HotKeyResult registerHotKey(const HotKey& hotKey,
                                              HotKeyHandlers handlers) override
    {
        if (!hotKey.keyCode && !listensForChords) {
            return {.registration = nullptr, .status = -1};
        }
        if (hotKey.keyCode) {
            note("take the key");
        }
        requests.append(hotKey);
        if (hotKeyError != 0) {
            return {.registration = nullptr, .status = hotKeyError};
        }
        hotKeyLost = std::move(handlers.lost);
        hotKeyReleased = std::move(handlers.released);
        hotKeyJoined = std::move(handlers.joined);
        return {.registration
                = std::make_unique<Registration>(hotKeyPressed, std::move(handlers.pressed)),
                .status = 0};
    }
    [[nodiscard]] int hotKeyStatus(const HotKey&) override { return hotKeyError; }
    [[nodiscard]] bool hearsChords() const override { return hearsOfChords; }
    [[nodiscard]] bool hasKeys(quint64 modifierFlags, std::optional<quint16> keyCode) const override
    {
        return (modifierFlags & missingModifiers) == 0
            && (!keyCode || !missingKeys.contains(*keyCode));
    }
    [[nodiscard]] std::unique_ptr<KeyMonitor> addLocalMonitor(Kind, Filter filter) override
    {
        return hasLocal ? std::make_unique<Source<Filter>>(local, std::move(filter)) : nullptr;
    }
    [[nodiscard]] std::unique_ptr<KeyMonitor> addGlobalMonitor(Kind, Observer observer) override
    {
        return hasGlobal ? std::make_unique<Source<Observer>>(global, std::move(observer))
                         : nullptr;
    }
    [[nodiscard]] std::unique_ptr<EventTap>
    createEventTap(Kind, Observer observer, std::function<void()> disabled) override
    {
        tapDisabled = std::move(disabled);
        tapEnabled = hasTap;
        return hasTap ? std::make_unique<Tap>(*this, std::move(observer)) : nullptr;
    }
    [[nodiscard]] std::optional<quint64> heldModifiers() override { return held; }
    [[nodiscard]] std::optional<quint16> keyCode(const NativeKey&) const override
    {
        return std::nullopt;
    }
    [[nodiscard]] std::optional<QString> characters(const NativeKey&) const override
    {
        return std::nullopt;
    }
    [[nodiscard]] LevelUse levelUse(const NativeKey&) const override { return LevelUse::none; }

    Filter local; ///< Each is empty while nobody listens.
    Observer tap;
    Observer global;
    std::function<void(double)> hotKeyPressed;
    std::function<void(double)> hotKeyReleased;
    std::function<void(double)> hotKeyJoined;
    std::function<void(int)> hotKeyLost;
    std::function<void()> tapDisabled;
    bool hasLocal = true;
    bool hasTap = true;
    bool hasGlobal = true;
    bool tapEnabled = false;
    bool tapCanBeEnabled = true;
    int tapEnablings = 0;
    std::optional<quint64> held;
    int hotKeyError = 0;
    bool hearsOfChords = true;
    bool listensForChords = false;
    quint64 missingModifiers = 0;
    QList<quint16> missingKeys;
    QList<HotKey> requests;

private:
    /// Puts a handler into a place for as long as it lives.
    template <typename Handler, typename Base = KeyMonitor> class Source : public Base
    {
    public:
        Source(Handler& place, Handler handler)
            : m_place(place)
        {
            m_place = std::move(handler);
        }
        ~Source() override { m_place = nullptr; }
        Source(const Source&) = delete;
        Source& operator=(const Source&) = delete;

    private:
        Handler& m_place;
    };
    using Registration = Source<std::function<void(double)>, HotKeyRegistration>;
    class Tap final : public Source<Observer, EventTap>
    {
    public:
        Tap(FakeKeyEvents& owner, Observer observer)
            : Source(owner.tap, std::move(observer))
            , m_owner(owner)
        { }

        [[nodiscard]] bool isEnabled() const override { return m_owner.tapEnabled; }
        bool enable() override
        {
            ++m_owner.tapEnablings;
            m_owner.tapEnabled = m_owner.tapCanBeEnabled;
            return m_owner.tapEnabled;
        }

    private:
        FakeKeyEvents& m_owner;
    };
};

} // namespace Tavik::Test
