// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/LineSymbol.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/ScrollBar.h>
#include <TavikLauncher/Views/SettingsWindow/AppListModel.h>
#include <TavikLauncher/Views/SettingsWindow/AppListView.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSide = 28;
constexpr int padding = 16;
constexpr int mostRowsShown = 8;

int rowHeight(const QFontMetrics& metrics)
{
    return std::max(metrics.height() * 2 + 8, iconSide + 12);
}

class AppRowDelegate final : public QStyledItemDelegate
{
public:
    explicit AppRowDelegate(AppListView& view)
        : QStyledItemDelegate(&view)
        , m_view(view)
    { }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex&) const override
    {
        return {0, rowHeight(option.fontMetrics)};
    }

    void paint(QPainter* painter,
               const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const Look look = Look::of(m_view);
        const QRectF row(option.rect);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (index.row() > 0) {
            painter->fillRect(QRectF(row.left(), row.top(), row.width(), 1), look.rowLine);
        }
        paintBackground(*painter, option, look);
        paintIcon(*painter, row, index);
        paintTexts(*painter, row, index, look);
        const bool isPick = m_view.form() == AppListView::Form::pick;
        const bool isTaken = index.data(AppListModel::isTakenRole).toBool();
        constexpr double glyph = 16;
        paintSymbol(
            *painter,
            isTaken      ? LineSymbol::check
                : isPick ? LineSymbol::plus
                         : LineSymbol::grip,
            placed(
                m_view,
                QRectF(row.right() - padding - glyph, row.center().y() - glyph / 2, glyph, glyph),
                row),
            isPick && !isTaken ? look.accent : withOpacity(look.secondaryText, 0.7));
        painter->restore();
    }

private:
    void
    paintBackground(QPainter& painter, const QStyleOptionViewItem& option, const Look& look) const
    {
        constexpr double inset = 5;
        constexpr double cornerRadius = 7;
        const QRectF body = QRectF(option.rect).adjusted(inset, 4, -inset, -3);
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
        if (isSelected || isHovered) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(isSelected ? withOpacity(look.accent, look.isDark ? 0.28 : 0.14)
                                        : withOpacity(look.text, 0.05));
            painter.drawRoundedRect(body, cornerRadius, cornerRadius);
        }
        if (option.state.testFlag(QStyle::State_HasFocus) && showsFocus(m_view)) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(look.accent, 2));
            painter.drawRoundedRect(body, cornerRadius, cornerRadius);
        }
    }

    void paintIcon(QPainter& painter, const QRectF& row, const QModelIndex& index) const
    {
        const double scale = m_view.devicePixelRatioF();
        const AppIcon icon{index.data(AppListModel::iconSourceRole).toString()};
        QImage image = m_view.icons().image(icon, qRound(iconSide * scale), scale);
        if (image.isNull()) {
            return;
        }
        const bool isMissing = index.data(AppListModel::isMissingRole).toBool();
        const QRectF place(
            row.left() + padding, row.center().y() - iconSide / 2.0, iconSide, iconSide);
        painter.setOpacity(isMissing ? 0.35 : 1);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(placed(m_view, place, row), image);
        painter.setOpacity(1);
    }

    void paintTexts(QPainter& painter,
                    const QRectF& row,
                    const QModelIndex& index,
                    const Look& look) const
    {
        const bool isMissing = index.data(AppListModel::isMissingRole).toBool();
        const QFont nameFont = scaledFont(m_view.font(), 1, QFont::Medium);
        const QFont pathFont = scaledFont(m_view.font(), 0.86);
        const double left = row.left() + padding + iconSide + 12;
        const double width = row.right() - padding - 16 - 12 - left;
        const double lineHeight = QFontMetricsF(nameFont).height();
        const QString note = index.data(AppListModel::noteRole).toString();
        const double height = lineHeight + (note.isEmpty() ? 0 : QFontMetricsF(pathFont).height());
        const double top = row.center().y() - height / 2;
        const auto line
            = [&](const QFont& font, const QString& text, double y, Qt::TextElideMode mode) {
                  const QFontMetricsF metrics(font);
                  painter.setFont(font);
                  painter.drawText(placed(m_view, QRectF(left, y, width, metrics.height()), row),
                                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                                   metrics.elidedText(text, mode, width));
              };
        painter.setPen(isMissing ? look.secondaryText : look.text);
        line(nameFont, index.data(Qt::DisplayRole).toString(), top, Qt::ElideRight);
        if (!note.isEmpty()) {
            painter.setPen(isMissing ? look.warning : look.secondaryText);
            line(pathFont, note, top + lineHeight, Qt::ElideMiddle);
        }
    }

    AppListView& m_view;
};

} // namespace

