// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/OutcomeMessage.h>
#include <TavikLauncher/Views/SettingsWindow/FindingRow.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/Texts.h>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

/// Not all parts of a desktop tell when they change.
constexpr double lookSeconds = 1;

/// How the desktop serves, looked at again and again while the page is shown.
class DesktopPage final : public SettingsPage
{
public:
    explicit DesktopPage(const SettingsDependencies& dependencies)
        : SettingsPage(dependencies,
                       Texts::tr("Check My Desktop"),
                       Texts::tr("What the launcher needs of this desktop, and how it has it."))
        , m_summary(new Label(Label::Role::body))
        , m_card(addSummaryAndCard())
        , m_message(new OutcomeMessage)
    {
        m_message->setObjectName(u"repairMessage"_s);
        m_card.addWidget(m_message);
        look();
    }

protected:
    void showEvent(QShowEvent* event) override
    {
        SettingsPage::showEvent(event);
        look();
        m_looking = dependencies().mainQueue.every(lookSeconds, [this] { look(); });
    }
    void hideEvent(QHideEvent* event) override
    {
        SettingsPage::hideEvent(event);
        m_looking.cancel();
    }

private:
    Card& addSummaryAndCard()
    {
        constexpr int indent = 17;
        m_summary->setObjectName(u"desktopSummary"_s);
        m_summary->setContentsMargins(indent, 4, indent, 0);
        addWidget(m_summary);
        return addCard();
    }

    void look()
    {
        if (!dependencies().desktopFindings) {
            return;
        }
        const QList<DesktopCheck::Finding> found = dependencies().desktopFindings();
        if (found == m_found) {
            return;
        }
        m_found = found;
        m_summary->setText(DesktopCheck::summary(found));
        while (m_rows.size() < found.size()) {
            auto* row = new FindingRow(&m_card);
            connect(row, &FindingRow::repairWanted, this, &DesktopPage::repair);
            m_card.addWidget(row);
            m_rows.append(row);
        }
        for (qsizetype i = 0; i < m_rows.size(); ++i) {
            m_rows.at(i)->setVisible(i < found.size());
            if (i < found.size()) {
                m_rows.at(i)->setFinding(found.at(i));
            }
        }
    }

    void repair(DesktopCheck::Repair repair)
    {
        const std::optional<QString> fault = dependencies().repairDesktop(repair);
        if (fault) {
            m_message->say(OutcomeMessage::Kind::warning, *fault);
        } else {
            m_message->clear();
        }
        look();
    }

    Label* m_summary;
    Card& m_card;
    OutcomeMessage* m_message;
    QList<FindingRow*> m_rows;
    QList<DesktopCheck::Finding> m_found; ///< What is shown.
    Task m_looking;
};

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeDesktop(const SettingsDependencies& dependencies)
{
    return std::make_unique<DesktopPage>(dependencies);
}

} // namespace Tavik
