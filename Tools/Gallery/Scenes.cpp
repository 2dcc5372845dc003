// SPDX-License-Identifier: MIT
#include "Scenes.h"

#include <TavikLauncher/Look/DesktopPalette.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Settings/ThemePreset.h>
#include <TavikLauncher/Views/Ring/RingPainter.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>
#include <TavikLauncher/Views/Updates/UpdateAlertView.h>
#include <TavikLauncher/Views/Updates/UpdateMessageView.h>
#include <TavikLauncher/Views/Updates/UpdateStatusView.h>
#include <TavikLauncher/Views/Windows/AccessibilityPermissionView.h>
#include <TavikLauncher/Views/Windows/OnboardingView.h>
#include <TavikLauncher/Views/Windows/ReindexView.h>

#include <QApplication>
#include <QLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QTest>

#include <Views/Ring/PanelFixture.h>
#include <Views/SettingsWindow/SettingsWindowFixture.h>
#include <array>

namespace Tavik::Test {

namespace {

struct Application
{
    QStringView name;
    QStringView color;
};

constexpr std::array applications{Application{u"Browser", u"#3B82F6"},
                                  Application{u"Mail", u"#0EA5E9"},
                                  Application{u"Office Writer", u"#2563EB"},
                                  Application{u"Office Calculator", u"#16A34A"},
                                  Application{u"Terminal", u"#27272A"},
                                  Application{u"Files", u"#F59E0B"},
                                  Application{u"Photographs", u"#DB2777"},
                                  Application{u"Music", u"#9333EA"},
                                  Application{u"Calendar", u"#DC2626"},
                                  Application{u"Notes", u"#EAB308"},
                                  Application{u"Maps", u"#10B981"},
                                  Application{u"Video Editor", u"#7C3AED"},
                                  Application{u"Clock", u"#475569"},
                                  Application{u"Weather", u"#38BDF8"},
                                  Application{u"Chess", u"#A16207"}};

void installApplications(RingFixture& fixture)
{
    fixture.fileManager.bundles.clear();
    fixture.fileManager.items.clear();
    for (const Application& application : applications) {
        const QString path = RingFixture::path(application.name.toString());
        fixture.install(path, application.name.toString());
        fixture.fileManager.bundles[path].iconSource
            = application.color.toString() + u' ' + application.name.first(1).toString();
    }
    fixture.walk();
}

void startApplications(RingFixture& fixture, std::size_t count)
{
    fixture.workspace.running.clear();
    for (std::size_t i = 0; i < count; ++i) {
        const QString name = applications.at(i).name.toString();
        fixture.workspace.launch(RingFixture::path(name), u"id."_s + name);
    }
}

void pinApplications(RingFixture& fixture)
{
    QStringList paths;
    for (const Application& application : applications) {
        paths << RingFixture::path(application.name.toString());
    }
    fixture.pin(paths);
}

bool isLight(const QString& scheme)
{
    return scheme.endsWith(u"light");
}

/// A desktop to shine through.
QImage wallpaper(QSize size, double ratio, const QString& scheme)
{
    QImage image(size * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    QLinearGradient gradient(0, 0, size.width(), size.height());
    const bool isDay = isLight(scheme);
    gradient.setColorAt(0, isDay ? QColor(0xDD, 0xE8, 0xF4) : QColor(0x27, 0x4B, 0x7A));
    gradient.setColorAt(1, isDay ? QColor(0xF6, 0xE9, 0xDD) : QColor(0xA8, 0x69, 0x8E));
    QPainter(&image).fillRect(QRect(QPoint(), size), gradient);
    return image;
}

/// As it is in its window, whose colours these are.
QImage pictureOf(QWidget& view)
{
    view.setPalette(Look::of(QApplication::palette()).palette());
    view.show();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    return view.grab().toImage();
}

/// Gives the keyboard to a control in the midst of the others, as the Tab key does.
void focusOneOf(const QWidget& page)
{
    QList<QWidget*> controls = page.findChildren<QWidget*>();
    controls.removeIf([](const QWidget* control) {
        return !control->isVisible() || !control->isEnabled()
            || !(control->focusPolicy() & Qt::TabFocus);
    });
    if (!controls.isEmpty()) {
        controls.at(controls.size() / 2)->setFocus(Qt::TabFocusReason);
    }
}

/// As its window fits it.
void fit(QWidget& view)
{
    view.resize(view.width(), view.layout()->totalHeightForWidth(view.width()));
}

/// Of an image that lies deep, with much that no line ends in.
const QString longCommand
    = u"/home/somebody/Applications/Downloaded_programs_that_need_no_installation/Tavik-2.0-x86_64.AppImage"_s;

/// One that leaves something to be done of each kind.
DesktopCheck::Facts someDesktop()
{
    return {.shortcut = HotKeyConfig::defaultConfig(),
            .isTrusted = false,
            .obstacle = {.limit = u"GNOME lets programs listen for no key, so a custom shortcut is "
                                  "added to its keyboard settings for as long as Tavik Launcher "
                                  "runs."_s,
                         .isLiftedByPrompt = true},
            .triggerMeans = {.way = u"Custom shortcuts in GNOME's keyboard settings."_s},
            .releaseMeans = {.way = u"The ring's own keyboard, while it is open."_s},
            .pointer = {.way = u"The X server tells where it is."_s,
                        .lack = u"Beside a Wayland desktop it knows that only over its own "
                                "windows: the ring may open elsewhere."_s},
            .overlay = {.way = u"A window that the window manager keeps above the others."_s},
            .running = {.way = u"The window manager lists its windows."_s,
                        .lack = u"Only X11 programs are seen to run."_s},
            .raising = {.way = u"A request to the window manager."_s},
            .tray = StatusTray::Host::none,
            .login = LoginItem::Status::notRegistered,
            .command = longCommand};
}

struct RingPicture : PanelFixture
{
    explicit RingPicture(QString scheme)
        : m_scheme(std::move(scheme))
    {
        installApplications(*this);
        pinApplications(*this);
        startApplications(*this, applications.size());
        settle();
    }

    [[nodiscard]] QImage take()
    {
        settle();
        const RingScene scene = ring().scene();
        const double side = RingGeometry::panelSide(scene.diameter);
        QImage image = wallpaper(QSize(qCeil(side), qCeil(side)), scene.devicePixelRatio, m_scheme);
        QPainter painter(&image);
        painter.drawImage(0, 0, RingPainter::ringImage(scene, RingPainter::bandImage(scene)));
        return image;
    }

private:
    QString m_scheme;
};

} // namespace

GalleryScenes::GalleryScenes(const QString& scheme)
    : m_scheme(scheme)
{
    const DesktopPalette::Wanted wanted{.scheme
                                        = isLight(scheme) ? ColorScheme::light : ColorScheme::dark,
                                        .highContrast = scheme.startsWith(u"contrast")};
    if (const auto palette = DesktopPalette::replacing(QApplication::palette(), wanted)) {
        QApplication::setPalette(*palette);
    }
    if (scheme.startsWith(u"rtl")) {
        QApplication::setLayoutDirection(Qt::RightToLeft);
    }
}

void GalleryScenes::drawAll(const Keep& keep)
{
    drawRing(keep);
    drawWindows(keep);
}

void GalleryScenes::drawWindows(const Keep& keep)
{
    drawSettings(keep);
    drawSmallWindows(keep);
    drawUpdates(keep);
}

void GalleryScenes::drawRing(const Keep& keep)
{
    {
        RingPicture ring(m_scheme);
        ring.showRing();
        keep(u"ring-1-fresh"_s, ring.take(), nullptr);
        ring.commands.moveSelectionRight();
        ring.commands.moveSelectionRight();
        keep(u"ring-2-selected"_s, ring.take(), nullptr);
        ring.commands.moveSelectionRight();
        ring.commands.showPinnedIndicator();
        keep(u"ring-3-pinned"_s, ring.take(), nullptr);
        ring.commands.insertText(u"o"_s);
        keep(u"ring-4-search"_s, ring.take(), nullptr);
        ring.commands.insertText(u"zz"_s);
        keep(u"ring-5-nothing"_s, ring.take(), nullptr);
    }
    {
        RingPicture ring(m_scheme);
        ring.settings.showsLaunchHints.set(true);
        ring.commands.prepareForShow(true);
        ring.commands.showPinnedIndicator();
        keep(u"ring-6-hint"_s, ring.take(), nullptr);
    }
    {
        RingPicture ring(m_scheme);
        ring.settings.fillsRingWithRecentApps.set(false);
        ring.workspace.running.clear();
        ring.pin({});
        ring.showRing();
        keep(u"ring-7-empty"_s, ring.take(), nullptr);
    }
    int number = 0;
    for (const ThemePreset& preset : ThemePreset::presets()) {
        RingPicture ring(m_scheme);
        startApplications(ring, applications.size() / 2);
        ring.settings.applyTheme(preset);
        ring.showRing();
        ring.commands.moveSelectionLeft();
        keep(u"ring-8-theme-%1"_s.arg(++number), ring.take(), nullptr);
    }
    for (const auto& [name, diameter, thickness, icon, count] :
         {std::tuple(u"least"_s, 250.0, 220.0, 92.0, 24),
          std::tuple(u"most"_s, 550.0, 220.0, 92.0, 8)}) {
        RingPicture ring(m_scheme);
        ring.settings.ringDiameter.set(diameter);
        ring.settings.ringThickness.set(thickness);
        ring.settings.iconSize.set(icon);
        ring.settings.maxVisibleApps.set(count);
        ring.showRing();
        ring.commands.moveSelectionRight();
        keep(u"ring-9-"_s + name, ring.take(), nullptr);
    }
}

void GalleryScenes::drawSettings(const Keep& keep)
{
    SettingsWindowFixture window;
    installApplications(window);
    pinApplications(window);
    window.pin(window.settings.permanentAppPaths().first(5) + QStringList{u"/gone/Old.desktop"_s});
    window.desktopFacts = someDesktop();
    int number = 0;
    for (const SettingsSection& section : allSettingsSections) {
        const SettingsPage& page = window.open(section.id);
        window.settle();
        if (m_scheme.startsWith(u"keys")) {
            focusOneOf(*page.widget());
        }
        keep(u"settings-%1-%2"_s.arg(++number).arg(section.id),
             pictureOf(window.view),
             &window.view);
    }
}

void GalleryScenes::drawSmallWindows(const Keep& keep)
{
    RingFixture desktop;
    installApplications(desktop);
    FakeAppearance appearance;
    {
        OnboardingView tour(HotKeyConfig::defaultConfig(), {});
        tour.resize(560, 420);
        keep(u"window-1-tour"_s, pictureOf(tour), &tour);
    }
    {
        ReindexView reindex({desktop.catalog, desktop.mainQueue, appearance}, {});
        keep(u"window-2-reindex"_s, pictureOf(reindex), &reindex);
        QTest::keyClick(&reindex, Qt::Key_Return);
        keep(u"window-3-reindexing"_s, pictureOf(reindex), &reindex);
        desktop.workQueue.runAll();
        desktop.mainQueue.advance(2);
        fit(reindex);
        keep(u"window-4-reindexed"_s, pictureOf(reindex), &reindex);
    }
    appearance.reduced = true; // Nothing goes over into anything in a picture.
    FakeAccessibilityPermission permission;
    permission.trusted = false;
    permission.told.remedy
        = u"Bind the command %1 --summon to a key of your choice."_s.arg(longCommand);
    AccessibilityPermissionView view({permission, desktop.mainQueue, appearance},
                                     {.onDismiss = [] {},
                                      .onGranted =
                                          [] {
                                          }});
    view.resize(440, 520);
    keep(u"window-5-permission"_s, pictureOf(view), &view);
    QTest::keyClick(&view, Qt::Key_Return);
    keep(u"window-6-waiting"_s, pictureOf(view), &view);
    permission.trusted = true;
    desktop.mainQueue.advance(2);
    keep(u"window-7-granted"_s, pictureOf(view), &view);
}

void GalleryScenes::drawUpdates(const Keep& keep)
{
    VirtualMainQueue mainQueue;
    FakeAppearance appearance;
    UpdateItem item;
    item.versionString = u"210"_s;
    item.displayVersionString = u"2.1"_s;
    item.contentLength = 24'300'000;
    item.releaseNotes
        = ReleaseNotes{.format = ReleaseNotes::Format::html,
                       .text = u"<h2>New in 2.1</h2><ul><li>The ring opens at once.</li>"
                               "<li>Names are read in full.</li></ul>"_s};
    {
        UpdateAlertView alert(item, {.ownVersion = u"2.0"_s, .isAwaited = true}, {});
        alert.resize(alert.preferredSize());
        keep(u"update-1-found"_s, pictureOf(alert), &alert);
    }
    UpdateStatusView status(mainQueue, appearance);
    status.showDownload(u"2.1"_s, [] {});
    status.showDownloadProgress(9'100'000, 24'300'000);
    fit(status);
    keep(u"update-2-fetching"_s, pictureOf(status), &status);
    status.showReady(
        u"2.1"_s, [] {}, [] {});
    fit(status);
    keep(u"update-3-ready"_s, pictureOf(status), &status);
    UpdateMessageView message(
        {.title = u"You are up to date."_s, .text = u"Tavik Launcher 2.1 is the newest version."_s},
        [] {});
    fit(message);
    keep(u"update-4-message"_s, pictureOf(message), &message);
}

} // namespace Tavik::Test
