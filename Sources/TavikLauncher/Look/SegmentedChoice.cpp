// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/Pressable.h>
#include <TavikLauncher/Look/SegmentedChoice.h>

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

namespace Tavik {

namespace {

constexpr double cornerRadius = 6;

class Segment final : public Pressable
{
public:
    explicit Segment(const QString& title, QWidget* parent)
        : Pressable(parent)
    {
        setText(title);
        setCheckable(true);
        setAutoExclusive(true);
    }

    [[nodiscard]] QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(text()) + 28, fontMetrics().height() + 10};
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Look look = Look::of(*this);
        const QRectF body = QRectF(rect()).adjusted(2, 2, -2, -2);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (isChecked()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(withOpacity(Qt::black, 0.1));
            painter.drawRoundedRect(body.translated(0, 0.8), cornerRadius - 1, cornerRadius - 1);
            painter.setBrush(look.isContrast   ? look.accent
                                 : look.isDark ? look.buttonPressed.lighter(115)
                                               : look.knob);
            painter.drawRoundedRect(body, cornerRadius - 1, cornerRadius - 1);
        }
        painter.setOpacity(isEnabled() ? 1 : 0.5);
        painter.setPen(look.isContrast && isChecked() ? look.onAccent : look.text);
        painter.drawText(body, Qt::AlignCenter, text());
        painter.setOpacity(1);
        // The ring stays inside, as the segments touch each other.
        constexpr double inset = focusMargin - 1;
        paintFocusRing(
            painter, *this, body.adjusted(inset, inset, -inset, -inset), cornerRadius - inset);
    }
};

} // namespace

SegmentedChoice::SegmentedChoice(const QStringList& titles, QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    // In line with the controls whose focus rings reach beyond them.
    row->setContentsMargins(margins(0, 0, focusMargin, 0));
    row->setSpacing(0);
    for (int position = 0; position < titles.size(); ++position) {
        auto* segment = new Segment(titles.at(position), this);
        row->addWidget(segment);
        m_segments.append(segment);
        connect(segment, &QAbstractButton::clicked, this, [this, position] {
            Q_EMIT chosen(position);
        });
    }
}

int SegmentedChoice::current() const
{
    const auto checked = std::ranges::find_if(m_segments, &QAbstractButton::isChecked);
    return checked == m_segments.end() ? -1 : static_cast<int>(checked - m_segments.begin());
}

void SegmentedChoice::setName(const QString& name)
{
    setAccessibleName(name);
    for (QAbstractButton* segment : m_segments) {
        segment->setAccessibleName(name + QStringLiteral(": ") + segment->text());
    }
}

void SegmentedChoice::setCurrent(int position)
{
    for (int i = 0; i < m_segments.size(); ++i) {
        QAbstractButton* segment = m_segments.at(i);
        // An exclusive button cannot be switched off by itself.
        segment->setAutoExclusive(false);
        segment->setChecked(i == position);
        segment->setAutoExclusive(true);
    }
    stopTabAtChosen(m_segments);
}

void SegmentedChoice::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : 0.6);
    painter.setPen(QPen(look.outline, 1));
    painter.setBrush(look.track);
    painter.drawRoundedRect(QRectF(layout()->contentsRect()).adjusted(0.5, 0.5, -0.5, -0.5),
                            cornerRadius + 1,
                            cornerRadius + 1);
}

} // namespace Tavik
