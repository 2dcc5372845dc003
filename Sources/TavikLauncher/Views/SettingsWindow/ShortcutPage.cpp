// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Announcement.h>
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Keycaps.h>
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/OutcomeMessage.h>
#include <TavikLauncher/Settings/HotKeyRecorder.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/ShortcutWords.h>
#include <TavikLauncher/Views/SettingsWindow/HotKeyRecorderBridge.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QHBoxLayout>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

/// The shortcut with its recorder. A recorded shortcut is taken over when it can be had, and one
/// that costs the user something only when the user insists.
class ShortcutPage final : public SettingsPage
{
public:
    explicit ShortcutPage(const SettingsDependencies& dependencies)
        : SettingsPage(
            dependencies, Texts::tr("Shortcut"), Texts::tr("What brings the ring up, anywhere."))
        , m_bridge(m_recorder, dependencies.keyEvents, *this)
    {
        Card& card = addCard();
        const RowText text{.title = Texts::tr("Trigger shortcut"),
                           .help = {},
                           .tooltip = Texts::tr("Click, then press the new shortcut.")};
        m_field = new Button(QString());
        m_field->setObjectName(u"hotKeyConfig"_s);
        auto* control = new QWidget;
        auto* keysAndField = new QHBoxLayout(control);
        keysAndField->setContentsMargins(0, 0, 0, 0);
        keysAndField->setSpacing(10);
        m_keys = new Keycaps({}, control);
        keysAndField->addWidget(m_keys);
        keysAndField->addWidget(m_field);
        m_row = &card.addRow(text, control);
        describe(*m_field, text);
        m_prompt = new Label(
            Label::Role::help,
            Texts::tr(
                "Press Modifier+Key for a tap-to-toggle shortcut. Or hold ≥2 modifier keys and "
                "release them to use a hold-to-show shortcut. Press Escape to cancel recording."));
        m_prompt->setObjectName(u"recordingPrompt"_s);
        m_prompt->setContentsMargins(16, 10, 16, 10);
        card.addWidget(m_prompt);
        m_message = new OutcomeMessage(&card);
        m_message->setObjectName(u"shortcutMessage"_s);
        card.addWidget(m_message);
        m_question = makeQuestion();
        card.addWidget(m_question);
        m_coexistence = new Label(Label::Role::help);
        m_coexistence->setObjectName(u"coexistence"_s);
        m_coexistence->setContentsMargins(16, 10, 16, 10);
        card.addWidget(m_coexistence);

        auto* reset = new Button(Texts::tr("Use Default Shortcut"));
        reset->setObjectName(u"defaultShortcut"_s);
        addWidget(reset, Qt::AlignRight);
        describe(*reset,
                 {.title = reset->text(),
                  .tooltip = Texts::tr("Go back to %1.")
                                 .arg(ShortcutWords::keys(HotKeyConfig::defaultConfig()))});

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
        m_recorder.onLevelRefused = [this] {
            m_message->say(OutcomeMessage::Kind::warning, ShortcutWords::levelRefusal());
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
            record();
        }
    }

    void record()
    {
        forgetOutcome();
        m_recorder.start();
    }

    void forgetOutcome()
    {
        m_message->clear();
        m_question->hide();
    }

    QWidget* makeQuestion()
    {
        auto* question = new QWidget(this);
        auto* row = new QHBoxLayout(question);
        row->setContentsMargins(margins(16, 6, 16 - focusMargin, 6));
        row->addStretch(1);
        const auto add = [&](const QString& text, const QString& name, auto clicked) {
            auto* button = new Button(text);
            button->setObjectName(name);
            connect(button, &QAbstractButton::clicked, this, clicked);
            row->addWidget(button);
        };
        add(Texts::tr("Use It Anyway"), u"useDoubtful"_s, [this] {
            take(HotKeyConfig(m_doubtful), true);
        });
        add(Texts::tr("Choose Another"), u"chooseAnother"_s, [this] { record(); });
        question->hide();
        return question;
    }

    /// Takes over what can be had. What costs the user something has to be `isInsistedOn`.
    void take(const HotKeyConfig& config, bool isInsistedOn = false)
    {
        forgetOutcome();
        const auto& tryShortcut = dependencies().tryShortcut;
        if (const auto reason = tryShortcut ? tryShortcut(config) : std::nullopt) {
            m_message->say(
                OutcomeMessage::Kind::warning,
                Texts::tr("%1 cannot be used. %2").arg(ShortcutWords::keys(config), *reason));
        } else if (const auto warning = ShortcutWords::warning(config); warning && !isInsistedOn) {
            m_message->say(OutcomeMessage::Kind::warning, *warning);
            m_doubtful = config;
            m_question->show();
        } else {
            settings().hotKeyConfig.set(config);
        }
    }

    void refresh()
    {
        const HotKeyConfig& config = settings().hotKeyConfig();
        const bool isRecording = m_recorder.isRecording();
        m_field->setText(isRecording ? Texts::tr("Press a shortcut…") : config.displayName);
        m_field->updateGeometry();
        m_row->setHelp(ShortcutWords::description(config));
        const QStringList keys = ShortcutWords::keycaps(config);
        // In words: not every voice knows the signs of the keys.
        tell(isRecording ? m_field->text() : ShortcutWords::keys(config));
        m_keys->setKeys(keys);
        constexpr qsizetype mostKeyText = 24; // A shortcut may have been given any name.
        m_keys->setVisible(!isRecording && keys.join(QString()).size() <= mostKeyText);
        m_prompt->setVisible(isRecording);
        m_coexistence->setText(ShortcutWords::coexistence(config));
    }

    /// A reader does not hear of a name that changes under the focus.
    void tell(const QString& shown)
    {
        m_field->setAccessibleName(Texts::tr("Trigger shortcut: %1").arg(shown));
        m_shown = shown;
        if (!isVisible()) {
            m_told = shown;
            return;
        }
        // The recording ends a moment before the new shortcut is known.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (std::exchange(m_told, m_shown) != m_shown) {
                    m_news.say(m_shown);
                }
            },
            Qt::QueuedConnection);
    }

    HotKeyRecorder m_recorder;
    HotKeyRecorderBridge m_bridge;
    Announcement m_news{*this};
    QString m_shown; ///< The shortcut, or what is asked for.
    QString m_told;
    Button* m_field = nullptr;
    Keycaps* m_keys = nullptr;
    CardRow* m_row = nullptr;
    Label* m_prompt = nullptr;
    OutcomeMessage* m_message = nullptr;
    QWidget* m_question = nullptr; ///< Whether `m_doubtful` is to be used all the same.
    Label* m_coexistence = nullptr;
    HotKeyConfig m_doubtful;
};

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeShortcut(const SettingsDependencies& dependencies)
{
    return std::make_unique<ShortcutPage>(dependencies);
}

} // namespace Tavik
