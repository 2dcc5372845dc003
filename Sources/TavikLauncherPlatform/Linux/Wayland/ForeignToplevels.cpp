// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Wayland/ForeignToplevels.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QCoreApplication>
#include <QGuiApplication>

#include <algorithm>
#include <span>

namespace Tavik {

struct ForeignToplevels::Toplevel
{
    ForeignToplevels& owner;
    QString name; ///< Ours, since the compositor has none that lasts.
    QString applicationId;
    bool isActive = false;
    bool isKnown = false; ///< All of it has been told once.
    WaylandObject<zwlr_foreign_toplevel_handle_v1> handle;
};

/// What the compositor calls. Nothing may throw through it.
struct ForeignToplevels::Listeners
{
    using Handle = zwlr_foreign_toplevel_handle_v1;

    static Toplevel& self(void* data) { return *static_cast<Toplevel*>(data); }

    static void came(void* data, zwlr_foreign_toplevel_manager_v1*, Handle* handle)
    {
        auto& owner = *static_cast<ForeignToplevels*>(data);
        std::unique_ptr<Toplevel> toplevel(
            new Toplevel{.owner = owner, .name = QString::number(++owner.m_lastName)});
        toplevel->handle.reset(handle);
        static const zwlr_foreign_toplevel_handle_v1_listener listener{
            .title = [](void*, Handle*, const char*) {},
            .app_id = [](void* toData,
                         Handle*,
                         const char* id) { self(toData).applicationId = QString::fromUtf8(id); },
            .output_enter = [](void*, Handle*, wl_output*) {},
            .output_leave = [](void*, Handle*, wl_output*) {},
            .state = &state,
            .done = &done,
            .closed = &closed,
        };
        zwlr_foreign_toplevel_handle_v1_add_listener(handle, &listener, toplevel.get());
        owner.m_toplevels.push_back(std::move(toplevel));
    }
    static void state(void* data, Handle*, wl_array* states)
    {
        const std::span<const uint32_t> words(static_cast<const uint32_t*>(states->data),
                                              states->size / sizeof(uint32_t));
        self(data).isActive
            = std::ranges::count(words, uint32_t{ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED})
            > 0;
    }
    static void done(void* data, Handle*)
    {
        self(data).isKnown = true;
        self(data).owner.tell();
    }
    static void closed(void* data, Handle*)
    {
        ForeignToplevels& owner = self(data).owner;
        std::erase_if(owner.m_toplevels, [data](const auto& each) { return each.get() == data; });
        owner.tell();
    }
};

std::unique_ptr<ForeignToplevels> ForeignToplevels::make()
{
    std::unique_ptr<ForeignToplevels> windows(new ForeignToplevels);
    return windows->m_manager ? std::move(windows) : nullptr;
}

ForeignToplevels::ForeignToplevels()
    : m_manager(m_connection.bindToplevels())
{
    if (m_manager) {
        static const zwlr_foreign_toplevel_manager_v1_listener listener{
            .toplevel = &Listeners::came,
            .finished =
                [](void* data, zwlr_foreign_toplevel_manager_v1*) {
                    static_cast<ForeignToplevels*>(data)->lose();
                },
        };
        zwlr_foreign_toplevel_manager_v1_add_listener(m_manager.get(), &listener, this);
        m_first = m_connection.askForAnswer();
        static const wl_callback_listener answered{[](void* data, wl_callback*, uint32_t) {
            auto& self = *static_cast<ForeignToplevels*>(data);
            self.m_first.reset();
            self.tell();
        }};
        wl_callback_add_listener(m_first.get(), &answered, this);
        m_connection.onBroken = [this] {
            lose();
        };
        m_connection.listen();
        m_connection.flush();
    }
}

ForeignToplevels::~ForeignToplevels() = default;

Means ForeignToplevels::runningMeans() const
{
    return {.way = Texts::tr("The compositor lists its windows for taskbars."),
            .lack = isReady() ? QString() : Texts::tr("The desktop does not answer.")};
}

Means ForeignToplevels::raisingMeans() const
{
    return {.way = Texts::tr("A request to the compositor, as taskbars make it."),
            .lack = runningMeans().lack};
}

void ForeignToplevels::raise(const QString& name)
{
    const auto found = std::ranges::find(m_toplevels, name, &Toplevel::name);
    if (found != m_toplevels.end() && m_connection.seat()) {
        zwlr_foreign_toplevel_handle_v1_activate((*found)->handle.get(), m_connection.seat());
        m_connection.flush();
    }
}

void ForeignToplevels::tell()
{
    if (m_first) {
        return; // A list with none in it is an answer, too, and part of one is none.
    }
    QList<Window> windows;
    std::optional<QString> active; // While a panel has the keyboard, no window is.
    for (const auto& toplevel : m_toplevels) {
        if (!toplevel->isKnown) {
            continue;
        }
        const bool isOurs = toplevel->applicationId == QGuiApplication::desktopFileName();
        Facts facts;
        facts.clues.applicationId = toplevel->applicationId;
        facts.clues.className = toplevel->applicationId;
        facts.isOnTaskbar = true;
        facts.processId = isOurs ? QCoreApplication::applicationPid() : 0;
        windows.append({toplevel->name, facts});
        if (toplevel->isActive) {
            active = toplevel->name;
        }
    }
    take(windows, active);
}

} // namespace Tavik
