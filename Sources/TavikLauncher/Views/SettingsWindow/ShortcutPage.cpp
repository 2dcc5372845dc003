// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/OutcomeMessage.h>
#include <TavikLauncher/Settings/HotKeyRecorder.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/HotKeyRecorderBridge.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <array>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

struct ModifierName
{
    quint64 flag;
    QStringView name;
};

constexpr std::array modifierNames{ModifierName{ModifierFlags::control, u"Control"},
                                   ModifierName{ModifierFlags::option, u"Alt"},
                                   ModifierName{ModifierFlags::shift, u"Shift"},
                                   ModifierName{ModifierFlags::command, u"Super"}};

/// A shortcut in the words of a keyboard, for those to whom its glyphs say nothing.
QString inWords(const HotKeyConfig& config)
{
    QStringList keys;
    for (const auto& [flag, name] : modifierNames) {
        if ((config.modifierFlagsRaw & flag) != 0) {
            keys.append(name.toString());
        }
    }
    if (config.isModifierOnly()) {
        return u"Hold %1 to show the ring, let go to dismiss it"_s.arg(keys.join(u" + "_s));
    }
    // The name is stored text. One of ours has a glyph for each modifier before the key.
    const QString glyphs
        = HotKeyConfig::make(config.modifierFlagsRaw, config.keyCode).displayName.left(keys.size());
    if (config.displayName.startsWith(glyphs)) {
        keys.append(config.displayName.mid(keys.size()));
    } else {
        keys = QStringList{config.displayName};
    }
    return u"Press %1 to show or dismiss the ring"_s.arg(keys.join(u" + "_s));
}

/// The shortcut with its recorder. A recorded shortcut is taken over when it can be had.
class ShortcutPage final : public SettingsPage
{
public:
    explicit ShortcutPage(const SettingsDependencies& dependencies)
        : SettingsPage(dependencies, u"Shortcut"_s, u"What brings the ring up, anywhere."_s)
        , m_bridge(m_recorder, dependencies.keyEvents, *this)
    {
        Card& card = addCard();
        const RowText text{.title = u"Trigger shortcut"_s,
                           .help = {},
                           .tooltip = u"Click, then press the new shortcut."_s};
        m_field = new Button(QString());
        m_field->setObjectName(u"hotKeyConfig"_s);
        m_row = &card.addRow(text, m_field);
        describe(*m_field, text);
        m_prompt = new Label(
            Label::Role::help,
            u"Press Modifier+Key for a tap-to-toggle shortcut. Or hold ≥2 modifier keys and "
            "release them to use a hold-to-show shortcut. Press Escape to cancel recording."_s);
        m_prompt->setObjectName(u"recordingPrompt"_s);
        m_prompt->setContentsMargins(16, 10, 16, 10);
        card.addWidget(m_prompt);
        m_message = new OutcomeMessage(&card);
        m_message->setObjectName(u"shortcutMessage"_s);
        card.addWidget(m_message);

        auto* reset = new Button(u"Use Default Shortcut"_s);
        reset->setObjectName(u"defaultShortcut"_s);
        addWidget(reset, Qt::AlignRight);
        describe(*reset, {.title = reset->text(), .help = inWords(HotKeyConfig::defaultConfig())});

        connect(m_field, &QAbstractButton::clicked, this, [this] { toggleRecording(); });
        connect(reset, &QAbstractButton::clicked, this, [this] {
            m_recorder.stop();
            take(HotKeyConfig::defaultConfig());
        });
        connect(&m_recorder, &HotKeyRecorder::isRecordingChanged, this, [this](bool isRecording) {
            refresh();
            if (this->dependencies().shortcutRecordingChanged) {
                this->dependencies().shortcutRecordingChanged(isRecording);
            }
        });
        m_recorder.onCommit = [this](const HotKeyConfig& config) {
            take(config);
        };
        follow({settings().hotKeyConfig.name()}, [this] { refresh(); });
    }

protected:
    void hideEvent(QHideEvent* event) override
    {
        SettingsPage::hideEvent(event);
        // Nobody sees any more that it takes every key.
        m_recorder.stop();
    }

private:
    void toggleRecording()
    {
        if (m_recorder.isRecording()) {
            m_recorder.stop();
        } else {
            m_message->clear();
            m_recorder.start();
        }
    }

    void take(const HotKeyConfig& config)
    {
        const auto& tryShortcut = dependencies().tryShortcut;
        if (const auto reason = tryShortcut ? tryShortcut(config) : std::nullopt) {
            m_message->say(OutcomeMessage::Kind::warning,
                           u"%1 cannot be used. %2"_s.arg(config.displayName, *reason));
            return;
        }
        m_message->clear();
        settings().hotKeyConfig.set(config);
    }

    void refresh()
    {
        const HotKeyConfig& config = settings().hotKeyConfig();
        const bool isRecording = m_recorder.isRecording();
        m_field->setText(isRecording ? u"Press a shortcut…"_s : config.displayName);
        m_field->setAccessibleName(u"Trigger shortcut: "_s + m_field->text());
        m_field->updateGeometry();
        m_row->setHelp(inWords(config));
        m_prompt->setVisible(isRecording);
    }

    HotKeyRecorder m_recorder;
    HotKeyRecorderBridge m_bridge;
    Button* m_field = nullptr;
    CardRow* m_row = nullptr;
    Label* m_prompt = nullptr;
    OutcomeMessage* m_message = nullptr;
};

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeShortcut(const SettingsDependencies& dependencies)
{
    return std::make_unique<ShortcutPage>(dependencies);
}

} // namespace Tavik
