// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Desktops/ShortcutSource.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QStringList>

namespace Tavik {

class UserDefaults;

/// The trigger as custom shortcuts in GNOME's settings, which run our own command. They are written
/// after the user has agreed once, and taken back when they are not needed any more: also those
/// that a run left behind which was killed.
class GnomeShortcuts final : public ShortcutSource
{
public:
    enum class Chords {
        heard,
        missed, ///< Without an X server we do not hear what becomes of one that is held.
    };

    /// `program` is what a shortcut starts; `userDefaults` remember the consent.
    GnomeShortcuts(MainQueue& mainQueue,
                   UserDefaults& userDefaults,
                   QString program,
                   Chords chords = Chords::heard);
    ~GnomeShortcuts() override;
    GnomeShortcuts(const GnomeShortcuts&) = delete;
    GnomeShortcuts& operator=(const GnomeShortcuts&) = delete;

    /// Whether this desktop has such settings, and they may be written.
    [[nodiscard]] static bool isOffered();

    [[nodiscard]] bool hearsChords() const override { return m_chords == Chords::heard; }
    [[nodiscard]] bool hidesKeys() const override { return false; }
    [[nodiscard]] bool serves() const override;
    [[nodiscard]] Means means() const override;
    [[nodiscard]] bool awaitsConsent() const override { return !isAllowed(); }
    [[nodiscard]] bool isRefused() const override { return m_isRefused; }
    [[nodiscard]] QString request() const override;
    void allow() override;
    int bind(const KeyEvents::HotKey& hotKey, Handlers handlers) override;
    void unbind() override;
    /// Looks through all shortcuts of the desktop.
    [[nodiscard]] int status(const KeyEvents::HotKey& hotKey) override;

private:
    /// In the form of GNOME's settings; a chord has one for each key that can be its last.
    [[nodiscard]] QStringList acceleratorsOf(const KeyEvents::HotKey& hotKey) const;
    [[nodiscard]] bool isAllowed() const;
    [[nodiscard]] QString commandAt(const QString& path) const;
    void write(const QStringList& accelerators);
    void takeBack();

    MainQueue& m_mainQueue;
    UserDefaults& m_userDefaults;
    QString m_program;
    Chords m_chords;
    QStringList m_written; ///< The accelerators that are in the settings.
    Task m_takingBack;
    bool m_isRefused = false;
};

} // namespace Tavik
