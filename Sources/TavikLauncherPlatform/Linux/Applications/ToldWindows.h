// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/WindowSource.h>

#include <QHash>
#include <QString>

#include <optional>

namespace Tavik {

/// The windows of a desktop that tells of all of them at once, whenever something has changed.
/// Whoever hears it says what was heard; here it is remembered. Such a desktop is told nothing of a
/// start: it gives a new window the focus by itself.
class ToldWindows : public WindowSource
{
public:
    struct Window
    {
        QString name; ///< As the desktop tells it from the others.
        Facts facts;
        QString title{}; ///< Needed of this program's own windows only, as is the place.
        QRect place{}; ///< With its frame, in points.
    };

    [[nodiscard]] std::optional<QRect> placeOfOwn(const QString& title) override;
    [[nodiscard]] bool isReady() const override { return m_isReady; }
    [[nodiscard]] QList<WindowId> windows() const override { return m_order; }
    [[nodiscard]] Facts factsOf(WindowId window) const override;
    [[nodiscard]] WindowId activeWindow() const override { return m_active; }
    [[nodiscard]] WindowId mostRecent(const QList<WindowId>& windows) const override;
    void activate(WindowId window) final;
    [[nodiscard]] LaunchTokens beginStart(const DesktopEntry&) override { return {}; }
    void describeStart(const LaunchTokens&, qint64) override { }
    void endStart(const LaunchTokens&) override { }

protected:
    /// Raises and focuses the window of that name, which may have gone.
    virtual void raise(const QString& name) = 0;
    /// All windows that there are. `active` names the one with the focus, or none; absent where
    /// that is not told, and then it stays as it was.
    void take(const QList<Window>& windows, const std::optional<QString>& active);
    /// The window has the focus; an empty name stands for none.
    void takeActive(const QString& name);
    /// Whoever told of windows has gone, or never will.
    void lose();

private:
    struct Remembered
    {
        QString name;
        Facts facts;
        quint64 lastActive = 0; ///< Larger is later; 0 for never.
    };
    void setActive(WindowId window);
    void takeOwnPlaces(const QList<Window>& windows);

    QList<WindowId> m_order;
    QHash<WindowId, Remembered> m_windows;
    QHash<QString, WindowId> m_ids;
    QHash<QString, QRect> m_ownPlaces; ///< By title.
    WindowId m_active = 0;
    WindowId m_lastId = 0;
    quint64 m_activations = 0;
    bool m_isReady = false;
};

} // namespace Tavik
