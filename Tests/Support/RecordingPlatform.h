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

class RecordingWorkQueue final : public StepWorkQueue
{
public:
    explicit RecordingWorkQueue(Record& record)
        : m_record(record)
    { }
    void schedule(WorkPriority priority, Job job) override
    {
        m_record(QStringLiteral("work"));
        StepWorkQueue::schedule(priority, std::move(job));
    }

private:
    Record& m_record;
};

class RecordingFileManager final : public FakeFileManager
{
public:
    explicit RecordingFileManager(Record& record)
        : m_record(record)
    { }
    [[nodiscard]] std::unique_ptr<FolderWatch> watch(const QStringList& folders,
                                                     std::function<void()> changed) override
    {
        m_record(QStringLiteral("watch folders"));
        return FakeFileManager::watch(folders, std::move(changed));
    }

private:
    Record& m_record;
};

class RecordingWorkspace final : public FakeWorkspace
{
public:
    explicit RecordingWorkspace(Record& record)
        : m_record(record)
    {
        m_record.follow(center);
    }
    [[nodiscard]] NotificationCenter& notificationCenter() override
    {
        m_record.catchUp();
        return FakeWorkspace::notificationCenter();
    }

private:
    Record& m_record;
};

class RecordingPermission final : public FakeAccessibilityPermission
{
public:
    explicit RecordingPermission(Record& record)
        : m_record(record)
    { }
    [[nodiscard]] bool isTrusted() const override
    {
        m_record(QStringLiteral("ask for the permission"));
        return FakeAccessibilityPermission::isTrusted();
    }

private:
    Record& m_record;
};

class RecordingKeyEvents final : public FakeKeyEvents
{
public:
    explicit RecordingKeyEvents(Record& record)
        : m_record(record)
    { }
    [[nodiscard]] HotKeyResult registerHotKey(const HotKey& hotKey,
                                              std::function<void(double)> pressed) override
    {
        m_record(QStringLiteral("take the key"));
        return FakeKeyEvents::registerHotKey(hotKey, std::move(pressed));
    }
    [[nodiscard]] std::unique_ptr<EventTap>
    createEventTap(Kind kind, Observer observer, std::function<void()> disabled) override
    {
        m_record(QStringLiteral("tap the keys"));
        return FakeKeyEvents::createEventTap(kind, std::move(observer), std::move(disabled));
    }

private:
    Record& m_record;
};

class RecordingStatusTray final : public FakeStatusTray
{
public:
    explicit RecordingStatusTray(Record& record)
        : m_record(record)
    { }
    [[nodiscard]] Host host() const override
    {
        m_record(QStringLiteral("ask for a tray"));
        return FakeStatusTray::host();
    }

private:
    Record& m_record;
};

class RecordingWindowServer final : public FakeWindowServer
{
public:
    explicit RecordingWindowServer(Record& record)
        : m_record(record)
    { }
    void takeKeyboardFocus(WId window) override
    {
        m_record(QStringLiteral("bring a window to the front"));
        FakeWindowServer::takeKeyboardFocus(window);
    }

private:
    Record& m_record;
};

class RecordingUpdater final : public FakeUpdater
{
public:
    explicit RecordingUpdater(Record& record)
        : m_record(record)
    { }

protected:
    void note(const QString& call) override
    {
        m_record(call);
        FakeUpdater::note(call);
    }

private:
    Record& m_record;
};

/// A whole platform of fakes; each is also at hand under its name.
struct RecordingPlatform
{
    RecordingPlatform() { record.follow(notifications); }

    NotificationCenter notifications;
    Record record;
    Platform platform;
    VirtualMainQueue& mainQueue = place(platform.mainQueue, new VirtualMainQueue);
    RecordingWorkQueue& workQueue = place(platform.workQueue, new RecordingWorkQueue(record));
    MemoryUserDefaults& userDefaults = place(platform.userDefaults, new MemoryUserDefaults);
    RecordingFileManager& fileManager
        = place(platform.fileManager, new RecordingFileManager(record));
    ColorIconDecoder& iconDecoder = place(platform.iconDecoder, new ColorIconDecoder);
    RecordingWorkspace& workspace = place(platform.workspace, new RecordingWorkspace(record));
    FakeScreens& screens = place(platform.screens, new FakeScreens);
    RecordingPermission& permission
        = place(platform.accessibility, new RecordingPermission(record));
    RecordingKeyEvents& keyEvents = place(platform.keyEvents, new RecordingKeyEvents(record));
    RecordingWindowServer& windowServer
        = place(platform.windowServer, new RecordingWindowServer(record));
    FakeAppearance& appearance = place(platform.appearance, new FakeAppearance);
    FakeLoginItem& loginItem = place(platform.loginItem, new FakeLoginItem);
    RecordingStatusTray& tray = place(platform.statusTray, new RecordingStatusTray(record));
    RecordingUpdater& updater = place(platform.updater, new RecordingUpdater(record));

private:
    template <typename Interface, typename Fake>
    static Fake& place(std::unique_ptr<Interface>& member, Fake* fake)
    {
        member.reset(fake);
        return *fake;
    }
};

} // namespace Tavik::Test