AppListView::AppListView(AppIconCache& icons, Options options, QWidget* parent)
    : QListView(parent)
    , m_icons(icons)
    , m_options(std::move(options))
{
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    setMouseTracking(true);
    setVerticalScrollBar(new ScrollBar(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setEditTriggers(NoEditTriggers);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setItemDelegate(new AppRowDelegate(*this));
    viewport()->setAutoFillBackground(false);
    connect(&icons, &AppIconCache::imageReady, this, [this] { viewport()->update(); });
    connect(this, &QListView::clicked, this, [this](const QModelIndex& index) {
        if (form() == Form::pick) {
            Q_EMIT picked(index.row());
        }
    });
}

void AppListView::setModel(QAbstractItemModel* model)
{
    QListView::setModel(model);
    const auto resize = [this] {
        updateGeometry();
    };
    connect(model, &QAbstractItemModel::modelReset, this, resize);
    updateGeometry();
}

QSize AppListView::sizeHint() const
{
    const int count = model() ? model()->rowCount() : 0;
    const int rows = std::clamp(count, 1, mostRowsShown);
    return {200, rows * rowHeight(fontMetrics()) + (count == 0 ? 8 : 2)};
}

void AppListView::focusInEvent(QFocusEvent* event)
{
    QListView::focusInEvent(event);
    if (!currentIndex().isValid() && model() && model()->rowCount() > 0) {
        setCurrentIndex(model()->index(0, 0));
    }
}

void AppListView::keyPressEvent(QKeyEvent* event)
{
    const int row = currentIndex().row();
    const bool isUp = event->key() == Qt::Key_Up;
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (form() == Form::pick) {
        if (isReturn && row >= 0) {
            Q_EMIT picked(row);
            return;
        }
    } else if (event->key() == Qt::Key_Escape && m_isDragging) {
        m_isDragging = false;
        Q_EMIT dragCancelled(row, std::exchange(m_dragOrigin, -1));
        return;
    } else if (event->modifiers() == Qt::AltModifier && (isUp || event->key() == Qt::Key_Down)) {
        const int target = isUp ? row - 1 : row + 1;
        if (row >= 0 && target >= 0 && target < model()->rowCount()) {
            Q_EMIT moveRequested(row, target);
        }
        return;
    } else if (row >= 0 && (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)) {
        Q_EMIT removeRequested(row);
        return;
    }
    QListView::keyPressEvent(event);
}

void AppListView::mousePressEvent(QMouseEvent* event)
{
    QListView::mousePressEvent(event);
    if (event->button() == Qt::LeftButton && form() == Form::reorder) {
        m_pressedAt = event->position().toPoint();
        m_dragOrigin = indexAt(m_pressedAt).row();
        m_isDragging = false;
    }
}

void AppListView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragOrigin < 0) {
        QListView::mouseMoveEvent(event);
        return;
    }
    const QPoint position = event->position().toPoint();
    if ((position - m_pressedAt).manhattanLength() >= QApplication::startDragDistance()) {
        m_isDragging = true;
        viewport()->setCursor(Qt::ClosedHandCursor);
    }
    if (m_isDragging) {
        dragTo(position);
    }
}

void AppListView::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragOrigin = -1;
    m_isDragging = false;
    viewport()->unsetCursor();
    QListView::mouseReleaseEvent(event);
}

/// The dragged row is always the current one; it goes to where the pointer is, the list follows.
void AppListView::dragTo(const QPoint& position)
{
    const int last = model()->rowCount() - 1;
    const int height = rowHeight(fontMetrics());
    const int above = position.y() + verticalScrollBar()->value();
    const int target = std::clamp(above < 0 ? 0 : above / height, 0, last);
    const int row = currentIndex().row();
    if (row >= 0 && target != row) {
        Q_EMIT moveRequested(row, target);
        scrollTo(currentIndex());
    }
}

void AppListView::paintEvent(QPaintEvent* event)
{
    QListView::paintEvent(event);
    if (!model() || model()->rowCount() == 0) {
        QPainter painter(viewport());
        painter.setPen(Look::of(*this).secondaryText);
        painter.drawText(viewport()->rect().adjusted(padding, 0, -padding, 0),
                         Qt::AlignCenter | Qt::TextWordWrap,
                         m_options.placeholder);
    }
}

} // namespace Tavik
