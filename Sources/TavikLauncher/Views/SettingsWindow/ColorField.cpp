// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/Pressable.h>
#include <TavikLauncher/Look/TextField.h>
#include <TavikLauncher/Settings/ColorText.h>
#include <TavikLauncher/Views/SettingsWindow/ColorField.h>
#include <TavikLauncher/Views/SettingsWindow/SwatchPopover.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QAbstractButton>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPainter>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

/// The colour itself; crossed out when the stored text is none.
class Well final : public Pressable
{
public:
    explicit Well(QWidget* parent)
        : Pressable(parent)
    {
        setFocusPolicy(Qt::StrongFocus);
        setFixedSize(44 + 2 * focusMargin, 26 + 2 * focusMargin);
    }

    void setColor(const QColor& color)
    {
        m_color = color;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr double cornerRadius = 6;
        const Look look = Look::of(*this);
        const QRectF body
            = QRectF(rect()).adjusted(focusMargin, focusMargin, -focusMargin, -focusMargin);
        const QRectF line = body.adjusted(0.5, 0.5, -0.5, -0.5);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(look.outline, 1));
        painter.setBrush(m_color.isValid() ? m_color : look.card);
        painter.drawRoundedRect(line, cornerRadius, cornerRadius);
        if (m_color.isValid()) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(withOpacity(Qt::white, 0.35), 1));
            painter.drawRoundedRect(
                line.adjusted(1, 1, -1, -1), cornerRadius - 1, cornerRadius - 1);
        } else {
            painter.setPen(QPen(look.warning, 1.5));
            painter.drawLine(line.bottomLeft() + QPointF(5, -5), line.topRight() + QPointF(-5, 5));
        }
        paintFocusRing(painter, *this, body, cornerRadius);
    }

private:
    QColor m_color;
};

/// Only what is a colour by itself has a text of its own.
QColor validColor(const QString& text)
{
    return ColorText::color(text.trimmed(), QColor());
}

} // namespace

ColorField::ColorField(QWidget* parent)
    : QWidget(parent)
    , m_entry(new TextField({}, this))
    , m_well(new Well(this))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    row->addWidget(m_entry);
    row->addWidget(m_well);
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(QFontInfo(font()).pointSizeF());
    m_entry->setFont(scaledFont(fixed, 0.95));
    m_entry->setMaxLength(12);
    m_entry->setFixedWidth(m_entry->fontMetrics().horizontalAdvance(u"#DDDDDD"_s) + 40);
    connect(m_entry, &QLineEdit::textEdited, this, &ColorField::typed);
    connect(m_entry, &QLineEdit::editingFinished, this, [this] { m_entry->setText(m_hex); });
    connect(m_well, &QAbstractButton::clicked, this, &ColorField::openSwatches);
}

void ColorField::setName(const QString& name)
{
    m_entry->setAccessibleName(name);
    m_entry->setAccessibleDescription(accessibleDescription());
    setAccessibleName({});
    setAccessibleDescription({});
    m_well->setAccessibleName(Texts::tr("%1: choose a color").arg(name));
}

void ColorField::setHex(const QString& hex)
{
    m_hex = hex;
    static_cast<Well*>(m_well)->setColor(validColor(hex));
    m_well->setAccessibleDescription(hex);
    // What is being typed stays as it is typed.
    if (!m_entry->hasFocus() || validColor(m_entry->text()) != validColor(hex)) {
        m_entry->setText(hex);
    }
}

void ColorField::typed(const QString& text)
{
    const QColor color = validColor(text);
    if (color.isValid()) {
        Q_EMIT chosen(ColorText::hexString(color));
    }
}

void ColorField::openSwatches()
{
    SwatchPopover::open(*m_well, m_hex, [this](const QString& hex) { Q_EMIT chosen(hex); });
}

} // namespace Tavik
