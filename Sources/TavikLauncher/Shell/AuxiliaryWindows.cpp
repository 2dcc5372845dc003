// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/PanelPlacement.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Shell/AuxiliaryWindows.h>
#include <TavikLauncher/Views/SettingsWindow/LauncherSettingsView.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsFileDialogs.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>
#include <TavikLauncher/Views/Windows/AccessibilityPermissionView.h>
#include <TavikLauncher/Views/Windows/ConfettiWindow.h>
#include <TavikLauncher/Views/Windows/OnboardingView.h>
#include <TavikLauncher/Views/Windows/ReindexView.h>
#include <TavikLauncherPlatform/Platform.h>
#include <TavikLauncherPlatform/ScreenPlane.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QApplication>
#include <QWindow>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;
using ScreenPlane::primaryBottom;

namespace {

constexpr QSize permissionSize(440, 520);
constexpr QSize onboardingSize(560, 420);
constexpr int roomForTitle = 40; // What a window manager puts above a window, at most.

/// What is in a window may ask for its end a second time: a key that was already on its way still
/// arrives when the window is closed and forgotten.
std::function<void()> closing(const AuxiliaryWindowPointer& window)
{
    return [&window] {
        if (window) {
            window->close();
        }
    };
}

} // namespace

AuxiliaryWindows::AuxiliaryWindows(const Dependencies& dependencies, Actions actions)
    : m_dependencies(dependencies)
    , m_actions(std::move(actions))
{
    m_dependencies.platform.windowServer->onDesktopChanged = [this] {
        desktopChanged();
    };
    m_dependencies.platform.windowServer->onPlacesChanged = [this] {
        if (isSettingsVisible()) {
            m_actions.settingsChangedPlace();
        }
    };
}

AuxiliaryWindows::~AuxiliaryWindows()
{
    m_dependencies.platform.windowServer->onDesktopChanged = nullptr;
    m_dependencies.platform.windowServer->onPlacesChanged = nullptr;
    // The end of the program is no closing by the user; and a deletion that is put off would come
    // after the end of what the windows refer to.
    m_isEnding = true;
    m_settingsPlace.reset();
    for (AuxiliaryWindowPointer* window : {&m_settingsWindow,
                                           &m_reindexWindow,
                                           &m_onboardingWindow,
                                           &m_accessibilityPermissionWindow}) {
        const std::unique_ptr<QWidget> ended(window->release());
    }
}

AuxiliaryWindowPointer AuxiliaryWindows::makeWindow(const AuxiliaryWindow::Options& options,
                                                    QWidget* content,
                                                    std::function<void()> onClose)
{
    AuxiliaryWindow::Options complete = options;
    complete.skipsTaskbar = !m_dependencies.settings.showInDock();
    AuxiliaryWindowPointer window(
        new AuxiliaryWindow(*m_dependencies.platform.windowServer, complete, content));
    window->onClose = std::move(onClose);
    m_actions.windowMade(*window);
    return window;
}

void AuxiliaryWindows::checkAccessibilityPermission()
{
    Platform& platform = m_dependencies.platform;
    if (platform.accessibility->isTrusted()) {
        return;
    }
    if (!m_accessibilityPermissionWindow) {
        const auto granted = [this] {
            if (m_isEnding) {
                return;
            }
            m_actions.setupHotKey();
            if (!m_dependencies.settings.hasCompletedOnboarding()) {
                showOnboarding(true);
            }
        };
        auto* view = new AccessibilityPermissionView(
            {*platform.accessibility, *platform.mainQueue, *platform.appearance},
            {.onEnable = [this] { chooseShortcutThatCanBeHad(); },
             .onDismiss = closing(m_accessibilityPermissionWindow),
             // The view may say it again at its end.
             .onGranted =
                 [granted, isNews = true]() mutable {
                     if (std::exchange(isNews, false)) {
                         granted();
                     }
                 }});
        m_accessibilityPermissionWindow
            = makeWindow({.title = Texts::tr("Allow Accessibility Access"), .size = permissionSize},
                         view,
                         [this] { m_accessibilityPermissionWindow.reset(); });
        centerOnActiveScreen(*m_accessibilityPermissionWindow);
    }
    m_accessibilityPermissionWindow->activate();
}

void AuxiliaryWindows::chooseShortcutThatCanBeHad()
{
    LauncherSettings& settings = m_dependencies.settings;
    const HotKeyConfig config = settings.hotKeyConfig();
    if (config.isModifierOnly() && !m_dependencies.platform.keyEvents->hearsChords()) {
        settings.hotKeyConfig.set(config.withSpace());
    }
}

