// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/TavikIconFactory.h>
#include <TavikLauncher/Shell/AppDelegate.h>
#include <TavikLauncher/Shell/DesktopSurvey.h>
#include <TavikLauncher/Shell/OpenPage.h>
#include <TavikLauncher/Shell/TavikLauncherApp.h>
#include <TavikLauncher/Views/Ring/LauncherPanel.h>
#include <TavikLauncher/Views/Ring/RadialLauncherView.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>
#include <TavikLauncherPlatform/Platform.h>

#include <QApplication>
#include <QUrl>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int appIconSize = 256;

/// Our own application id, and the identifier of our desktop entry.
const QString& ownIdentifier()
{
    static const QString identifier = u"org.tavik.Launcher"_s;
    return identifier;
}

void openSupportPage()
{
    openPage(QUrl(QStringLiteral(TAVIK_SUPPORT_URL)));
}

[[nodiscard]] ObserverToken
observe(NotificationCenter& center, QStringView name, std::function<void()> action)
{
    return center.addObserver(
        name, [action = std::move(action)](const NotificationCenter::Notification&) { action(); });
}

} // namespace

AppDelegate::AppDelegate(Platform& platform, NotificationCenter& notifications)
    : m_platform(platform)
    , m_palette(*platform.appearance)
    , m_notifications(notifications)
    , m_settings(*platform.userDefaults, *platform.loginItem, m_notifications)
    , m_recents(*platform.userDefaults)
    , m_catalog({*platform.fileManager, *platform.workQueue, *platform.mainQueue})
    , m_launcher(*platform.workspace, m_recents)
    , m_recentActivations(*platform.workspace, m_recents, ownIdentifier())
    , m_screenGuard(*platform.sessionLock, *platform.mainQueue)
    , m_trigger({.keyEvents = *platform.keyEvents,
                 .permission = *platform.accessibility,
                 .mainQueue = *platform.mainQueue,
                 .settings = m_settings,
                 .screenGuard = m_screenGuard},
                triggerActions())
    , m_windows(
          {platform, m_settings, m_catalog, m_notifications},
          {
              .hideLauncher = [this] { m_panelController->hide(); },
              .setupHotKey = [this] { m_trigger.setupHotKey(); },
              .desktopFacts = [this] { return desktopFacts(); },
              .openSupportPage = openSupportPage,
              .tryShortcut =
                  [this](const HotKeyConfig& config) {
                      return GlobalHotKey::refusal(*m_platform.keyEvents, config);
                  },
              .shortcutRecordingChanged
              = [this](bool isRecording) { m_trigger.setRecording(isRecording); },
              .showPreview = [this] { showPreview(); },
              .settingsChangedScreen =
                  [this] {
                      if (m_panelController->isVisible()) {
                          showPreview();
                      }
                  },
              .settingsChangedPlace = [this] { m_panelController->followSettingsWindow(); },
              .windowMade = [this](QWidget& window) { m_statusItem->addKeyEquivalents(window); },
          })
    , m_requests({*platform.windowServer, m_screenGuard},
                 {
                     .isRingVisible = [this] { return m_panelController->isVisible(); },
                     .pressTrigger = [this] { m_trigger.press(); },
                     .showRing = [this] { showAtPointer(); },
                     .hideRing = [this] { m_panelController->hide(); },
                     .showSettings = [this](const QString& section) { showSettings(section); },
                     .showReindex = [this] { m_windows.showReindex(); },
                     .showTour = [this] { m_windows.showOnboarding(true); },
                     .checkForUpdates = [this] { m_softwareUpdates->checkForUpdates(); },
                     .quit = &TavikLauncherApp::end,
                 })
    , m_settingsOffer(*platform.statusTray, *platform.mainQueue, [this] { showSettings(); })
    , m_updaterApplication({.windowServer = *platform.windowServer, .activeScreen = [this] {
                                return m_windows.activeScreen();
                            }})
{ }

TriggerShortcut::Actions AppDelegate::triggerActions()
{
    const TriggerGestures::Panel panel{
        .isVisible = [this] { return m_panelController->isVisible(); },
        .isPinned = [this] { return m_panelController->isPinnedForSearch(); },
        .doubleTapPins = [this] { return m_settings.doubleTapModifiersPinsLauncher(); },
        .showAtPointer = [this] { showAtPointer(); },
        .hide = [this] { m_panelController->hide(); },
        .pin = [this] { pinPanel(); },
    };
    return {.panel = panel,
            .tell = [this](const QString& title,
                           const QString& text) { m_statusItem->tell(title, text); },
            .checkAccessibilityPermission =
                [this] {
                    m_windows.checkAccessibilityPermission();
                }};
}

