// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Views/SettingsWindow/FindingRow.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QRegularExpression>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int symbolSide = 18;
constexpr int padding = 16;
constexpr int symbolGap = 12;
constexpr int lowestRow = 54;

/// The line with places to wrap at where it would have none for long, as in a folder's name. For
/// the eye only.
QString wrappable(QString line)
{
    static const QRegularExpression longRun(u"([^ /]{16})"_s);
    return line.replace(longRun, u"\\1\u200b"_s);
}

} // namespace

FindingRow::FindingRow(QWidget* parent)
    : QWidget(parent)
    , m_name(new Label(Label::Role::body, {}, this))
    , m_mechanism(new Label(Label::Role::help, {}, this))
    , m_advice(new Label(Label::Role::help, {}, this))
    , m_line(new Label(Label::Role::help, {}, this))
    , m_button(new Button(QString(), this))
{
    m_advice->setForegroundRole(QPalette::WindowText);
    m_line->setForegroundRole(QPalette::WindowText);
    QFont fixed = m_line->font();
    fixed.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    m_line->setFont(fixed);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->setContentsMargins(0, 3, 0, 3);
    texts->addStretch();
    for (Label* label : {m_name, m_mechanism, m_advice, m_line}) {
        texts->addWidget(label);
    }
    texts->addStretch();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(margins(padding, 8, padding - focusMargin, 8));
    row->setSpacing(padding);
    row->addSpacing(symbolSide + symbolGap);
    row->addLayout(texts, 1);
    row->addWidget(m_button, 0, Qt::AlignVCenter);
    setMinimumHeight(lowestRow);
    connect(m_button, &QAbstractButton::clicked, this, &FindingRow::press);
}

void FindingRow::setFinding(const DesktopCheck::Finding& finding)
{
    m_finding = finding;
    m_name->setText(finding.name);
    m_name->setAccessibleName(
        (finding.isGood() ? Texts::tr("%1: works") : Texts::tr("%1: needs your attention"))
            .arg(finding.name));
    for (const auto& [label, text] : {std::pair(m_mechanism, finding.mechanism),
                                      std::pair(m_advice, finding.advice),
                                      std::pair(m_line, wrappable(finding.line))}) {
        label->setText(text);
        label->setVisible(!text.isEmpty());
    }
    m_line->setAccessibleName(finding.line);
    const bool repairs = finding.repair != DesktopCheck::Repair::none;
    nameButton(repairs ? DesktopCheck::nameOf(finding.repair) : Texts::tr("Copy Line"));
    m_button->setVisible(repairs || !finding.line.isEmpty());
    update();
}

void FindingRow::nameButton(const QString& text)
{
    m_button->setText(text);
    m_button->setAccessibleName(u"%1: %2"_s.arg(text, m_finding.name));
    m_button->setAccessibleDescription(m_finding.advice);
}

void FindingRow::press()
{
    if (m_finding.repair != DesktopCheck::Repair::none) {
        Q_EMIT repairWanted(m_finding.repair);
        return;
    }
    QGuiApplication::clipboard()->setText(m_finding.line);
    nameButton(Texts::tr("Copied"));
}

void FindingRow::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    const bool isGood = m_finding.isGood();
    QPainter painter(this);
    // Beside the name, however much stands below it.
    const double middle = m_name->geometry().center().y() + 0.5;
    const QRectF place(padding, middle - symbolSide / 2.0, symbolSide, symbolSide);
    paintSymbol(painter,
                isGood ? LineSymbol::check : LineSymbol::warning,
                placed(*this, place, rect()),
                isGood ? look.success : look.warning);
}

} // namespace Tavik
