// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/HoverTooltip.h>
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/ScrollBar.h>
#include <TavikLauncher/Look/Slider.h>
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/ColorField.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <map>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int sideMargin = 34;
constexpr int widestContent = 760;
constexpr int textIndent = 17; // Of a card's rows; titles and headings stand on the same edge.

/// Rows say things without a full stop; read out one after the other they need one.
QString asSentences(const QStringList& texts)
{
    QString said;
    for (const QString& text : texts) {
        if (!said.isEmpty() && !text.isEmpty()) {
            said += u".。!?…"_s.contains(said.back()) ? u" "_s : u". "_s;
        }
        said += text;
    }
    return said;
}

} // namespace

SettingsPage::SettingsPage(const SettingsDependencies& dependencies,
                           const QString& title,
                           const QString& subtitle)
    : m_dependencies(dependencies)
    , m_column(nullptr)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setVerticalScrollBar(new ScrollBar(this));
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(title);
    auto* content = new QWidget;
    content->setMaximumWidth(widestContent);
    setWidget(content);
    content->setAutoFillBackground(false); // Below it is the ring around the page.
    viewport()->setBackgroundRole(QPalette::Window);
    m_column = new QVBoxLayout(content);
    // The scroll bar always has its place, so that pages do not jump; controls at the right reach
    // into the margin with their focus rings.
    m_column->setContentsMargins(
        margins(sideMargin - 6, 26, sideMargin - verticalScrollBar()->width() - focusMargin, 26));
    m_column->setSpacing(0);
    for (const auto& [role, text] :
         {std::pair(Label::Role::title, title), std::pair(Label::Role::subtitle, subtitle)}) {
        auto* label = new Label(role, text, content);
        label->setIndent(0);
        label->setContentsMargins(textIndent, 0, textIndent, role == Label::Role::title ? 4 : 0);
        m_column->addWidget(label);
    }
    m_column->addStretch(1);
}

Card& SettingsPage::addCard(const QString& heading)
{
    if (heading.isEmpty()) {
        m_column->insertSpacing(m_column->count() - 1, 16);
    } else {
        auto* label = new Label(Label::Role::heading, heading, widget());
        label->setContentsMargins(textIndent, 20, textIndent, 7);
        m_column->insertWidget(m_column->count() - 1, label);
    }
    auto* card = new Card(widget());
    card->setAccessibleName(heading);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(margins(0, 0, focusMargin, 0));
    row->addWidget(card);
    m_column->insertLayout(m_column->count() - 1, row);
    return *card;
}

void SettingsPage::addWidget(QWidget* widget, Qt::Alignment alignment)
{
    m_column->insertSpacing(m_column->count() - 1, 10);
    m_column->insertWidget(m_column->count() - 1, widget, 0, alignment);
}

Switch& SettingsPage::addSwitch(Card& card, const RowText& text, Setting<bool>& setting)
{
    auto* control = new Switch;
    control->setObjectName(setting.name());
    card.addRow(text, control);
    describe(*control, text);
    connect(control, &QAbstractButton::clicked, this, [&setting](bool isOn) { setting.set(isOn); });
    follow({setting.name()}, [control, &setting] { control->setChecked(setting()); });
    return *control;
}

void SettingsPage::previewWith(Switch& control)
{
    connect(&control, &QAbstractButton::clicked, this, [this] {
        if (m_dependencies.showPreview) {
            m_dependencies.showPreview();
        }
    });
}

template <typename T>
Slider&
SettingsPage::tieSlider(Card& card, const RowText& text, Setting<T>& setting, const Scale& scale)
{
    auto* control = new QWidget;
    auto* slider = new Slider(control);
    auto* value = new Label(Label::Role::body, {}, control);
    slider->setObjectName(setting.name());
    if (const auto& range = setting.allowed().range) {
        const auto step = [&scale](T end) {
            return qRound(static_cast<double>(end) * scale.stepsPerUnit);
        };
        slider->setRange(step(range->first), step(range->second));
    }
    slider->setPageStep(scale.leap);
    value->setObjectName(setting.name() + "Value"_L1);
    value->setFont(font());
    value->setForegroundRole(QPalette::PlaceholderText);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setWordWrap(false);
    value->setFixedWidth(fontMetrics().horizontalAdvance(u"0000 pt"_s));
    auto* row = new QHBoxLayout(control);
    row->setContentsMargins(margins(0, 0, focusMargin, 0));
    row->setSpacing(8);
    row->addWidget(slider);
    row->addWidget(value);
    control->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    card.addRow(text, control);
    describe(*slider, text);
    // What a reader is told of the value is a number; this follows it.
    slider->setAccessibleDescription(
        asSentences({scale.unit.trimmed(), slider->accessibleDescription()}));
    connect(slider, &QAbstractSlider::valueChanged, this, [&setting, scale](int step) {
        // Dividing gives the number that is meant, not one next to it.
        setting.set(static_cast<T>(step) / static_cast<T>(scale.stepsPerUnit));
    });
    follow({setting.name()}, [slider, value, &setting, scale] {
        const int step = qRound(setting() * static_cast<double>(scale.stepsPerUnit));
        const QSignalBlocker blocker(slider);
        slider->setValue(step);
        slider->update();
        value->setText(QString::number(step) + scale.unit);
    });
    return *slider;
}

