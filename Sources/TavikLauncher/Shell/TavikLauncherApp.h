// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

#include <functional>

namespace Tavik {

/// The process in the eyes of the toolkit and of the session. Made before anything that is shown;
/// it declares no windows.
class TavikLauncherApp final : public QApplication
{
    Q_OBJECT

public:
    TavikLauncherApp(int& argc, char** argv);

    /// Ends the program, without a question and without closing its windows one by one: none counts
    /// as closed by the user. The way for the menu, a signal, the session and an update alike.
    static void end();

    /// Called once, when the end begins.
    std::function<void()> onEnd;

protected:
    bool event(QEvent* event) override;
};

} // namespace Tavik
