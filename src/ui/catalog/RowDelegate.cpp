#include "ui/catalog/RowDelegate.h"

#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/catalog/RowListModel.h"

#include <QPainter>

#include <utility>

namespace morvak {

namespace {

constexpr int rowHeight = 44;
constexpr int buttonHeight = 28;
constexpr int buttonPadding = 10;
constexpr int sideMargin = 12;

}  // namespace

RowDelegate::RowDelegate(const Theme& theme, QList<RowAction> actions, QObject* parent)
    : QStyledItemDelegate(parent), m_theme(theme), m_actions(std::move(actions))
{
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {0, rowHeight};
}

QRect RowDelegate::actionRect(const QRect& row, int action) const
{
    const QFontMetrics metrics(m_theme.font(TextStyle::body));
    int right = row.right() - metrics::inGroup;
    for (qsizetype at = m_actions.size() - 1; at >= 0; --at) {
        const bool showsText = m_actions[at].symbol.isEmpty();
        const int width =
            showsText ? metrics.horizontalAdvance(m_actions[at].label) + 2 * buttonPadding : buttonHeight;
        if (at == action)
            return {right - width + 1, row.top() + (row.height() - buttonHeight) / 2, width, buttonHeight};
        right -= width + metrics::inGroup / 2;
    }
    return {};
}

int RowDelegate::actionAt(const QRect& row, const QPoint& position) const
{
    for (int action = 0; action < m_actions.size(); ++action) {
        if (actionRect(row, action).contains(position))
            return action;
    }
    return -1;
}

QRect RowDelegate::textRect(const QRect& row) const
{
    QRect texts = row.adjusted(sideMargin, 0, -sideMargin, 0);
    if (!m_actions.isEmpty())
        texts.setRight(actionRect(row, 0).left() - metrics::inGroup);
    return texts;
}

bool RowDelegate::isCut(const QRect& row, const QModelIndex& index) const
{
    const int width = textRect(row).width();
    const auto cut = [this, width](TextStyle style, const QString& text) {
        return QFontMetrics(m_theme.font(style)).horizontalAdvance(text.simplified()) > width;
    };
    return cut(TextStyle::body, index.data().toString()) ||
           cut(TextStyle::caption, index.data(RowListModel::DetailRole).toString());
}

void RowDelegate::setHovered(const QModelIndex& index, int action)
{
    m_hoveredRow = index;
    m_hoveredAction = action;
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRect row = option.rect;
    if (option.state & (QStyle::State_Selected | QStyle::State_MouseOver))
        painter->fillRect(row, m_theme.color(Role::hover));
    painter->setPen(m_theme.color(Role::line));
    painter->drawLine(row.bottomLeft(), row.bottomRight());
    if (option.state & QStyle::State_HasFocus) {
        painter->setPen(QPen(m_theme.color(Role::accent), 2));
        painter->drawRoundedRect(QRectF(row).adjusted(1, 1, -1, -2), metrics::radius / 2,
                                 metrics::radius / 2);
    }
    paintTexts(*painter, row, index);
    for (int action = 0; action < m_actions.size(); ++action)
        paintAction(*painter, actionRect(row, action), m_actions[action],
                    m_hoveredRow == index && m_hoveredAction == action);
    painter->restore();
}

void RowDelegate::paintTexts(QPainter& painter, const QRect& row, const QModelIndex& index) const
{
    const auto line = [&](const QRect& area, TextStyle style, Role role, const QString& text) {
        painter.setFont(m_theme.font(style));
        painter.setPen(m_theme.color(role));
        painter.drawText(area, Qt::AlignVCenter | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(text.simplified(), Qt::ElideRight, area.width()));
    };
    const QRect texts = textRect(row);
    const QString detail = index.data(RowListModel::DetailRole).toString();
    if (detail.isEmpty())
        return line(texts, TextStyle::body, Role::text, index.data().toString());
    const int half = row.height() / 2;
    line(texts.adjusted(0, 4, 0, -half + 1), TextStyle::body, Role::text, index.data().toString());
    line(texts.adjusted(0, half + 1, 0, -5), TextStyle::caption, Role::secondary, detail);
}

void RowDelegate::paintAction(QPainter& painter, const QRect& area, const RowAction& action,
                              bool isHovered) const
{
    if (isHovered) {
        painter.setPen(m_theme.color(Role::line));
        painter.setBrush(m_theme.color(Role::card));
        painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), metrics::radius,
                                metrics::radius);
    }
    if (!action.symbol.isEmpty()) {
        QRect icon(0, 0, metrics::smallIcon, metrics::smallIcon);
        icon.moveCenter(area.center());
        m_theme.icons().icon(action.symbol, action.role).paint(&painter, icon);
        return;
    }
    painter.setFont(m_theme.font(TextStyle::body));
    painter.setPen(m_theme.color(action.role));
    painter.drawText(area, Qt::AlignCenter, action.label);
}

}  // namespace morvak
