// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/Look.h>

namespace Tavik {

Label::Label(Role role, const QString& text, QWidget* parent)
    : WrappedLabel(text, parent)
{
    switch (role) {
    case Role::title:
        setFont(scaledFont(font(), 1.7, QFont::Bold));
        break;
    case Role::heading:
        setFont(scaledFont(font(), 0.92, QFont::DemiBold));
        setForegroundRole(QPalette::PlaceholderText);
        break;
    case Role::subtitle:
        setForegroundRole(QPalette::PlaceholderText);
        break;
    case Role::help:
        setFont(scaledFont(font(), 0.9));
        setForegroundRole(QPalette::PlaceholderText);
        break;
    case Role::body:
        setFont(scaledFont(font(), 1, QFont::Medium));
        break;
    }
}

QSize Label::minimumSizeHint() const
{
    constexpr int widestWord = 160;
    const QSize needed = WrappedLabel::minimumSizeHint();
    return wordWrap() ? needed.boundedTo({widestWord, needed.height()}) : needed;
}

} // namespace Tavik
