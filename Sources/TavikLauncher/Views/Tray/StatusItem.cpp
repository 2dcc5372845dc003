// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/TavikIconFactory.h>
#include <TavikLauncher/Look/ViewsLog.h>
#include <TavikLauncher/Look/WindowStyle.h>
#include <TavikLauncher/Views/Tray/StatusItem.h>
#include <TavikLauncherPlatform/Notices.h>
#include <TavikLauncherPlatform/StatusTray.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QScreen>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr double iconSize = 18;
/// Panels that do both announce the older kind of tray first.
constexpr double notifierGraceSeconds = 2;
constexpr double missingTraySeconds = 10;
constexpr double dockingSeconds = 0.5;

QString checkForUpdatesTitle()
{
    return Texts::tr("Check for Updates…");
}

QString reminderTitle(const QString& version)
{
    return Texts::tr("Update to %1 Available…").arg(version);
}

/// A title whose marks of mnemonics are meant as they stand.
QString withoutMnemonics(QString text)
{
    text.replace(u'&', u"&&"_s);
    // Menus on the bus mark with an underscore and write it twice when it is meant. The toolkit
    // turns the first ampersand into one and leaves the others alone.
    if (const qsizetype first = text.indexOf(u'_'); first >= 0 && !text.contains(u'&')) {
        text.insert(first, u'&');
    }
    return text;
}

} // namespace

StatusItem::StatusItem(const Dependencies& dependencies, Actions actions)
    : m_dependencies(dependencies)
    , m_actions(std::move(actions))
{
    buildMenu();
    m_menu.installEventFilter(this);
    m_dependencies.tray.onChanged = [this] {
        trayChanged();
    };
    m_reportMissingTray = m_dependencies.mainQueue.after(missingTraySeconds, [] {
        qCWarning(viewsLog, "Tavik Launcher: this desktop has no tray; the menu is not shown");
    });
    trayChanged();
}

StatusItem::~StatusItem()
{
    m_dependencies.tray.onChanged = nullptr;
}

void StatusItem::buildMenu()
{
    m_menu.setTitle(u"Tavik Launcher"_s);
    addItem(Texts::tr("About Tavik Launcher"), m_actions.showAbout);
    m_menu.addSeparator();
    m_settingsItem = addItem(Texts::tr("Settings..."), m_actions.showSettings);
    m_settingsItem->setShortcut(Qt::CTRL | Qt::Key_Comma);
    m_updateItem = addItem(checkForUpdatesTitle(), m_actions.checkForUpdates);
    m_menu.addSeparator();
    addItem(Texts::tr("Show Tavik Launcher"), m_actions.showLauncher);
    addItem(Texts::tr("Repeat Tour"), m_actions.repeatTour);
    addItem(Texts::tr("Reindex Apps…"), m_actions.showReindexWindow);
    addItem(Texts::tr("Support…"), m_actions.openSupportPage);
    m_menu.addSeparator();
    m_quitItem = addItem(Texts::tr("Quit"), m_actions.quit);
    m_quitItem->setShortcut(Qt::CTRL | Qt::Key_Q);
}

QAction* StatusItem::addItem(const QString& title, const std::function<void()>& action)
{
    QAction* item = m_menu.addAction(title);
    item->setShortcutVisibleInContextMenu(true);
    connect(item, &QAction::triggered, this, [action] {
        if (action) {
            action();
        }
    });
    return item;
}

void StatusItem::showUpdateReminder(const QString& version)
{
    m_updateVersion = version;
    m_updateItem->setText(withoutMnemonics(reminderTitle(version)));
    refreshIcon();
    refreshNotice();
}

void StatusItem::clearUpdateReminder()
{
    m_updateVersion.reset();
    m_updateItem->setText(checkForUpdatesTitle());
    refreshIcon();
    refreshNotice();
}

void StatusItem::refreshNotice()
{
    using enum Notices::Subject;
    if (m_updateVersion && !isSeen()) {
        m_dependencies.notices.show(update,
                                    {.title = reminderTitle(*m_updateVersion),
                                     .chosen = m_actions.checkForUpdates,
                                     .stays = true});
    } else {
        m_dependencies.notices.withdraw(update);
    }
}

bool StatusItem::isSeen() const
{
    return m_icon && m_dependencies.tray.host() != StatusTray::Host::none;
}

void StatusItem::tell(const QString& title, const QString& text)
{
    if (isSeen()) {
        m_icon->showMessage(title, text, m_icon->icon());
    } else {
        m_dependencies.notices.show(
            Notices::Subject::shortcut,
            {.title = title, .text = text, .chosen = m_actions.showSettings});
    }
}

