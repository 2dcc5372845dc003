// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/ScrollBar.h>
#include <TavikLauncher/Views/Updates/ReleaseNotesView.h>
#include <TavikLauncher/Views/Updates/SafeReleaseNotes.h>
#include <TavikLauncherPlatform/Texts.h>
#include <TavikLauncherPlatform/Updater.h>

#include <QEvent>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype surelyHigh = 8000; ///< Characters, with the elements.

} // namespace

ReleaseNotesView::ReleaseNotesView(std::function<void(const QUrl&)> openLink, QWidget* parent)
    : QTextBrowser(parent)
{
    // It lies on a card, whose corners are to be seen.
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setVerticalScrollBar(new ScrollBar(this));
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setAccessibleName(Texts::tr("Release notes"));
    document()->setDocumentMargin(10);
    document()->setIndentWidth(20);
    connect(this,
            &QTextBrowser::anchorClicked,
            this,
            [openLink = std::move(openLink)](const QUrl& url) {
                if (isSafeReleaseNotesLink(url.toString())) {
                    openLink(url);
                }
            });
}

bool ReleaseNotesView::showNotes(const ReleaseNotes& notes)
{
    const QString html = safeReleaseNotesHtml(notes);
    if (!html.isEmpty()) {
        setContent(html);
    }
    return !html.isEmpty();
}

void ReleaseNotesView::say(const QString& text)
{
    setContent(u"<p>%1</p>"_s.arg(text.toHtmlEscaped()));
}

void ReleaseNotesView::setContent(const QString& html)
{
    m_html = html;
    const int position = verticalScrollBar()->value();
    setHtml(html);
    verticalScrollBar()->setValue(position);
}

int ReleaseNotesView::fullHeight(int width, int enough) const
{
    // Laying out long ones twice would be seen.
    if (m_html.size() > surelyHigh) {
        return enough;
    }
    const std::unique_ptr<QTextDocument> copy(document()->clone());
    copy->setTextWidth(width);
    return std::min(static_cast<int>(std::ceil(copy->size().height())), enough);
}

QVariant ReleaseNotesView::loadResource(int, const QUrl&)
{
    return {};
}

void ReleaseNotesView::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    // The colour of links is settled when the text is read.
    if (event->type() == QEvent::PaletteChange && !m_html.isEmpty()) {
        setContent(m_html);
    }
}

} // namespace Tavik
