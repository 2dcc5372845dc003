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
#include <Support/FakeNotices.h>
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

    /// Nothing but what has happened since the last question is entered for an empty one.
    void operator()(const QString& event)
    {
        catchUp();
        if (!event.isEmpty()) {
            add(event);
        }
    }

    QStringList events; ///< The same twice in a row is there once.

private:
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
    void add(const QString& event)
    {
        if (events.isEmpty() || events.last() != event) {
            events << event;
        }
    }

    std::vector<std::pair<const NotificationCenter*, qsizetype>> m_centers;
    bool m_hasIcon = false;
};

/// A whole platform of fakes; each is also at hand under its name.
struct RecordingPlatform
{
    RecordingPlatform()
    {
        record.follow(notifications);
        record.follow(workspace.center);
    }

    NotificationCenter notifications;
    Record record;
    Platform platform;
    VirtualMainQueue& mainQueue = place<VirtualMainQueue>(platform.mainQueue);
    StepWorkQueue& workQueue = place<StepWorkQueue>(platform.workQueue);
    MemoryUserDefaults& userDefaults = place<MemoryUserDefaults>(platform.userDefaults);
    FakeFileManager& fileManager = place<FakeFileManager>(platform.fileManager);
    ColorIconDecoder& iconDecoder = place<ColorIconDecoder>(platform.iconDecoder);
    FakeWorkspace& workspace = place<FakeWorkspace>(platform.workspace);
    FakeScreens& screens = place<FakeScreens>(platform.screens);
    FakeAccessibilityPermission& permission
        = place<FakeAccessibilityPermission>(platform.accessibility);
    FakeKeyEvents& keyEvents = place<FakeKeyEvents>(platform.keyEvents);
    FakeWindowServer& windowServer = place<FakeWindowServer>(platform.windowServer);
    FakeSessionLock& sessionLock = place<FakeSessionLock>(platform.sessionLock);
    FakeAppearance& appearance = place<FakeAppearance>(platform.appearance);
    FakeLoginItem& loginItem = place<FakeLoginItem>(platform.loginItem);
    FakeStatusTray& tray = place<FakeStatusTray>(platform.statusTray);
    FakeNotices& notices = place<FakeNotices>(platform.notices);
    FakeUpdater& updater = place<FakeUpdater>(platform.updater);

private:
    template <typename Fake, typename Interface> Fake& place(std::unique_ptr<Interface>& member)
    {
        auto made = std::make_unique<Fake>();
        Fake& fake = *made;
        if constexpr (std::derived_from<Fake, Noting>) {
            fake.onCall = [this](const QString& call) {
                record(call);
            };
        }
        member = std::move(made);
        return fake;
    }
};

} // namespace Tavik::Test
