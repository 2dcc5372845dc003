// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Ring/FilterField.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QInputMethodEvent>
#include <QKeyEvent>

namespace Tavik {

using namespace Qt::StringLiterals;

FilterField::FilterField(QWidget* parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setAlignment(Qt::AlignCenter);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    setPlaceholderText(Texts::tr("Type to filter…"));
    setAccessibleName(Texts::tr("Filter"));
}

void FilterField::paintEvent(QPaintEvent*)
{
    // The ring paints the text, so that it takes part in the ring's animations.
}

void FilterField::focusInEvent(QFocusEvent* event)
{
    // Past the field's own, which would start to blink a caret that nobody sees.
    QWidget::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void FilterField::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
}

void FilterField::inputMethodEvent(QInputMethodEvent* event)
{
    QLineEdit::inputMethodEvent(event);
    if (m_preedit != event->preeditString()) {
        m_preedit = event->preeditString();
        Q_EMIT preeditChanged();
    }
}

} // namespace Tavik