AppDelegate::~AppDelegate()
{
    m_platform.sessionLock->onLocked = nullptr;
}

void AppDelegate::applicationDidFinishLaunching()
{
    m_windows.applyDockVisibility();
    installShowInDockObserver();
    QGuiApplication::setWindowIcon(TavikIconFactory::appIcon(appIconSize));
    startUpdater();
    m_softwareUpdates->applyUpdateSettings();
    m_panelController.emplace(LauncherPanelController::Dependencies{
        .catalog = m_catalog,
        .settings = m_settings,
        .screens = *m_platform.screens,
        .appearance = *m_platform.appearance,
        .mainQueue = *m_platform.mainQueue,
        .commands = m_commands,
        .presentation = m_presentation,
        .makeSurface
        = [this](std::function<void()> dismiss) { return makePanel(std::move(dismiss)); },
        .avoidedFrames =
            [this] {
                return m_windows.isSettingsVisible() ? QList<QRectF>{m_windows.settingsFrame()}
                                                     : QList<QRectF>();
            },
        .settingsPreviewLayout = [this] { return m_windows.settingsPreviewLayout(); },
    });
    // Before the walk, so that nothing changes unseen between the two.
    m_catalog.watchFolders();
    m_catalog.reindex();
    installStatusItem();
    installSettingsPreviewObserver();
    installHotKeySettingsObserver();
    installUpdateSettingsObserver();
    installWillSleepObserver();
    m_recentActivations.follow();
    installSessionLockObserver();
    m_trigger.setupHotKey();
    chooseFirstRunWindow();

    // Once idle: everything a first summon would be slow for.
    m_warmUp = m_platform.mainQueue->after(0, [this] { launcherPanel().warmUp(); });
}

std::unique_ptr<PanelSurface> AppDelegate::makePanel(std::function<void()> dismiss)
{
    auto ring = std::make_unique<RadialLauncherView>(RadialLauncherView::Dependencies{
        .ring = {.catalog = m_catalog,
                 .launcher = m_launcher,
                 .settings = m_settings,
                 .recents = m_recents,
                 .workspace = *m_platform.workspace,
                 .fileManager = *m_platform.fileManager,
                 .commands = m_commands,
                 .presentation = m_presentation,
                 .mainQueue = *m_platform.mainQueue,
                 .workQueue = *m_platform.workQueue},
        .ownIdentifier = ownIdentifier(),
        .iconDecoder = *m_platform.iconDecoder,
        .windowServer = *m_platform.windowServer,
        .appearance = *m_platform.appearance,
        .onClose = std::move(dismiss),
        .onFillRing = [this] { showSettings(SettingsSection::permanentApps.toString()); },
    });
    auto panel = std::make_unique<LauncherPanel>(
        LauncherPanel::Dependencies{m_commands, *m_platform.windowServer, *m_platform.keyEvents},
        std::move(ring));
    m_statusItem->addSettingsKeyEquivalent(*panel);
    return panel;
}

LauncherPanel& AppDelegate::launcherPanel()
{
    return static_cast<LauncherPanel&>(m_panelController->panel());
}

void AppDelegate::installHotKeySettingsObserver()
{
    m_hotKeySettingsObserver = observe(m_notifications, LauncherSettings::hotKeyChanged, [this] {
        m_trigger.setupHotKey();
        if (m_platform.accessibility->isForKeys()) {
            m_windows.checkAccessibilityPermission();
        }
    });
}

void AppDelegate::installWillSleepObserver()
{
    m_willSleepObserver = observe(m_platform.workspace->notificationCenter(),
                                  Workspace::willSleep,
                                  [this] { m_trigger.systemWillSleep(); });
}

void AppDelegate::installSessionLockObserver()
{
    m_platform.sessionLock->onLocked = [this] {
        m_panelController->hide();
    };
}

void AppDelegate::installShowInDockObserver()
{
    m_showInDockObserver = observe(m_notifications, LauncherSettings::showInDockChanged, [this] {
        m_windows.applyDockVisibility();
    });
}

void AppDelegate::installSettingsPreviewObserver()
{
    m_settingsPreviewObserver
        = observe(m_notifications, LauncherSettings::previewRequestNotification, [this] {
              if (m_windows.isSettingsVisible()) {
                  showPreview();
              }
          });
}

