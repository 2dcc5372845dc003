// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/AppIconView.h>
#include <TavikLauncher/Look/Keycaps.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/SymbolView.h>
#include <TavikLauncher/Look/WindowStyle.h>
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Settings/ShortcutWords.h>
#include <TavikLauncher/Views/Windows/OnboardingTour.h>
#include <TavikLauncher/Views/Windows/OnboardingView.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;
using WindowStyle::makeLabel;
using WindowStyle::TextRole;

namespace {

constexpr int windowWidth = 560;
constexpr int padding = 26;
constexpr int iconSide = 60;
constexpr int headerGap = 16;
constexpr int rowSymbol = 24;
constexpr int mostKeyText = 24; // A shortcut may have been given any name.

/// The shortcut's name is the user's own text. A label breaks its lines between words only, and
/// cuts off a longer word than it has room for.
QString breakable(QString text)
{
    static const QRegularExpression longRun(u"(\\S{30})(?=\\S)"_s);
    return text.replace(longRun, u"\\1\u200B"_s);
}

} // namespace

OnboardingView::OnboardingView(const HotKeyConfig& hotKey, Actions actions, QWidget* parent)
    : QWidget(parent)
    , m_actions(std::move(actions))
{
    auto* layout = new QVBoxLayout(this);
    // The buttons have a margin of their own, for the ring around the focused one.
    layout->setContentsMargins(margins(padding, padding - 4, padding - focusMargin, padding - 6));
    layout->setSpacing(0);
    layout->addLayout(makeHeader());
    layout->addSpacing(14);
    bool isFirst = true;
    for (const TourRow& row : tourRows(hotKey)) {
        layout->addLayout(makeRow(row, isFirst ? ShortcutWords::keycaps(hotKey) : QStringList()));
        layout->addSpacing(9);
        isFirst = false;
    }
    layout->addStretch(1);
    layout->addSpacing(6);
    layout->addLayout(makeButtons(hotKey));
    WindowStyle::fit(*this, windowWidth);
}

QLayout* OnboardingView::makeHeader()
{
    auto* texts = new QVBoxLayout;
    texts->setSpacing(3);
    texts->addStretch(1);
    texts->addWidget(makeLabel(u"Tavik Launcher"_s, {.size = 25, .weight = QFont::Bold}, this));
    texts->addWidget(
        makeLabel(Texts::tr("A fast radial launcher centered wherever your pointer is."),
                  {.size = 14, .role = TextRole::secondary},
                  this));
    texts->addStretch(1);

    auto* header = new QHBoxLayout;
    header->setSpacing(headerGap);
    header->addWidget(new AppIconView(iconSide, this));
    header->addLayout(texts, 1);
    return header;
}

QLayout* OnboardingView::makeRow(const TourRow& row, const QStringList& keys)
{
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    QLabel* title = makeLabel(row.title, {.size = 14, .weight = QFont::DemiBold}, this);
    if (keys.isEmpty() || keys.join(QString()).size() > mostKeyText) {
        texts->addWidget(title);
    } else {
        auto* head = new QHBoxLayout;
        title->setWordWrap(false);
        head->addWidget(title);
        head->addSpacing(10);
        head->addWidget(new Keycaps(keys, this));
        head->addStretch(1);
        texts->addLayout(head);
    }
    texts->addWidget(makeLabel(breakable(row.detail), {.role = TextRole::secondary}, this));

    auto* symbol = new SymbolView(row.symbol, rowSymbol, &WindowStyle::tint, this);
    auto* layout = new QHBoxLayout;
    // The symbols stand on the icon's axis.
    constexpr int aside = (iconSide - rowSymbol) / 2;
    layout->setContentsMargins(margins(aside, 0, focusMargin, 0));
    layout->setSpacing(aside + headerGap);
    layout->addWidget(symbol, 0, Qt::AlignTop);
    layout->addLayout(texts, 1);
    return layout;
}

QLayout* OnboardingView::makeButtons(const HotKeyConfig& hotKey)
{
    auto* openSettings = WindowStyle::makeButton(Texts::tr("Open Settings"), this);
    m_start = WindowStyle::makeButton(Texts::tr("Start Using Tavik"), this);
    m_start->setDefault(true);
    connect(openSettings, &QPushButton::clicked, this, [this] {
        if (m_actions.onOpenSettings) {
            m_actions.onOpenSettings();
        }
    });
    connect(m_start, &QPushButton::clicked, this, [this] {
        if (m_actions.onFinish) {
            m_actions.onFinish();
        }
    });
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    QLabel* note = makeLabel(
        ShortcutWords::coexistence(hotKey), {.size = 11, .role = TextRole::secondary}, this);
    auto* foot = new QVBoxLayout;
    foot->setSpacing(8);
    // Beside the buttons, where large texts leave room for more than a word in a line.
    constexpr double largest = 1.2;
    if (textScale() > largest) {
        foot->addWidget(note);
        buttons->addStretch(1);
    } else {
        buttons->addWidget(note, 1);
    }
    buttons->addWidget(openSettings);
    buttons->addWidget(m_start);
    foot->addLayout(buttons);
    return foot;
}

void OnboardingView::keyPressEvent(QKeyEvent* event)
{
    if (WindowStyle::isReturn(*event) && !event->isAutoRepeat()
        && !(event->modifiers() & ~Qt::KeypadModifier)) {
        m_start->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void OnboardingView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_start->setFocus();
}

} // namespace Tavik
