// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/TavikIconFactory.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>

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
    QStringView use;
    QStringView licence;
};

constexpr std::array libraries{
    Library{u"Qt 6", u"Windows, drawing, system services", u"LGPL 3"},
    Library{u"GLib and GIO", u"Desktop entries, starting applications", u"LGPL 2.1"},
    Library{u"XCB and xkbcommon", u"The X11 session and its keyboard", u"MIT"},
    Library{u"libplist", u"Property lists", u"LGPL 2.1"},
    Library{u"libsodium", u"Signatures of updates", u"ISC"}};

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

QWidget* makeHeader(const QString& version)
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
    auto* number = new Label(Label::Role::help, u"Version %1"_s.arg(version), header);
    number->setObjectName(u"version"_s);
    texts->addWidget(number);
    texts->addWidget(
        new Label(Label::Role::help, u"Free software under the MIT license"_s, header));
    texts->addStretch();
    row->addLayout(texts, 1);
    return header;
}

QWidget* makeLicence(const Library& library)
{
    auto* label = new Label(Label::Role::help, library.licence.toString());
    // In line with the controls whose focus rings reach beyond them.
    label->setContentsMargins(0, 0, focusMargin, 0);
    return label;
}

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeAbout(const SettingsDependencies& dependencies)
{
    auto page = std::make_unique<SettingsPage>(
        dependencies, u"About"_s, u"A fast radial launcher centered wherever your pointer is."_s);
    page->addCard().addWidget(makeHeader(dependencies.version));

    Card& help = page->addCard(u"Help"_s);
    page->addButton(help,
                    {.title = u"Welcome tour"_s, .help = u"The ring in four short steps"_s},
                    u"Repeat Tour"_s,
                    dependencies.repeatTour)
        .setObjectName(u"repeatTour"_s);
    page->addButton(help,
                    {.title = u"Support"_s, .help = u"Questions, ideas and faults"_s},
                    u"Open Support Page"_s,
                    dependencies.openSupportPage)
        .setObjectName(u"openSupportPage"_s);

    Card& built = page->addCard(u"Built with"_s);
    for (const Library& library : libraries) {
        built.addRow({.title = library.name.toString(), .help = library.use.toString()},
                     makeLicence(library));
    }
    return page;
}

} // namespace Tavik