Slider& SettingsPage::addSlider(Card& card,
                                const RowText& text,
                                Setting<double>& setting,
                                const Scale& scale)
{
    return tieSlider(card, text, setting, scale);
}

Slider&
SettingsPage::addSlider(Card& card, const RowText& text, Setting<int>& setting, const Scale& scale)
{
    return tieSlider(card, text, setting, scale);
}

ColorField& SettingsPage::addColor(Card& card, const RowText& text, Setting<QString>& setting)
{
    auto* field = new ColorField;
    field->setObjectName(setting.name());
    card.addRow(text, field);
    describe(*field, text);
    field->setName(text.title);
    connect(field, &ColorField::chosen, this, [&setting](const QString& hex) { setting.set(hex); });
    follow({setting.name()}, [field, &setting] { field->setHex(setting()); });
    return *field;
}

QAbstractButton& SettingsPage::addButton(Card& card,
                                         const RowText& text,
                                         const QString& buttonText,
                                         std::function<void()> clicked)
{
    auto* button = new Button(buttonText);
    card.addRow(text, button);
    describe(*button, {.title = buttonText, .help = text.help, .tooltip = text.tooltip});
    connect(button, &QAbstractButton::clicked, this, [clicked = std::move(clicked)] {
        if (clicked) {
            clicked();
        }
    });
    return *button;
}

void SettingsPage::follow(const QStringList& properties, const std::function<void()>& refresh)
{
    connect(&settings(),
            &LauncherSettings::propertyChanged,
            this,
            [properties, refresh](const QString& name) {
                if (properties.contains(name)) {
                    refresh();
                }
            });
    refresh();
}

void SettingsPage::whenBroughtBack(std::function<void()> look)
{
    m_broughtBack = std::move(look);
}

bool SettingsPage::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && m_broughtBack) {
        m_broughtBack();
    }
    return QScrollArea::event(event);
}

bool SettingsPage::eventFilter(QObject* watched, QEvent* event)
{
    const bool isHandled = QScrollArea::eventFilter(watched, event);
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        findStop();
    }
    return isHandled;
}

void SettingsPage::findStop()
{
    const QList<QWidget*> parts = widget()->findChildren<QWidget*>();
    const bool hasControl = std::ranges::any_of(parts, [this](const QWidget* part) {
        return (part->focusPolicy() & Qt::TabFocus) != 0 && part->isVisibleTo(widget())
            && part->isEnabledTo(widget());
    });
    setFocusPolicy(hasControl ? Qt::NoFocus : Qt::TabFocus);
    setAccessibleDescription(hasControl ? QString() : wholeText());
}

QString SettingsPage::wholeText() const
{
    std::multimap<int, QString> fromTheTop;
    for (const QLabel* label : widget()->findChildren<QLabel*>()) {
        if (label->isVisibleTo(widget())) {
            const QString name = label->accessibleName();
            fromTheTop.emplace(label->mapTo(widget(), QPoint()).y(),
                               name.isEmpty() ? label->text() : name);
        }
    }
    QStringList texts;
    for (const auto& [top, text] : fromTheTop) {
        texts << text;
    }
    texts.removeOne(accessibleName());
    return asSentences(texts);
}

void SettingsPage::paintEvent(QPaintEvent* event)
{
    QScrollArea::paintEvent(event);
    constexpr double cornerRadius = 16;
    constexpr int gap = 12; // From a card, which ends before the texts do.
    const QRect content = widget()->childrenRect().translated(widget()->pos());
    const QRect room
        = viewport()->rect().adjusted(focusMargin, focusMargin, -focusMargin, -focusMargin);
    QPainter painter(viewport());
    paintFocusRing(
        painter, *this, (content + margins(gap, gap, gap - focusMargin, gap)) & room, cornerRadius);
}

void SettingsPage::focusInEvent(QFocusEvent* event)
{
    QScrollArea::focusInEvent(event);
    viewport()->update();
}

void SettingsPage::focusOutEvent(QFocusEvent* event)
{
    QScrollArea::focusOutEvent(event);
    viewport()->update();
}

void SettingsPage::describe(QWidget& control, const RowText& text)
{
    control.setAccessibleName(text.title);
    if (!text.tooltip.isEmpty()) {
        // The tooltip belongs to the control.
        new HoverTooltip(m_dependencies.mainQueue, control, {.text = text.tooltip});
    }
    // Who cannot see the row is told both.
    control.setAccessibleDescription(asSentences({text.help, text.tooltip}));
}

} // namespace Tavik
