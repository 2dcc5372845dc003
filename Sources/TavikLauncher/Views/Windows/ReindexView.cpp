// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/BusyIndicator.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/SymbolView.h>
#include <TavikLauncher/Look/WindowStyle.h>
#include <TavikLauncher/Views/Windows/ReindexView.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;
using WindowStyle::isReturn;
using WindowStyle::makeLabel;
using WindowStyle::TextRole;

namespace {

constexpr int windowWidth = 400;
constexpr int padding = 22;
constexpr double headerSymbol = 26;
constexpr double successSymbol = 44;

} // namespace

ReindexView::ReindexView(const ReindexSession::Dependencies& dependencies,
                         Actions actions,
                         QWidget* parent)
    : QWidget(parent)
    , m_session(dependencies,
                [this] {
                    if (m_actions.onCelebrate) {
                        m_actions.onCelebrate();
                    }
                })
    , m_actions(std::move(actions))
{
    auto* layout = new QVBoxLayout(this);
    // The buttons have a margin of their own, for the ring around the focused one.
    layout->setContentsMargins(
        margins(padding, padding, padding - focusMargin, padding - focusMargin));
    layout->setSpacing(14);
    layout->addLayout(makeHeader());
    m_explanation = makeExplanation();
    m_success = makeSuccess();
    // Both have the room of the larger one, so that the buttons below stay where they are.
    m_body = new QStackedLayout;
    m_body->addWidget(m_explanation);
    m_body->addWidget(m_success);
    layout->addLayout(m_body);
    layout->addLayout(makeButtons(dependencies.mainQueue));

    connect(&m_session, &ReindexSession::phaseChanged, this, &ReindexView::showPhase);
    connect(&m_session, &ReindexSession::indexedCountChanged, this, &ReindexView::showCount);
    connect(&m_session, &ReindexSession::markScaleChanged, this, [this] {
        m_mark->setScale(m_session.markScale());
    });
    showPhase();
    showCount();
}

QLayout* ReindexView::makeHeader()
{
    auto* header = new QHBoxLayout;
    header->setSpacing(12);
    header->addWidget(new SymbolView(Symbol::cycle, headerSymbol, &WindowStyle::tint, this));
    header->addWidget(
        makeLabel(Texts::tr("Reindex Apps"), {.size = 17, .weight = QFont::DemiBold}, this), 1);
    return header;
}

QWidget* ReindexView::makeExplanation()
{
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(margins(0, 0, focusMargin, 0));
    layout->setSpacing(10);
    for (const QString& paragraph :
         {Texts::tr("Tavik Launcher keeps an index of every app in your Applications folders — it "
                    "powers the ring and search."),
          Texts::tr("The index refreshes itself automatically whenever you open the ring, so you "
                    "rarely need this. Run it manually if an app you just installed isn't showing "
                    "up in search, or after moving apps between folders.")}) {
        layout->addWidget(makeLabel(paragraph, {.role = TextRole::secondary}, body));
    }
    layout->addStretch(1); // The paragraphs stay together.
    return body;
}

QWidget* ReindexView::makeSuccess()
{
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(margins(0, 0, focusMargin, 0));
    layout->setSpacing(10);
    layout->addStretch(1);
    auto* outcome = new QHBoxLayout;
    outcome->setSpacing(12);
    m_mark = new SymbolView(Symbol::checkmarkCircle, successSymbol, &WindowStyle::success, body);
    m_mark->setScale(m_session.markScale());
    m_count = makeLabel({}, {.size = 15, .weight = QFont::DemiBold}, body);
    outcome->addWidget(m_mark);
    outcome->addWidget(m_count, 1);
    layout->addLayout(outcome);
    layout->addWidget(makeLabel(Texts::tr("All set. You can verify it worked by opening the ring "
                                          "and typing the name of a recently installed app."),
                                {.role = TextRole::secondary},
                                body));
    layout->addStretch(1);
    return body;
}

QLayout* ReindexView::makeButtons(MainQueue& mainQueue)
{
    m_progress = new QWidget(this);
    auto* progress = new QHBoxLayout(m_progress);
    progress->setContentsMargins(focusMargin, 0, focusMargin, 0);
    progress->setSpacing(7);
    progress->addWidget(new BusyIndicator(mainQueue, m_progress));
    QLabel* scanning
        = makeLabel(Texts::tr("Scanning…"), {.size = 12, .role = TextRole::secondary}, m_progress);
    scanning->setWordWrap(false);
    progress->addWidget(scanning);

    m_close = WindowStyle::makeButton(Texts::tr("Close"), this);
    m_reindex = WindowStyle::makeButton(Texts::tr("Reindex Now"), this);
    connect(m_close, &QPushButton::clicked, this, [this] {
        if (m_actions.onClose) {
            m_actions.onClose();
        }
    });
    connect(m_reindex, &QPushButton::clicked, &m_session, &ReindexSession::reindexNow);
    m_close->installEventFilter(this);
    m_reindex->installEventFilter(this);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    buttons->addWidget(m_close);
    buttons->addWidget(m_progress);
    buttons->addWidget(m_reindex);
    return buttons;
}

void ReindexView::showPhase()
{
    using Phase = ReindexSession::Phase;
    const Phase phase = m_session.phase();
    // The focus is moved before its button goes, or the toolkit would pick another.
    if (phase != Phase::info) {
        m_close->setFocus();
    }
    m_body->setCurrentWidget(phase == Phase::success ? m_success : m_explanation);
    m_progress->setVisible(phase == Phase::running);
    m_reindex->setVisible(phase == Phase::info);
    m_reindex->setDefault(phase == Phase::info);
    m_close->setDefault(phase == Phase::success);
    m_mark->setScale(m_session.markScale());
    WindowStyle::fit(*this, windowWidth);
}

void ReindexView::showCount()
{
    m_count->setText(
        Texts::tr("Indexed %n apps", nullptr, static_cast<int>(m_session.indexedCount())));
}

QPushButton& ReindexView::defaultButton() const
{
    return m_session.phase() == ReindexSession::Phase::info ? *m_reindex : *m_close;
}

void ReindexView::keyPressEvent(QKeyEvent* event)
{
    const bool isEscape = event->key() == Qt::Key_Escape;
    const ReindexSession::Phase phase = m_session.phase();
    if (event->isAutoRepeat() || event->modifiers() & ~Qt::KeypadModifier) {
        QWidget::keyPressEvent(event);
    } else if (isReturn(*event) && phase != ReindexSession::Phase::running) {
        defaultButton().click();
    } else if (isEscape && phase != ReindexSession::Phase::success) {
        m_close->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

bool ReindexView::eventFilter(QObject*, QEvent* event)
{
    // Return is the default button's, whichever has the focus.
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (isReturn(*key)) {
            keyPressEvent(key);
            return true;
        }
    }
    return false;
}

void ReindexView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    defaultButton().setFocus();
}

} // namespace Tavik
