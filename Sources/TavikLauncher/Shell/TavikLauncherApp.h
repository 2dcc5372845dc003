// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

namespace Tavik {

/// The process in the eyes of the toolkit and of the session. Made before anything that is shown;
/// it declares no windows.
class TavikLauncherApp final : public QApplication
{
    Q_OBJECT

public:
    TavikLauncherApp(int& argc, char** argv);

protected:
    bool event(QEvent* event) override;
};

} // namespace Tavik
