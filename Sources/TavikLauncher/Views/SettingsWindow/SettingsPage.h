// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/Card.h>
#include <TavikLauncher/Settings/Setting.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsDependencies.h>

#include <QScrollArea>
#include <QStringList>

class QAbstractButton;
class QVBoxLayout;

namespace Tavik {

class ColorField;
class Slider;
class Switch;

/// A section's page: title, cards, and the ties between controls and settings. A tied control
/// assigns through its setting whatever the user does, carries the setting's name as its object
/// name, and follows the setting when it changes elsewhere. A page without a control is itself what
/// Tab reaches, to be read out and scrolled.
class SettingsPage : public QScrollArea
{
    Q_OBJECT

public:
    /// What a slider's whole steps mean; its ends are those of the setting.
    struct Scale
    {
        int stepsPerUnit = 1;
        int leap = 10;
        QString unit; ///< Follows the number, with its space.
    };

    SettingsPage(const SettingsDependencies& dependencies,
                 const QString& title,
                 const QString& subtitle);

    [[nodiscard]] const SettingsDependencies& dependencies() const { return m_dependencies; }
    [[nodiscard]] LauncherSettings& settings() const { return m_dependencies.settings; }

    Card& addCard(const QString& heading = {});
    /// Takes over something between the cards.
    void addWidget(QWidget* widget, Qt::Alignment alignment = {});

    Switch& addSwitch(Card& card, const RowText& text, Setting<bool>& setting);
    /// Has the ring shown beside the window when this is switched: some settings show in it
    /// although their change asks for no preview by itself.
    void previewWith(Switch& control);
    Slider&
    addSlider(Card& card, const RowText& text, Setting<double>& setting, const Scale& scale);
    Slider& addSlider(Card& card, const RowText& text, Setting<int>& setting, const Scale& scale);
    ColorField& addColor(Card& card, const RowText& text, Setting<QString>& setting);
    /// Adds a button with its own row.
    QAbstractButton& addButton(Card& card,
                               const RowText& text,
                               const QString& buttonText,
                               std::function<void()> clicked);

    /// Runs `refresh` now and whenever one of the named properties changes.
    void follow(const QStringList& properties, const std::function<void()>& refresh);
    /// Runs `look` whenever the user comes back to the window, for what nobody tells of.
    void whenBroughtBack(std::function<void()> look);
    /// Gives a control its name for assistive technology, and a tooltip where there is more to say
    /// than its row does.
    void describe(QWidget& control, const RowText& text);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void findStop();
    [[nodiscard]] QString wholeText() const;
    template <typename T>
    Slider& tieSlider(Card& card, const RowText& text, Setting<T>& setting, const Scale& scale);

    SettingsDependencies m_dependencies;
    QVBoxLayout* m_column;
    std::function<void()> m_broughtBack;
};

} // namespace Tavik
