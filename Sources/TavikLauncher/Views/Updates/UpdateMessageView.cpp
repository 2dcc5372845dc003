// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/UpdateMessageView.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QVBoxLayout>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {
constexpr double usualWidth = 440;
}

UpdateMessageView::UpdateMessageView(const Message& message, std::function<void()> acknowledged)
    : m_acknowledged(std::move(acknowledged))
{
    setFixedWidth(scaled(usualWidth));
    setTitle(message.title);
    addText(message.text);
    column().insertStretch(0, 1);
    column().addStretch(1);
    QPushButton* button = addButton(Texts::tr("OK"), Side::right, [this] { dismiss(); });
    setDefaultButton(message.isAwaited ? button : nullptr);
}

} // namespace Tavik