std::optional<QString> AuxiliaryWindows::repair(DesktopCheck::Repair repair)
{
    LauncherSettings& settings = m_dependencies.settings;
    switch (repair) {
    case DesktopCheck::Repair::none:
        break;
    case DesktopCheck::Repair::setUpTrigger:
        m_dependencies.platform.accessibility->prompt();
        chooseShortcutThatCanBeHad();
        m_actions.setupHotKey();
        break;
    case DesktopCheck::Repair::chooseShortcut:
        settings.pendingSettingsSectionID.set(SettingsSection::shortcut.toString());
        break;
    case DesktopCheck::Repair::launchAtLogin:
        settings.setLaunchesAtLogin(true);
        return settings.launchAtLoginMessage();
    }
    return std::nullopt;
}

void AuxiliaryWindows::showOnboarding(bool markIncomplete)
{
    LauncherSettings& settings = m_dependencies.settings;
    if (markIncomplete) {
        settings.hasCompletedOnboarding.set(false);
    }
    if (!m_onboardingWindow) {
        auto* view = new OnboardingView(
            settings.hotKeyConfig(),
            {.onFinish = closing(m_onboardingWindow), .onOpenSettings = [this] {
                 showSettings();
             }});
        m_onboardingWindow
            = makeWindow({.title = Texts::tr("Welcome to Tavik Launcher"), .size = onboardingSize},
                         view,
                         [this] {
                             m_dependencies.settings.hasCompletedOnboarding.set(true);
                             m_onboardingWindow.reset();
                         });
    }
    centerOnActiveScreen(*m_onboardingWindow);
    m_onboardingWindow->activate();
    // Once more with the frame that the window manager has given it.
    m_dependencies.platform.mainQueue->post([this] {
        if (m_onboardingWindow) {
            centerOnActiveScreen(*m_onboardingWindow);
        }
    });
}

void AuxiliaryWindows::showReindex()
{
    Platform& platform = m_dependencies.platform;
    if (!m_reindexWindow) {
        const auto celebrate = [this, &platform] {
            ConfettiWindow::burst(
                {*platform.mainQueue, *platform.windowServer, *platform.appearance},
                m_reindexWindow.get());
        };
        auto* view
            = new ReindexView({m_dependencies.catalog, *platform.mainQueue, *platform.appearance},
                              {.onCelebrate = celebrate, .onClose = closing(m_reindexWindow)});
        m_reindexWindow = makeWindow(
            {.title = Texts::tr("Reindex Apps")}, view, [this] { m_reindexWindow.reset(); });
    }
    centerOnActiveScreen(*m_reindexWindow);
    m_reindexWindow->activate();
}

AuxiliaryWindowPointer AuxiliaryWindows::makeSettingsWindow()
{
    Platform& platform = m_dependencies.platform;
    const auto window = [this]() -> QWidget* {
        return m_settingsWindow.get();
    };
    auto* view = new LauncherSettingsView({
        .settings = m_dependencies.settings,
        .catalog = m_dependencies.catalog,
        .fileManager = *platform.fileManager,
        .iconDecoder = *platform.iconDecoder,
        .workQueue = *platform.workQueue,
        .mainQueue = *platform.mainQueue,
        .notifications = m_dependencies.notifications,
        .keyEvents = *platform.keyEvents,
        .version = QCoreApplication::applicationVersion(),
        .display = platform.display,
        .whyNotUpdating = platform.updater->whyNotUpdating(),
        .openFile = SettingsFileDialogs::openFile(window),
        .saveFile = SettingsFileDialogs::saveFile(window),
        .desktopFindings = [this] { return DesktopCheck::findings(m_actions.desktopFacts()); },
        .repairDesktop = [this](DesktopCheck::Repair wanted) { return repair(wanted); },
        .tryShortcut = m_actions.tryShortcut,
        .shortcutRecordingChanged = m_actions.shortcutRecordingChanged,
        .showPreview = m_actions.showPreview,
        .repeatTour = [this] { showOnboarding(true); },
        .openSupportPage = m_actions.openSupportPage,
    });
    // A screen may be smaller than the window would like to be at its scale.
    const std::optional<Screen> screen = activeScreen();
    const QSize smallest = screen ? LauncherSettingsView::smallestSize.boundedTo(
                               screen->visibleFrame.size().toSize() - QSize(0, roomForTitle))
                                  : LauncherSettingsView::smallestSize;
    view->setMinimumSize(smallest);
    AuxiliaryWindowPointer made = makeWindow({.title = Texts::tr("Tavik Launcher Settings"),
                                              .size = LauncherSettingsView::preferredSize,
                                              .smallestSize = smallest,
                                              .isDialog = false},
                                             view,
                                             m_actions.hideLauncher);
    made->onPlaceChanged = [this] {
        if (m_settingsWindow) {
            m_actions.settingsChangedPlace();
        }
    };
    made->winId();
    connect(made->windowHandle(), &QWindow::screenChanged, this, [this] {
        if (isSettingsVisible()) {
            m_actions.settingsChangedScreen();
        }
    });
    return made;
}

