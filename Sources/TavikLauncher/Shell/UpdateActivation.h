// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/Screens.h>

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <functional>
#include <optional>

namespace Tavik {

/// Brings the updater's windows before the user, who may be at another program: a program without a
/// window in use is not allowed to the front at once everywhere, so it is tried again and again for
/// a while. Decides when and which; the windows themselves are behind `Application`. Frames are in
/// points, y growing upwards.
class UpdateActivation
{
public:
    struct Window
    {
        quint64 id = 0;
        QString className; ///< Qualified.
        std::optional<QString> controllerDescription; ///< Of the object that controls the window.
        QRectF frame;
        bool isVisible = false;
        bool canBecomeKey = false;
    };

    /// The application as it is seen from here.
    class Application
    {
    public:
        virtual ~Application() = default;

        /// True while the user is at one of the program's windows.
        [[nodiscard]] virtual bool isActive() const = 0;
        virtual void activateIgnoringOtherApps() = 0;
        /// Every window of the updater's.
        [[nodiscard]] virtual QList<Window> updaterWindows() const = 0;
        /// The lower left corner of the window's frame goes to `origin`.
        virtual void setFrameOrigin(quint64 window, const QPointF& origin) = 0;
        virtual void orderFrontRegardless(quint64 window) = 0;
        virtual void orderKeyWindowFrontRegardless() = 0;
        /// The screen that the user looks at.
        [[nodiscard]] virtual std::optional<Screen> activeScreen() const = 0;
    };

    struct Dependencies
    {
        MainQueue& mainQueue;
        Application& application;
        std::function<void(const QString&)> logUpdateDebug;
    };
    explicit UpdateActivation(Dependencies dependencies);

    struct Options
    {
        /// Moves the update window to the screen that the user looks at, once; otherwise whatever
        /// has the keyboard is only brought to the front.
        bool repositionUpdateWindow = false;
    };
    void activateForSparkleUI(const Options& options);

private:
    /// True when there is nothing more to try.
    bool sparkleActivationStep();
    bool repositionStep();
    bool plainStep();
    void position(const Window& window, const Screen& screen);
    [[nodiscard]] std::optional<Window> sparkleUpdateWindow() const;

    Dependencies m_dependencies;
    Task m_sparkleActivationTimer;
    int m_sparkleActivationAttempts = 0;
    bool m_sparkleActivationReposition = false;
    std::optional<Screen> m_sparkleActivationTarget;
    bool m_sparkleWindowPositioned = false;
};

} // namespace Tavik
