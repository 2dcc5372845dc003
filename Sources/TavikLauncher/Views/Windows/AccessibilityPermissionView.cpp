// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/CrossFade.h>
#include <TavikLauncher/Look/SymbolView.h>
#include <TavikLauncher/Look/WindowStyle.h>
#include <TavikLauncher/Views/Windows/AccessibilityPermissionView.h>
#include <TavikLauncher/Views/Windows/SettingsDiagram.h>
#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QShowEvent>
#include <QVBoxLayout>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int windowWidth = 440;
constexpr int margin = 28;
constexpr int badgeSide = 72;
constexpr double badgeSymbol = 38;
constexpr double badgeOpacity = 0.12;
constexpr int buttonIcon = 16;

QColor warning(const QPalette& palette)
{
    return WindowStyle::isDark(palette) ? QColor(0xFF, 0x9F, 0x0A) : QColor(0xC9, 0x6A, 0x00);
}

} // namespace

/// The large symbol in a circle of its own colour.
class AccessibilityPermissionView::Badge final : public QWidget
{
public:
    explicit Badge(QWidget* parent)
        : QWidget(parent)
    {
        setFixedSize(badgeSide, badgeSide);
    }

    void setGranted(bool isGranted)
    {
        m_isGranted = isGranted;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor color
            = m_isGranted ? WindowStyle::success(palette()) : WindowStyle::tint(palette());
        QColor disc = color;
        disc.setAlphaF(static_cast<float>(badgeOpacity));
        painter.setPen(Qt::NoPen);
        painter.setBrush(disc);
        painter.drawEllipse(rect());
        QRectF square(0, 0, badgeSymbol, badgeSymbol);
        square.moveCenter(QRectF(rect()).center());
        paintSymbol(
            painter, m_isGranted ? Symbol::checkmarkCircle : Symbol::keyboardBadge, square, color);
    }

private:
    bool m_isGranted = false;
};

/// A hairline between the explanation and the controls, in the colours of the moment.
class AccessibilityPermissionView::Divider final : public QWidget
{
public:
    explicit Divider(QWidget* parent)
        : QWidget(parent)
    {
        setFixedHeight(1);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(rect(), WindowStyle::hairline(palette()));
    }
};

AccessibilityPermissionView::AccessibilityPermissionView(
    const Dependencies& dependencies,
    AccessibilityPermissionSession::Actions actions,
    QWidget* parent)
    : QWidget(parent)
    , m_dependencies(dependencies)
    , m_session(dependencies.permission, dependencies.mainQueue, std::move(actions))
{
    setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, margin, 0, margin - 4);
    layout->setSpacing(0);
    layout->addStretch(0); // What stands alone stands in the middle, see `showPhase`.
    layout->addLayout(makeHead());

    // Around the drawing, and in its place when it is gone.
    constexpr int diagramRoom = 24;
    layout->addStretch(1);
    m_diagram = new SettingsDiagram(this);
    m_diagram->setContentsMargins(0, 0, 0, 0);
    layout->addSpacing(diagramRoom);
    layout->addWidget(m_diagram, 0, Qt::AlignHCenter);
    layout->addSpacing(diagramRoom);
    layout->addStretch(1);

    m_divider = new Divider(this);
    layout->addWidget(m_divider);
    layout->addLayout(makeControls());

    connect(&m_session,
            &AccessibilityPermissionSession::changed,
            this,
            &AccessibilityPermissionView::changePhase);
    showPhase();
}

QLayout* AccessibilityPermissionView::makeHead()
{
    auto* head = new QVBoxLayout;
    head->setContentsMargins(margin, 0, margin, 0);
    head->setSpacing(0);
    m_badge = new Badge(this);
    head->addWidget(m_badge, 0, Qt::AlignHCenter);
    head->addSpacing(16);
    m_title = WindowStyle::makeLabel({}, {.size = 20, .weight = QFont::DemiBold}, this);
    m_title->setAlignment(Qt::AlignHCenter);
    head->addWidget(m_title);
    head->addSpacing(8);
    m_text = WindowStyle::makeLabel({}, {.role = WindowStyle::TextRole::secondary}, this);
    m_text->setAlignment(Qt::AlignHCenter);
    head->addWidget(m_text);
    for (QLabel** note : {&m_limit, &m_remedy}) {
        head->addSpacing(8);
        *note = WindowStyle::makeLabel({}, {.size = 12}, this);
        (*note)->setAlignment(Qt::AlignHCenter);
        head->addWidget(*note);
    }
    // There may be a command in it.
    m_remedy->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return head;
}