void StatusItem::addKeyEquivalents(QWidget& window)
{
    addSettingsKeyEquivalent(window);
    window.addAction(m_quitItem);
}

void StatusItem::addSettingsKeyEquivalent(QWidget& window)
{
    window.addAction(m_settingsItem);
}

QIcon StatusItem::icon() const
{
    return m_icon ? m_icon->icon() : makeIcon();
}

QIcon StatusItem::makeIcon() const
{
    const QColor text = QGuiApplication::palette().color(QPalette::WindowText);
    const QColor fitting = m_seenColor.value_or(text);
    return TavikIconFactory::statusIcon({
        .size = iconSize,
        .showsUpdateBadge = m_updateVersion.has_value(),
        .labelColor = m_dependencies.tray.symbolColor().value_or(fitting),
    });
}

QString StatusItem::accessibilityDescription() const
{
    return m_updateVersion ? Texts::tr("Tavik Launcher — update available") : u"Tavik Launcher"_s;
}

void StatusItem::trayChanged()
{
    const StatusTray::Host host = m_dependencies.tray.host();
    if (host != StatusTray::Host::none) {
        m_reportMissingTray.cancel();
        m_missTray.cancel();
    }
    if (m_icon) {
        refreshIcon();
        if (isSeen()) {
            refreshNotice();
        } else if (!m_missTray.isActive()) {
            // A panel that is started anew is back before that.
            m_missTray
                = m_dependencies.mainQueue.after(missingTraySeconds, [this] { refreshNotice(); });
        }
        return;
    }
    // The toolkit settles once, at its first status item, which kind of tray it will ever use.
    if (host == StatusTray::Host::notifier) {
        install();
    } else if (host == StatusTray::Host::none) {
        m_waitForNotifier.cancel();
    } else if (!m_waitForNotifier.isActive()) {
        m_waitForNotifier
            = m_dependencies.mainQueue.after(notifierGraceSeconds, [this] { install(); });
    }
}

void StatusItem::install()
{
    m_waitForNotifier.cancel();
    m_icon = std::make_unique<QSystemTrayIcon>();
    m_icon->setContextMenu(&m_menu);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, &StatusItem::activated);
    refreshIcon();
    m_icon->show();
    // What a notice stood for is told here from now on: at a login the tray may come late.
    refreshNotice();
}

void StatusItem::refreshIcon()
{
    const bool isTold = m_dependencies.tray.symbolColor().has_value();
    if (m_icon && !isTold && m_dependencies.tray.host() == StatusTray::Host::embedding) {
        m_lookAtPanel = m_dependencies.mainQueue.after(dockingSeconds, [this] { lookAtPanel(); });
    } else {
        m_lookAtPanel.cancel();
        m_seenColor.reset();
    }
    drawIcon();
}

void StatusItem::drawIcon()
{
    if (m_icon) {
        m_icon->setIcon(makeIcon());
        m_icon->setToolTip(accessibilityDescription());
    }
}

/// The older trays neither follow the desktop's light or dark nor tell what they are; the icon's
/// corner lets the panel through.
void StatusItem::lookAtPanel()
{
    const QPoint corner = m_icon->geometry().topLeft();
    QScreen* screen = m_icon->geometry().isEmpty() ? nullptr : QGuiApplication::screenAt(corner);
    if (!screen) {
        return;
    }
    const QPoint inside = corner - screen->geometry().topLeft();
    const QImage panel = screen->grabWindow(0, inside.x(), inside.y(), 1, 1).toImage();
    if (!panel.isNull()) {
        constexpr int middle = 128;
        m_seenColor = qGray(panel.pixel(0, 0)) < middle ? Qt::white : Qt::black;
        drawIcon();
    }
}

void StatusItem::activated(QSystemTrayIcon::ActivationReason reason)
{
    if (reason != QSystemTrayIcon::Trigger) {
        return;
    }
    // Where windows cannot be placed a menu cannot be put beside the icon; the host shows it at
    // the other button.
    if (QGuiApplication::platformName() != u"wayland"_s) {
        m_menu.popup(QCursor::pos());
    } else if (m_actions.showLauncher) {
        m_actions.showLauncher();
    }
}

bool StatusItem::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange
        || event->type() == QEvent::PaletteChange) {
        refreshIcon();
    }
    return false;
}

} // namespace Tavik
