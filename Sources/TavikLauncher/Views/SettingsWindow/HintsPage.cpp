// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/SegmentedChoice.h>
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Settings/LaunchHints.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QHBoxLayout>

#include <algorithm>
#include <vector>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

void addInterval(SettingsPage& page, Card& card)
{
    LauncherSettings& settings = page.settings();
    const std::vector<int>& intervals = settings.launchHintInterval.allowed().choices;
    QStringList titles;
    for (const int interval : intervals) {
        titles.append(QString::number(interval));
    }
    const RowText text{.title = Texts::tr("Interval"),
                       .help = Texts::tr("Launches from one hint to the next")};
    auto* choice = new SegmentedChoice(titles);
    choice->setObjectName(settings.launchHintInterval.name());
    card.addRow(text, choice);
    choice->setName(text.title);
    page.describe(*choice, text);
    QObject::connect(
        choice, &SegmentedChoice::chosen, &page, [&settings, &intervals](int position) {
            settings.launchHintInterval.set(intervals.at(static_cast<std::size_t>(position)));
        });
    page.follow({settings.launchHintInterval.name(),
                 settings.showsLaunchHints.name(),
                 settings.keepsCenterHintVisible.name()},
                [&settings, &intervals, choice] {
                    const auto found = std::ranges::find(intervals, settings.launchHintInterval());
                    choice->setCurrent(static_cast<int>(found - intervals.begin()));
                    choice->setEnabled(settings.showsLaunchHints()
                                       && !settings.keepsCenterHintVisible());
                });
}

QWidget* makeTip(int number, QStringView text)
{
    auto* tip = new QWidget;
    auto* row = new QHBoxLayout(tip);
    row->setContentsMargins(16, 8, 16, 8);
    row->setSpacing(10);
    // All as wide as two digits, in letters of any size.
    constexpr QChar blankDigit(u'\u2007');
    auto* figure = new Label(Label::Role::help, u"%1"_s.arg(number, 2, 10, blankDigit), tip);
    figure->setWordWrap(false);
    figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row->addWidget(figure);
    auto* words = new Label(Label::Role::help, text.toString(), tip);
    words->setForegroundRole(QPalette::WindowText);
    row->addWidget(words, 1);
    return tip;
}

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeHints(const SettingsDependencies& dependencies)
{
    auto page = std::make_unique<SettingsPage>(
        dependencies,
        Texts::tr("Hints"),
        Texts::tr("Short tips in the middle of the ring, now and then."));
    LauncherSettings& settings = page->settings();

    Card& rotation = page->addCard();
    auto& control = page->addSwitch(
        rotation,
        {.title = Texts::tr("Show hints"), .help = Texts::tr("One tip at a time")},
        settings.showsLaunchHints);
    auto* row = qobject_cast<CardRow*>(control.parentWidget());
    page->follow({settings.keepsCenterHintVisible.name()}, [row, &settings] {
        row->setHelp(settings.keepsCenterHintVisible() ? Texts::tr(
                         "Not shown while the center hint is kept visible, see Appearance")
                                                       : Texts::tr("One tip at a time"));
    });
    addInterval(*page, rotation);

    Card& tips = page->addCard(Texts::tr("All hints"));
    int number = 0;
    for (const QString& tip : LaunchHints::tips()) {
        tips.addWidget(makeTip(++number, tip));
    }
    return page;
}

} // namespace Tavik
