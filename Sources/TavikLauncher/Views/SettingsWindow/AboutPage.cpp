// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/TavikIconFactory.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QHBoxLayout>
#include <QIcon>
#include <QPainter>

#include <array>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

struct Library
{
    QStringView name;
    const char* use;
    QStringView licence;
};

constexpr std::array libraries{
    Library{
        u"Qt 6", QT_TRANSLATE_NOOP("Tavik::Texts", "Windows, drawing, system services"), u"LGPL 3"},
    Library{u"GLib and GIO",
            QT_TRANSLATE_NOOP("Tavik::Texts", "Desktop entries, starting applications"),
            u"LGPL 2.1"},
    Library{u"XCB, Wayland and xkbcommon",
            QT_TRANSLATE_NOOP("Tavik::Texts", "X11 and Wayland sessions, and their keyboards"),
            u"MIT"},
    Library{u"libplist", QT_TRANSLATE_NOOP("Tavik::Texts", "Property lists"), u"LGPL 2.1"},
    Library{u"libsodium", QT_TRANSLATE_NOOP("Tavik::Texts", "Signatures of updates"), u"ISC"}};

class IconPicture final : public QWidget
{
public:
    explicit IconPicture(QWidget* parent)
        : QWidget(parent)
        , m_icon(TavikIconFactory::appIcon(side))
    {
        setFixedSize(side, side);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_icon.paint(&painter, rect());
    }

private:
    static constexpr int side = 72;
    QIcon m_icon;
};

QWidget* makeHeader(const QString& version, const QString& display)
{
    auto* header = new QWidget;
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(16, 16, 16, 16);
    row->setSpacing(16);
    row->addWidget(new IconPicture(header));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch();
    texts->addWidget(new Label(Label::Role::body, u"Tavik Launcher"_s, header));
    QStringList words(Texts::tr("Version %1").arg(version));
    if (!display.isEmpty()) {
        words << display;
    }
    auto* number = new Label(Label::Role::help, words.join(u" · "_s), header);
    number->setObjectName(u"version"_s);
    texts->addWidget(number);
    texts->addWidget(
        new Label(Label::Role::help, Texts::tr("Free software under the MIT license"), header));
    texts->addStretch();
    row->addLayout(texts, 1);
    return header;
}

QWidget* makeLicence(const Library& library)
{
    auto* label = new Label(Label::Role::help, library.licence.toString());
    // In line with the controls whose focus rings reach beyond them.
    label->setContentsMargins(margins(0, 0, focusMargin, 0));
    return label;
}

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeAbout(const SettingsDependencies& dependencies)
{
    auto page = std::make_unique<SettingsPage>(
        dependencies,
        Texts::tr("About"),
        Texts::tr("A fast radial launcher centered wherever your pointer is."));
    page->addCard().addWidget(makeHeader(dependencies.version, dependencies.display));

    Card& help = page->addCard(Texts::tr("Help"));
    page->addButton(
            help,
            {.title = Texts::tr("Welcome tour"), .help = Texts::tr("The ring in four short steps")},
            Texts::tr("Repeat Tour"),
            dependencies.repeatTour)
        .setObjectName(u"repeatTour"_s);
    page->addButton(
            help,
            {.title = Texts::tr("Support"), .help = Texts::tr("Questions, ideas and faults")},
            Texts::tr("Open Support Page"),
            dependencies.openSupportPage)
        .setObjectName(u"openSupportPage"_s);

    Card& built = page->addCard(Texts::tr("Built with"));
    for (const Library& library : libraries) {
        built.addRow({.title = library.name.toString(), .help = Texts::tr(library.use)},
                     makeLicence(library));
    }
    return page;
}

} // namespace Tavik
