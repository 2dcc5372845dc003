// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QScrollArea>
#include <QStringList>

namespace Tavik::Test {

/// Not where it can be brought into view: on a page that scrolls.
inline bool isPartlyHidden(const QWidget& widget)
{
    for (const QWidget* above = &widget; above; above = above->parentWidget()) {
        if (above->inherits("Tavik::SettingsPage")) {
            return false;
        }
    }
    return widget.visibleRegion().boundingRect() != widget.rect();
}

/// Every text that has less room than it needs.
inline QStringList cutTexts(const QWidget& view)
{
    QStringList found;
    for (const QLabel* label : view.findChildren<QLabel*>()) {
        const int needed = label->hasHeightForWidth() ? label->heightForWidth(label->width())
                                                      : label->sizeHint().height();
        // Of a text that wraps, of its longest word; whatever the label itself says to its layout.
        const QSize least
            = label->wordWrap() ? label->QLabel::minimumSizeHint() : label->sizeHint();
        const bool isNarrow = label->width() < least.width();
        if (label->isVisible() && !label->text().isEmpty()
            && (isNarrow || label->height() < needed)) {
            found << label->text();
        }
    }
    for (const QAbstractButton* button : view.findChildren<QAbstractButton*>()) {
        const QSize needed = button->minimumSizeHint();
        if (button->isVisible()
            && (button->width() < needed.width() || button->height() < needed.height()
                || isPartlyHidden(*button))) {
            found << button->text() + button->accessibleName();
        }
    }
    for (const QScrollArea* page : view.findChildren<QScrollArea*>()) {
        if (page->isVisible() && page->widget()->width() > page->viewport()->width()) {
            found << QStringLiteral("the page, which is too wide");
        }
    }
    if (view.layout() && view.layout()->totalMinimumHeightForWidth(view.width()) > view.height()) {
        found << QStringLiteral("the whole");
    }
    return found;
}

} // namespace Tavik::Test