QLayout* AccessibilityPermissionView::makeControls()
{
    using Session = AccessibilityPermissionSession;
    auto* controls = new QVBoxLayout;
    controls->setContentsMargins(margin, 18, margin, 0);
    controls->setSpacing(9);
    m_instruction = WindowStyle::makeLabel(
        Texts::tr("If a permission prompt appeared, click Allow. Otherwise open Settings and "
                  "enable the toggle next to Tavik Launcher."),
        {.size = 12, .role = WindowStyle::TextRole::secondary},
        this);
    m_instruction->setAlignment(Qt::AlignHCenter);
    controls->addWidget(m_instruction);

    m_hint = new QWidget(this);
    auto* hint = new QHBoxLayout(m_hint);
    hint->setContentsMargins(0, 0, 0, 0);
    hint->setSpacing(8);
    hint->addWidget(new SymbolView(Symbol::warningTriangle, buttonIcon, &warning, m_hint));
    hint->addWidget(WindowStyle::makeLabel(Texts::tr("Not enabled yet — flip the toggle next to "
                                                     "Tavik Launcher in Accessibility settings."),
                                           {.size = 12},
                                           m_hint),
                    1);
    controls->addWidget(m_hint);

    const auto make = [this](const QString& text) {
        return WindowStyle::makeButton(text, this);
    };
    m_enable = WindowStyle::makeProminentButton(Texts::tr("Enable Accessibility Access"), this);
    m_openSettings = make(Texts::tr("Open Accessibility Settings"));
    m_done = make(Texts::tr("Done — I've Enabled It"));
    m_skip = make(Texts::tr("Skip for Now"));
    tie(*m_enable, &Session::enableAccess);
    tie(*m_openSettings, &Session::openSettings);
    tie(*m_done, &Session::done);
    tie(*m_skip, &Session::skip);
    m_skip->setFlat(true);
    for (Button* button : {m_enable, m_openSettings, m_done, m_skip}) {
        controls->addWidget(button);
    }
    m_enable->setSymbol(Symbol::keyboardBadge);
    return controls;
}

void AccessibilityPermissionView::tie(Button& button,
                                      void (AccessibilityPermissionSession::*action)())
{
    button.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&button, &Button::clicked, &m_session, action);
}

bool AccessibilityPermissionView::givesCommand() const
{
    return !m_session.obstacle().hasSettings || m_session.hasCopiedCommand();
}

void AccessibilityPermissionView::changePhase()
{
    if (!m_dependencies.appearance.reducesMotion()) {
        CrossFade::begin(*this, m_dependencies.mainQueue);
    }
    showPhase();
}

void AccessibilityPermissionView::showPhase()
{
    using Phase = AccessibilityPermissionSession::Phase;
    const Phase phase = m_session.phase();
    const bool isGranted = phase == Phase::granted;
    m_badge->setGranted(isGranted);
    m_divider->setVisible(!isGranted);
    constexpr int asMuchAsBelow = 2;
    static_cast<QVBoxLayout*>(layout())->setStretch(0, isGranted ? asMuchAsBelow : 0);
    m_title->setText(isGranted ? Texts::tr("Hotkey Is Active")
                               : Texts::tr("Allow Accessibility Access"));
    m_text->setText(
        isGranted ? Texts::tr(
            "The global hotkey is now working. Tavik Launcher will appear over any app.")
                  : Texts::tr("Tavik Launcher needs Accessibility permission so the hotkey works "
                              "when other apps are in the foreground."));
    const AccessibilityPermission::Obstacle& obstacle = m_session.obstacle();
    m_limit->setText(obstacle.limit);
    m_remedy->setText(obstacle.remedy);
    m_limit->setVisible(!isGranted && !obstacle.limit.isEmpty());
    m_remedy->setVisible(phase == Phase::waitingForUser && !obstacle.remedy.isEmpty());
    m_diagram->setVisible(phase == Phase::prompt);
    m_enable->setVisible(phase == Phase::prompt);
    m_instruction->setVisible(phase == Phase::waitingForUser);
    m_openSettings->setVisible(phase == Phase::waitingForUser);
    m_openSettings->setText(m_session.hasCopiedCommand() ? Texts::tr("Command Copied")
                                : givesCommand()         ? Texts::tr("Copy the Command")
                                                 : Texts::tr("Open Accessibility Settings"));
    m_openSettings->setSymbol(givesCommand() ? std::nullopt : std::optional(Symbol::arrowSquare));
    m_done->setVisible(phase == Phase::waitingForUser);
    m_skip->setVisible(phase == Phase::waitingForUser);
    m_hint->setVisible(phase == Phase::waitingForUser && m_session.showsNotEnabledHint());
    if (Button* button = defaultButton()) {
        button->setDefault(true);
        button->setFocus();
    } else {
        setFocus();
    }
    WindowStyle::fit(*this, windowWidth);
}

Button* AccessibilityPermissionView::defaultButton() const
{
    using Phase = AccessibilityPermissionSession::Phase;
    switch (m_session.phase()) {
    case Phase::prompt:
        return m_enable;
    case Phase::waitingForUser:
        return m_openSettings;
    case Phase::granted:
        break;
    }
    return nullptr;
}

void AccessibilityPermissionView::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = WindowStyle::isReturn(*event);
    Button* button = defaultButton();
    if (event->isAutoRepeat()) {
        QWidget::keyPressEvent(event);
    } else if (isReturn && button) {
        button->click();
    } else if (isReturn || event->key() == Qt::Key_Escape) {
        m_session.skip();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void AccessibilityPermissionView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        m_session.appear();
    }
}

void AccessibilityPermissionView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        m_session.disappear();
    }
}

} // namespace Tavik
