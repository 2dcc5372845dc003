// SPDX-License-Identifier: MIT
#pragma once

#include "../../Ring/RingFixture.h"
#include <TavikLauncher/Look/OutcomeMessage.h>
#include <TavikLauncher/Views/SettingsWindow/LauncherSettingsView.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncherPlatform/Null/NullServices.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include <Support/FakeDesktop.h>
#include <Support/FakeKeyEvents.h>

namespace Tavik::Test {

/// The real settings window over a desktop of fakes. The file dialogs answer at once with
/// `chosenFile`, or not at all while it is empty.
struct SettingsWindowFixture : RingFixture
{
    /// Opens the window at that section, if one is given.
    explicit SettingsWindowFixture(QStringView section = {},
                                   std::optional<QString> whyNot = std::nullopt)
        : whyNotUpdating(std::move(whyNot))
    {
        constexpr auto assigned = &LauncherSettings::propertyChanged;
        QObject::connect(
            &settings, assigned, &settings, [this](const QString& name) { changed << name; });
        for (const QStringView name : {LauncherSettings::previewRequestNotification,
                                       LauncherSettings::hotKeyChanged,
                                       LauncherSettings::checkForUpdatesNow,
                                       LauncherSettings::updateSettingsChanged,
                                       LauncherSettings::showInDockChanged}) {
            tokens.push_back(notifications.addObserver(
                name, [this](const auto& notification) { posted.append(notification.name); }));
        }
        if (!section.isEmpty()) {
            open(section);
        }
    }

    /// Opens the window at a section, as the keyboard's.
    SettingsPage& open(QStringView section)
    {
        settings.pendingSettingsSectionID.set(section.toString());
        view.show();
        QApplication::setActiveWindow(view.window());
        view.window()->setAttribute(Qt::WA_KeyboardFocusChange);
        settle();
        return *view.page();
    }
    void settle()
    {
        workQueue.runAll();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        forget();
    }
    void forget()
    {
        changed.clear();
        posted.clear();
        defaults.written.clear();
    }
    template <typename Control> [[nodiscard]] Control& control(const QString& name) const
    {
        auto* found = view.findChild<Control*>(name);
        if (!found) {
            qFatal("No control is called %s.", qPrintable(name));
        }
        return *found;
    }

    void click(const QString& name) const
    {
        QTest::mouseClick(&control<QAbstractButton>(name), Qt::LeftButton);
    }
    /// What is said there; empty while nothing is.
    [[nodiscard]] QString message(const QString& name) const
    {
        const auto& label = control<OutcomeMessage>(name);
        return label.isVisible() ? label.text() : QString();
    }

    ChooseFile dialog()
    {
        return
            [this](const FileRequest& request, const std::function<void(const QString&)>& chosen) {
                requests.append(request);
                if (!chosenFile.isEmpty()) {
                    chosen(chosenFile);
                }
            };
    }

    ColorIconDecoder icons;
    FakeKeyEvents keyEvents;
    QStringList changed; ///< Properties assigned, in order.
    QStringList posted; ///< Notifications.
    QList<FileRequest> requests;
    QString chosenFile;
    std::optional<QString> shortcutRefusal;
    QList<bool> recordings; ///< Whether a shortcut is being recorded, at each change.
    DesktopCheck::Facts desktopFacts; ///< At first of a desktop that has nothing to tell.
    QList<DesktopCheck::Repair> repairs; ///< Wanted, in order.
    std::optional<QString> repairFault;
    int previews = 0; ///< Asked for beside those that the settings post.
    int tours = 0;
    int supportPages = 0;
    std::optional<QString> whyNotUpdating;
    std::vector<ObserverToken> tokens;
    LauncherSettingsView view{SettingsDependencies{
        .settings = settings,
        .catalog = catalog,
        .fileManager = fileManager,
        .iconDecoder = icons,
        .workQueue = workQueue,
        .mainQueue = mainQueue,
        .notifications = notifications,
        .keyEvents = keyEvents,
        .version = u"9.8.7"_s,
        .display = u"X11"_s,
        .whyNotUpdating = whyNotUpdating,
        .openFile = dialog(),
        .saveFile = dialog(),
        .desktopFindings = [this] { return DesktopCheck::findings(desktopFacts); },
        .repairDesktop =
            [this](DesktopCheck::Repair repair) {
                repairs.append(repair);
                return repairFault;
            },
        .tryShortcut = [this](const HotKeyConfig&) { return shortcutRefusal; },
        .shortcutRecordingChanged = [this](bool isRecording) { recordings.append(isRecording); },
        .showPreview = [this] { ++previews; },
        .repeatTour = [this] { ++tours; },
        .openSupportPage = [this] { ++supportPages; },
    }};
};

} // namespace Tavik::Test
