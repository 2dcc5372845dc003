// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/SettingsWindow/SettingsButton.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsLabel.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsLook.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncher/Views/TavikIconFactory.h>

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
    texts->addWidget(new SettingsLabel(SettingsLabel::Role::body, u"Tavik Launcher"_s, header));
    auto* number
        = new SettingsLabel(SettingsLabel::Role::help, u"Version %1"_s.arg(version), header);
    number->setObjectName(u"version"_s);
    texts->addWidget(number);
    texts->addWidget(new SettingsLabel(
        SettingsLabel::Role::help, u"Free software under the MIT license"_s, header));
    texts->addStretch();
    row->addLayout(texts, 1);
    return header;
}

QWidget* makeLicence(const Library& library)
{
    auto* label = new SettingsLabel(SettingsLabel::Role::help, library.licence.toString());
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

    SettingsCard& help = page->addCard(u"Help"_s);
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

    SettingsCard& built = page->addCard(u"Built with"_s);
    for (const Library& library : libraries) {
        built.addRow({.title = library.name.toString(), .help = library.use.toString()},
                     makeLicence(library));
    }
    return page;
}

} // namespace Tavik
