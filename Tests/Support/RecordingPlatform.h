// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/NotificationCenter.h>
#include <TavikLauncherPlatform/Platform.h>

#include <QGuiApplication>
#include <QIcon>

#include <Support/FakeDesktop.h>
#include <Support/FakeFileManager.h>
#include <Support/FakeKeyEvents.h>
#include <Support/FakeLoginItem.h>
#include <Support/FakeSessionLock.h>
#include <Support/FakeStatusTray.h>
#include <Support/FakeUpdater.h>
#include <Support/FakeWindowServer.h>
#include <Support/FakeWorkspace.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/StepWorkQueue.h>
#include <Support/VirtualMainQueue.h>
#include <utility>
#include <vector>

namespace Tavik::Test {

/// One list of everything that the platform is asked for, in order. What happens inside the program
/// between two questions (observers that were installed, the icon that was set) is entered before
/// the second.
class Record
{
public:
    void follow(const NotificationCenter& center) { m_centers.push_back({&center, 0}); }

    void operator()(const QString& event)
    {
        catchUp();
        add(event);
    }
    /// Enters what has happened since the last question.
    void catchUp()
    {
        for (auto& [center, seen] : m_centers) {
            const QStringList observed = center->observedNames();
            for (; seen < observed.size(); ++seen) {
                add(QStringLiteral("observe ") + observed.at(seen).section(u'.', 1));
            }
        }
        if (!m_hasIcon && !QGuiApplication::windowIcon().isNull()) {
            m_hasIcon = true;
            add(QStringLiteral("icon"));
        }
    }

    QStringList events; ///< The same twice in a row is there once.

private:
    void add(const QString& event)
    {
        if (events.isEmpty() || events.last() != event) {
            events << event;
        }
    }

    std::vector<std::pair<const NotificationCenter*, qsizetype>> m_centers;
    bool m_hasIcon = false;
};

/// A fake that enters some of what it is asked for into the record.
template <typename Fake> struct Recording : Fake
{
    explicit Recording(Record& newRecord)
        : record(newRecord)
    { }

    Record& record;
};

struct RecordingWorkQueue final : Recording<StepWorkQueue>
{
    using Recording::Recording;
    void schedule(WorkPriority priority, Job job) override
    {
        record(QStringLiteral("work"));
        StepWorkQueue::schedule(priority, std::move(job));
    }
};

struct RecordingFileManager final : Recording<FakeFileManager>
{
    using Recording::Recording;
    [[nodiscard]] std::unique_ptr<FolderWatch> watch(const QStringList& folders,
                                                     FoldersChanged changed) override
    {
        record(QStringLiteral("watch folders"));
        return FakeFileManager::watch(folders, std::move(changed));
    }
};

struct RecordingWorkspace final : Recording<FakeWorkspace>
{
    using Recording::Recording;
    [[nodiscard]] NotificationCenter& notificationCenter() override
    {
        record.catchUp();
        return center;
    }
};

struct RecordingPermission final : Recording<FakeAccessibilityPermission>
{
    using Recording::Recording;
    [[nodiscard]] bool isTrusted() const override
    {
        record(QStringLiteral("ask for the permission"));
        return trusted;
    }
};

struct RecordingKeyEvents final : Recording<FakeKeyEvents>
{
    using Recording::Recording;
    [[nodiscard]] HotKeyResult registerHotKey(const HotKey& hotKey,
                                              HotKeyHandlers handlers) override
    {
        if (hotKey.keyCode) {
            record(QStringLiteral("take the key"));
        }
        return FakeKeyEvents::registerHotKey(hotKey, std::move(handlers));
    }
};

struct RecordingStatusTray final : Recording<FakeStatusTray>
{
    using Recording::Recording;
    [[nodiscard]] Host host() const override
    {
        record(QStringLiteral("ask for a tray"));
        return present;
    }
};

struct RecordingWindowServer final : Recording<FakeWindowServer>
{
    using Recording::Recording;
    void takeKeyboardFocus(WId window) override
    {
        record(QStringLiteral("bring a window to the front"));
        FakeWindowServer::takeKeyboardFocus(window);
    }
};

/// A whole platform of fakes; each is also at hand under its name.
struct RecordingPlatform
{
    RecordingPlatform()
    {
        record.follow(notifications);
        record.follow(workspace.center);
        updater.onCall = [this](const QString& call) {
            record(call);
        };
    }

    NotificationCenter notifications;
    Record record;
    Platform platform;
    VirtualMainQueue& mainQueue = place<VirtualMainQueue>(platform.mainQueue);
    RecordingWorkQueue& workQueue = place<RecordingWorkQueue>(platform.workQueue, record);
    MemoryUserDefaults& userDefaults = place<MemoryUserDefaults>(platform.userDefaults);
    RecordingFileManager& fileManager = place<RecordingFileManager>(platform.fileManager, record);
    ColorIconDecoder& iconDecoder = place<ColorIconDecoder>(platform.iconDecoder);
    RecordingWorkspace& workspace = place<RecordingWorkspace>(platform.workspace, record);
    FakeScreens& screens = place<FakeScreens>(platform.screens);
    RecordingPermission& permission = place<RecordingPermission>(platform.accessibility, record);
    RecordingKeyEvents& keyEvents = place<RecordingKeyEvents>(platform.keyEvents, record);
    RecordingWindowServer& windowServer
        = place<RecordingWindowServer>(platform.windowServer, record);
    FakeSessionLock& sessionLock = place<FakeSessionLock>(platform.sessionLock);
    FakeAppearance& appearance = place<FakeAppearance>(platform.appearance);
    FakeLoginItem& loginItem = place<FakeLoginItem>(platform.loginItem);
    RecordingStatusTray& tray = place<RecordingStatusTray>(platform.statusTray, record);
    FakeUpdater& updater = place<FakeUpdater>(platform.updater);

private:
    template <typename Fake, typename Interface, typename... Arguments>
    static Fake& place(std::unique_ptr<Interface>& member, Arguments&... arguments)
    {
        auto made = std::make_unique<Fake>(arguments...);
        Fake& fake = *made;
        member = std::move(made);
        return fake;
    }
};

} // namespace Tavik::Test
