// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Updates/UpdateView.h>

namespace Tavik {

/// Says one thing about an update and waits for the user to have read it.
class UpdateMessageView final : public UpdateView
{
    Q_OBJECT

public:
    struct Message
    {
        QString title;
        QString text; ///< A whole sentence, perhaps several.
        bool isAwaited = false; ///< The user waits for it: Return acknowledges.
    };

    UpdateMessageView(const Message& message, std::function<void()> acknowledged);

    void dismiss() override { m_acknowledged(); }

private:
    std::function<void()> m_acknowledged;
};

} // namespace Tavik
