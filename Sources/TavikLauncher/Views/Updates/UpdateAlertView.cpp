// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Card.h>
#include <TavikLauncher/Look/WindowStyle.h>
#include <TavikLauncher/Views/Updates/ReleaseNotesView.h>
#include <TavikLauncher/Views/Updates/UpdateAlertView.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QLabel>
#include <QLayout>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr double smallestWidth = 480;
constexpr double preferredWidth = 600;
constexpr double preferredHeight = 480;
constexpr double smallestNotes = 90;
constexpr double notesSize = 13;

/// How large the download is and of which day the version.
QString particulars(const UpdateItem& item)
{
    QStringList parts;
    if (item.contentLength > 0 && !item.isInformationOnly) {
        parts << QLocale().formattedDataSize(item.contentLength, 1, QLocale::DataSizeSIFormat);
    }
    if (item.date.isValid()) {
        parts << QLocale().toString(item.date.toLocalTime().date(), Texts::tr("d MMMM yyyy"));
    }
    return parts.join(u" · "_s);
}

} // namespace

UpdateAlertView::UpdateAlertView(const UpdateItem& item, const Options& options, Actions actions)
    : m_actions(std::move(actions))
{
    setTitle(Texts::tr("A new version of Tavik Launcher is available."));
    addText(Texts::tr("Version %1 is out; you have %2.")
                .arg(item.displayVersionString, options.ownVersion));
    // Most feeds call a version nothing but its number.
    if (!item.title.isEmpty() && !item.title.contains(item.displayVersionString)) {
        addText(item.title);
    }
    if (item.isInformationOnly) {
        addText(Texts::tr("It cannot be installed from here. Its page tells how to get it."));
    }
    if (item.isCritical) {
        addText(Texts::tr("This version is important. Please install it soon."));
    }
    if (const QString text = particulars(item); !text.isEmpty()) {
        addQuietText(text);
    }
    addNotes(item);
    addButtons(item, options.isAwaited);
}

void UpdateAlertView::addNotes(const UpdateItem& item)
{
    if (!item.releaseNotes && item.releaseNotesUrl.isEmpty()) {
        column().addStretch(1);
        return;
    }
    m_notes = new ReleaseNotesView(m_actions.openLink, this);
    m_notes->setMinimumHeight(scaled(smallestNotes));
    m_notes->setFont(WindowStyle::font(notesSize));
    column().addSpacing(6);
    auto* card = new Card(this);
    card->addWidget(m_notes);
    column().addWidget(card, 1);
    if (!item.releaseNotes) {
        m_isComplete = false;
        m_notes->say(Texts::tr("Fetching the release notes…"));
    } else if (!m_notes->showNotes(*item.releaseNotes)) {
        m_notes->say(Texts::tr("There are no release notes."));
    }
}

void UpdateAlertView::addButtons(const UpdateItem& item, bool isAwaited)
{
    const auto choosing = [this](UpdateChoice choice) {
        return [this, choice] {
            m_actions.choose(choice);
        };
    };
    if (!item.isCritical) {
        addButton(Texts::tr("Skip This Version"), Side::left, choosing(UpdateChoice::skip));
    }
    addButton(Texts::tr("Remind Me Later"), Side::right, choosing(UpdateChoice::remindLater));
    QPushButton* install
        = addButton(item.isInformationOnly ? Texts::tr("Learn More") : Texts::tr("Install"),
                    Side::right,
                    choosing(UpdateChoice::install));
    setDefaultButton(isAwaited ? install : nullptr);
}

void UpdateAlertView::showReleaseNotes(const ReleaseNotes& notes)
{
    m_isComplete = true;
    if (m_notes && !m_notes->showNotes(notes)) {
        m_notes->say(Texts::tr("There are no release notes."));
    }
}

void UpdateAlertView::showReleaseNotesFailure(const QString& reason)
{
    m_isComplete = true;
    if (m_notes) {
        m_notes->say(Texts::tr("The release notes could not be fetched. %1").arg(reason));
    }
}

QSize UpdateAlertView::smallestSize() const
{
    const int width = std::max(scaled(smallestWidth), layout()->totalMinimumSize().width());
    const int height = layout()->hasHeightForWidth() ? layout()->totalMinimumHeightForWidth(width)
                                                     : layout()->totalMinimumSize().height();
    return {width, height};
}

QSize UpdateAlertView::preferredSize()
{
    const QSize smallest = smallestSize();
    const int width = std::max(smallest.width(), scaled(preferredWidth));
    if (!m_notes) {
        return {width, layout()->totalHeightForWidth(width)};
    }
    const int height = std::max(smallest.height(), scaled(preferredHeight));
    if (!m_isComplete) {
        return {width, height};
    }
    resize(width, height);
    layout()->activate();
    m_notes->parentWidget()->layout()->activate(); // The card's, which else waits for the showing.
    const int surplus
        = m_notes->height() - m_notes->fullHeight(m_notes->width(), m_notes->height());
    return {width, std::max(smallest.height(), height - surplus)};
}

} // namespace Tavik