void AuxiliaryWindows::showSettings()
{
    m_actions.hideLauncher();
    if (!m_settingsWindow) {
        m_settingsWindow = makeSettingsWindow();
        const Platform& platform = m_dependencies.platform;
        m_settingsPlace.emplace(SettingsWindowPlace::Dependencies{*platform.screens,
                                                                  *platform.windowServer,
                                                                  *platform.mainQueue,
                                                                  m_dependencies.settings},
                                *m_settingsWindow);
    }
    if (const std::optional<Screen> screen = activeScreen()) {
        m_settingsPlace->place(*screen);
    }
    m_isSettingsElsewhere = false; // Its window manager brings it here, or the user there.
    m_settingsWindow->activate();
    // Closing may have taken the native window along.
    m_dependencies.platform.windowServer->reportMoves(m_settingsWindow->winId());
    m_settingsPlace->settle();
}

void AuxiliaryWindows::showAbout()
{
    showSettings();
    m_dependencies.notifications.post(LauncherSettings::openAboutSection);
}

void AuxiliaryWindows::adopt(AuxiliaryWindow& window) const
{
    window.setSkipsTaskbar(!m_dependencies.settings.showInDock());
    m_actions.windowMade(window);
    if (const std::optional<Screen> screen = activeScreen()) {
        constexpr double largestShare = 0.9;
        window.resize(
            window.size().boundedTo((screen->visibleFrame.size() * largestShare).toSize()));
    }
    centerOnActiveScreen(window);
}

void AuxiliaryWindows::applyDockVisibility()
{
    const bool skips = !m_dependencies.settings.showInDock();
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* window = qobject_cast<AuxiliaryWindow*>(widget)) {
            window->setSkipsTaskbar(skips);
        }
    }
    if (isSettingsVisible()) {
        m_dependencies.platform.mainQueue->post([this] {
            if (isSettingsVisible()) {
                m_settingsWindow->activate();
            }
        });
    }
}

bool AuxiliaryWindows::isSettingsVisible() const
{
    return m_settingsWindow && m_settingsWindow->isVisible() && !m_settingsWindow->isMinimized()
        && !m_isSettingsElsewhere;
}

/// The preview is on every desktop, as the ring is; it stays with its window all the same.
void AuxiliaryWindows::desktopChanged()
{
    if (!m_settingsWindow || !m_settingsWindow->isVisible()) {
        return;
    }
    const bool isElsewhere = !m_dependencies.platform.windowServer->isOnCurrentDesktop(
        m_settingsWindow->internalWinId());
    if (std::exchange(m_isSettingsElsewhere, isElsewhere) != isElsewhere) {
        m_actions.settingsChangedPlace();
    }
}

QRectF AuxiliaryWindows::settingsFrame() const
{
    return m_settingsPlace ? m_settingsPlace->frame() : QRectF();
}

std::optional<SettingsPreviewLayout::Result> AuxiliaryWindows::settingsPreviewLayout() const
{
    return m_settingsPlace ? m_settingsPlace->previewLayout() : std::nullopt;
}

std::optional<Screen> AuxiliaryWindows::activeScreen() const
{
    const Screens& screens = *m_dependencies.platform.screens;
    const QList<Screen> all = screens.all();
    if (const Screen* pointed = PanelPlacement::screenShowing(screens.mouseLocation(), all)) {
        return *pointed;
    }
    const std::optional<Screen> main = screens.main();
    return main || all.isEmpty() ? main : std::optional(all.front());
}

void AuxiliaryWindows::centerOnActiveScreen(AuxiliaryWindow& window) const
{
    if (const std::optional<Screen> screen = activeScreen()) {
        window.centerIn(
            ScreenPlane::flipped(screen->visibleFrame, primaryBottom()).toAlignedRect());
    }
}

} // namespace Tavik
