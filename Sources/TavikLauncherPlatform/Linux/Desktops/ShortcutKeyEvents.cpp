// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutKeyEvents.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

#include <utility>

namespace Tavik {

class ShortcutKeyEvents::Registration final : public HotKeyRegistration
{
public:
    explicit Registration(ShortcutKeyEvents* owner)
        : m_owner(owner)
    { }
    ~Registration() override
    {
        if (m_owner) {
            m_owner->m_isBound = false;
            m_owner->m_dependencies.source.unbind();
        }
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

private:
    QPointer<ShortcutKeyEvents> m_owner;
};

/// Tells what is held when one of our windows has got the keyboard, beside what its events tell:
/// what went down before that has none there.
class ShortcutKeyEvents::FocusMonitor final : public KeyMonitor
{
public:
    FocusMonitor(ShortcutKeyEvents* owner, Filter filter, std::unique_ptr<KeyMonitor> events)
        : m_owner(owner)
        , m_filter(std::move(filter))
        , m_events(std::move(events))
    {
        m_owner->m_focusMonitors.append(this);
    }
    ~FocusMonitor() override
    {
        if (m_owner) {
            m_owner->m_focusMonitors.removeOne(this);
        }
    }
    FocusMonitor(const FocusMonitor&) = delete;
    FocusMonitor& operator=(const FocusMonitor&) = delete;

    void tell(const Event& event) const
    {
        const Filter filter = m_filter; // It may end its own monitor.
        filter(event);
    }

private:
    QPointer<ShortcutKeyEvents> m_owner;
    Filter m_filter;
    std::unique_ptr<KeyMonitor> m_events;
};

ShortcutKeyEvents::ShortcutKeyEvents(const Dependencies& dependencies,
                                     std::unique_ptr<KeyEvents> ownWindows)
    : m_dependencies(dependencies)
    , m_ownWindows(std::move(ownWindows))
{
    m_ownWindows->onKeyboardChanged = [this] {
        if (onKeyboardChanged) {
            onKeyboardChanged();
        }
    };
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this] { focusChanged(); });
}

ShortcutKeyEvents::~ShortcutKeyEvents() = default;

KeyEvents::HotKeyResult ShortcutKeyEvents::registerHotKey(const HotKey& hotKey,
                                                          HotKeyHandlers handlers)
{
    const auto timed = [this](std::function<void(double)> tell) -> std::function<void()> {
        if (!tell) {
            return {};
        }
        return [this, tell = std::move(tell)] {
            tell(m_dependencies.mainQueue.systemUptime());
        };
    };
    ShortcutSource::Handlers told{.pressed = timed(handlers.pressed),
                                  .released = timed(handlers.released),
                                  .joined = timed(handlers.joined),
                                  .lost = handlers.lost};
    m_isBound = m_dependencies.source.bind(hotKey, std::move(told)) == 0;
    if (m_isBound) {
        return {.registration = std::make_unique<Registration>(this), .status = 0};
    }
    return m_ownWindows->registerHotKey(hotKey, std::move(handlers));
}

int ShortcutKeyEvents::hotKeyStatus(const HotKey& hotKey)
{
    // Also where it does not serve yet: for this one it may.
    ShortcutSource& source = m_dependencies.source;
    return source.isThere() ? source.status(hotKey) : m_ownWindows->hotKeyStatus(hotKey);
}

Means ShortcutKeyEvents::triggerMeans(bool isChord) const
{
    const ShortcutSource& source = m_dependencies.source;
    return source.serves() ? source.means() : m_ownWindows->triggerMeans(isChord);
}

Means ShortcutKeyEvents::releaseMeans() const
{
    return m_isBound && m_dependencies.source.tellsReleases()
        ? Means{.way = Texts::tr("The desktop tells it, and so does the ring's own keyboard.")}
        : m_ownWindows->releaseMeans();
}

bool ShortcutKeyEvents::hasKeys(quint64 modifierFlags, std::optional<quint16> keyCode) const
{
    return m_ownWindows->hasKeys(modifierFlags, keyCode);
}

std::unique_ptr<KeyMonitor> ShortcutKeyEvents::addLocalMonitor(Kind kind, Filter filter)
{
    std::unique_ptr<KeyMonitor> events = m_ownWindows->addLocalMonitor(kind, filter);
    if (kind != Kind::modifiersChanged) {
        return events;
    }
    return std::make_unique<FocusMonitor>(this, std::move(filter), std::move(events));
}

std::unique_ptr<KeyMonitor> ShortcutKeyEvents::addGlobalMonitor(Kind kind, Observer observer)
{
    return m_isBound ? nullptr : m_ownWindows->addGlobalMonitor(kind, std::move(observer));
}

std::unique_ptr<EventTap>
ShortcutKeyEvents::createEventTap(Kind kind, Observer observer, std::function<void()> disabled)
{
    return m_isBound ? nullptr
                     : m_ownWindows->createEventTap(kind, std::move(observer), std::move(disabled));
}

std::optional<quint64> ShortcutKeyEvents::heldModifiers()
{
    return m_knowsModifiers ? m_ownWindows->heldModifiers() : std::nullopt;
}

std::optional<quint16> ShortcutKeyEvents::keyCode(const NativeKey& key) const
{
    return m_ownWindows->keyCode(key);
}

std::optional<QString> ShortcutKeyEvents::characters(const NativeKey& key) const
{
    return m_ownWindows->characters(key);
}

KeyEvents::LevelUse ShortcutKeyEvents::levelUse(const NativeKey& key) const
{
    return m_ownWindows->levelUse(key);
}

void ShortcutKeyEvents::focusChanged()
{
    m_knowsModifiers = false;
    m_settling.cancel();
    if (!QGuiApplication::focusWindow() || !m_dependencies.settlingSeconds) {
        return;
    }
    m_settling = m_dependencies.mainQueue.after(*m_dependencies.settlingSeconds, [this] {
        m_knowsModifiers = true;
        const std::optional<quint64> held = m_ownWindows->heldModifiers();
        if (!held) {
            return;
        }
        const Event event{.kind = Kind::modifiersChanged,
                          .modifierFlags = *held,
                          .time = m_dependencies.mainQueue.systemUptime()};
        const QPointer<ShortcutKeyEvents> self(this);
        const QList<FocusMonitor*> listening = m_focusMonitors;
        for (FocusMonitor* monitor : listening) {
            // What the first is told may end the others.
            if (self && m_focusMonitors.contains(monitor)) {
                monitor->tell(event);
            }
        }
    });
}

} // namespace Tavik
