// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/LauncherSettingsView.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSidebar.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QShortcut>
#include <QShowEvent>
#include <QStackedLayout>

#include <algorithm>

namespace Tavik {

LauncherSettingsView::LauncherSettingsView(const SettingsDependencies& dependencies,
                                           QWidget* parent)
    : QWidget(parent)
    , m_dependencies(dependencies)
    , m_sidebar(new SettingsSidebar(this))
    , m_stack(new QStackedLayout)
    , m_sectionID(SettingsSection::general.toString())
    , m_font(font())
{
    m_dependencies.beforeImport = &m_beforeImport;
    setWindowTitle(Texts::tr("Tavik Launcher Settings"));
    setMinimumSize(smallestSize);
    resize(preferredSize);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    row->addWidget(m_sidebar);
    // Not a stack's own widget, which readers announce whenever the focus enters it.
    row->addLayout(m_stack, 1);
    m_sidebar->setCurrent(m_sectionID);
    connect(m_sidebar, &SettingsSidebar::chosen, this, &LauncherSettingsView::showSection);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, [this] {
        window()->close();
    });
    connect(&m_dependencies.settings,
            &LauncherSettings::propertyChanged,
            this,
            [this](const QString& name) {
                if (name == u"pendingSettingsSectionID" && isVisible()) {
                    takePendingSection();
                }
            });
    m_aboutObserver = m_dependencies.notifications.addObserver(
        LauncherSettings::openAboutSection, [this](const NotificationCenter::Notification&) {
            showSection(SettingsSection::about.toString());
        });
    applyLook();
}

LauncherSettingsView::~LauncherSettingsView() = default;

void LauncherSettingsView::showSection(const QString& id)
{
    const auto known = std::ranges::find(allSettingsSections, id, &SettingsSection::id);
    if (known == allSettingsSections.end()) {
        return;
    }
    m_sectionID = id;
    m_sidebar->setCurrent(id);
    if (isVisible()) {
        showPage();
    }
}

SettingsPage* LauncherSettingsView::page() const
{
    return m_pages.value(m_sectionID);
}

bool LauncherSettingsView::event(QEvent* event)
{
    const bool isHandled = QWidget::event(event);
    switch (event->type()) {
    case QEvent::ApplicationPaletteChange:
        applyLook();
        break;
    case QEvent::ApplicationFontChange:
    case QEvent::FontChange:
        applyFont();
        break;
    default:
        break;
    }
    return isHandled;
}

bool LauncherSettingsView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange) {
        applyLook();
    }
    return QWidget::eventFilter(watched, event);
}

void LauncherSettingsView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        if (!isWindow()) {
            // Only windows are told of the application's colours, and ours inherits none.
            window()->installEventFilter(this);
            applyLook();
        }
        takePendingSection();
        showPage();
    }
}

void LauncherSettingsView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // Minimizing is no closing.
    if (!event->spontaneous()) {
        m_beforeImport.reset();
        dropPages();
    }
}

void LauncherSettingsView::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    QPainter painter(this);
    painter.fillRect(rect(), look.window);
    painter.fillRect(m_sidebar->geometry(), look.sidebar);
    painter.fillRect(QRect(m_sidebar->geometry().right() + 1, 0, 1, height()), look.edge);
}

void LauncherSettingsView::applyLook()
{
    const QPalette look = Look::of(QGuiApplication::palette()).palette();
    if (look != m_look) {
        m_look = look;
        setPalette(look);
    }
}

void LauncherSettingsView::applyFont()
{
    if (font() == m_font) {
        return;
    }
    m_font = font();
    // Sizes were taken from the font when the page was made.
    if (isVisible()) {
        dropPages();
        showPage();
    }
}

void LauncherSettingsView::showPage()
{
    SettingsPage*& page = m_pages[m_sectionID];
    if (!page) {
        auto made = SettingsPages::make(m_sectionID, m_dependencies);
        page = made.get();
        m_stack->addWidget(made.release());
    }
    m_stack->setCurrentWidget(page);
    // What these sections set is seen in the ring only.
    const bool isSeenInTheRing
        = m_sectionID == SettingsSection::appearance || m_sectionID == SettingsSection::theme;
    if (isSeenInTheRing && m_dependencies.showPreview) {
        m_dependencies.showPreview();
    }
}

void LauncherSettingsView::dropPages()
{
    m_pages.clear();
    while (QWidget* page = m_stack->widget(0)) {
        m_stack->removeWidget(page);
        // The page may be the one whose control closes the window.
        page->deleteLater();
    }
}

void LauncherSettingsView::takePendingSection()
{
    if (const std::optional<QString> pending = m_dependencies.settings.pendingSettingsSectionID()) {
        m_dependencies.settings.pendingSettingsSectionID.set(std::nullopt);
        showSection(*pending);
    }
}

} // namespace Tavik