void AppDelegate::startUpdater()
{
    m_softwareUpdates.emplace(
        SoftwareUpdates::Dependencies{
            .updater = *m_platform.updater,
            .settings = m_settings,
            .mainQueue = *m_platform.mainQueue,
            .windowServer = *m_platform.windowServer,
            .appearance = *m_platform.appearance,
            .fileManager = *m_platform.fileManager,
            .application = m_updaterApplication,
            .version = QCoreApplication::applicationVersion(),
        },
        SoftwareUpdates::Actions{
            .showUpdateReminder
            = [this](const QString& version) { m_statusItem->showUpdateReminder(version); },
            .clearUpdateReminder = [this] { m_statusItem->clearUpdateReminder(); },
            .windowMade = [this](AuxiliaryWindow& window) { m_windows.adopt(window); },
            .isInImmediateFocus =
                [this] {
                    // The toolkit learns a moment late that the user has gone elsewhere.
                    const auto* window
                        = qobject_cast<AuxiliaryWindow*>(QApplication::activeWindow());
                    return window && m_platform.windowServer->hasKeyboardFocus(window->winId());
                },
        });
}

void AppDelegate::installUpdateSettingsObserver()
{
    m_updateSettingsObserver = observe(m_notifications,
                                       LauncherSettings::updateSettingsChanged,
                                       [this] { m_softwareUpdates->applyUpdateSettings(); });
    m_checkForUpdatesNowObserver = observe(m_notifications,
                                           LauncherSettings::checkForUpdatesNow,
                                           [this] { m_softwareUpdates->checkForUpdates(); });
}

void AppDelegate::installStatusItem()
{
    m_statusItem.emplace(
        StatusItem::Dependencies{
            *m_platform.statusTray, *m_platform.notices, *m_platform.mainQueue},
        StatusItem::Actions{
            .showAbout = [this] { m_windows.showAbout(); },
            .showSettings = [this] { m_windows.showSettings(); },
            .checkForUpdates = [this] { m_softwareUpdates->checkForUpdates(); },
            .showLauncher = [this] { m_screenGuard.whenFree([this] { showLauncher(); }); },
            .repeatTour = [this] { m_windows.showOnboarding(true); },
            .showReindexWindow = [this] { m_windows.showReindex(); },
            .openSupportPage = openSupportPage,
            .quit = &TavikLauncherApp::end,
        });
}

/// A new user is asked for the permission first; the tour then follows when it is given.
void AppDelegate::chooseFirstRunWindow()
{
    const AccessibilityPermission& permission = *m_platform.accessibility;
    const bool isNeeded = m_settings.hotKeyConfig().isModifierOnly() || permission.isForKeys();
    if (isNeeded && !permission.isTrusted()) {
        m_windows.checkAccessibilityPermission();
    } else if (!m_settings.hasCompletedOnboarding()) {
        m_windows.showOnboarding(true);
    }
}

void AppDelegate::showLauncher()
{
    m_panelController->show({.activatesApp = true, .makesKey = true});
}

void AppDelegate::showPreview()
{
    m_panelController->show({.prefersAvoidedFrameScreen = true});
    // A ring that is just opening takes no second showing, but another size it must have at once.
    m_panelController->followSettingsWindow();
}

void AppDelegate::showSettings(const QString& section)
{
    // A window that opens takes the section along; in an open one it is the section that brings up
    // the ring beside it, which bringing the window to the front takes away.
    const bool isOpen = m_windows.isSettingsVisible();
    if (isOpen) {
        m_windows.showSettings();
    }
    if (!section.isEmpty()) {
        m_settings.pendingSettingsSectionID.set(section);
    }
    if (!isOpen) {
        m_windows.showSettings();
    }
}

void AppDelegate::startedByUser(const Activation& activation, std::function<bool()> isFirstOfLogin)
{
    m_platform.windowServer->beginActivation(activation);
    m_platform.windowServer->endActivation();
    m_settingsOffer.makeSoon(std::move(isFirstOfLogin));
}

DesktopCheck::Facts AppDelegate::desktopFacts() const
{
    DesktopCheck::Facts facts
        = surveyDesktop(m_platform, m_settings.hotKeyConfig(), m_trigger.state());
    facts.isStartedAtLogin = m_isStartedAtLogin;
    return facts;
}

void AppDelegate::performSoon(const AppRequest& request)
{
    m_platform.mainQueue->post([this, request] { perform(request); });
}

void AppDelegate::perform(const AppRequest& request)
{
    m_settingsOffer.withdraw();
    m_requests.perform(request);
}

void AppDelegate::showAtPointer()
{
    m_panelController->show({.centeredAt = m_platform.screens->mouseLocation(),
                             .activatesApp = true,
                             .makesKey = true});
}

void AppDelegate::pinPanel()
{
    m_panelController->setPinnedForSearch(true);
    if (m_commands.showPinnedIndicator) {
        m_commands.showPinnedIndicator();
    }
}

} // namespace Tavik
