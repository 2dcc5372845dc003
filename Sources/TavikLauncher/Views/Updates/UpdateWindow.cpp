// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/UpdateView.h>
#include <TavikLauncher/Views/Updates/UpdateWindow.h>

#include <QEvent>

namespace Tavik {

UpdateWindow::UpdateWindow(WindowServer& windowServer, const Options& options, UpdateView* view)
    : AuxiliaryWindow(windowServer, options, view)
    , m_view(view)
{
    onClose = [this] {
        m_view->dismiss();
    };
}

bool UpdateWindow::event(QEvent* event)
{
    const bool isActivation = event->type() == QEvent::WindowActivate;
    if (isActivation || event->type() == QEvent::WindowDeactivate) {
        m_isLeft = !isActivation;
    }
    if (isActivation && onActivated) {
        onActivated();
    }
    return AuxiliaryWindow::event(event);
}

} // namespace Tavik
