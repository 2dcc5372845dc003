// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace Tavik::Test {

/// What of that kind can be seen in a window or view.
template <typename Widget> QList<Widget*> visible(const QWidget& view)
{
    QList<Widget*> found = view.findChildren<Widget*>();
    found.removeIf([](const Widget* each) { return !each->isVisible(); });
    return found;
}

/// The first visible button or label with that text, or null.
template <typename Widget> Widget* find(const QWidget& view, const QString& text)
{
    const QList<Widget*> all = visible<Widget>(view);
    const auto found = std::ranges::find(all, text, &Widget::text);
    return found == all.end() ? nullptr : *found;
}

/// False where no such button can be seen.
inline bool click(const QWidget& view, const QString& text)
{
    auto* button = find<QPushButton>(view, text);
    if (button) {
        QTest::mouseClick(button, Qt::LeftButton);
    }
    return button != nullptr;
}

} // namespace Tavik::Test
