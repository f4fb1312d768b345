#include "ui/sets/SetDelegate.h"

#include "ui/sets/SetListModel.h"
#include "ui/theme/Metrics.h"
#include "ui/theme/Theme.h"

#include <QPainter>

namespace morvak {

namespace {

constexpr int rowHeight = 56;
constexpr int circle = 12;
constexpr int actionWidth = 88;
constexpr int actionHeight = 28;
constexpr int countWidth = 96;

}  // namespace

SetDelegate::SetDelegate(const Theme& theme, QObject* parent) : QStyledItemDelegate(parent), m_theme(theme) {}

QSize SetDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {0, rowHeight};
}

QRect SetDelegate::actionRect(const QRect& row) const
{
    const int top = row.top() + (row.height() - actionHeight) / 2;
    return {row.right() - metrics::inGroup - actionWidth, top, actionWidth, actionHeight};
}

QRect SetDelegate::countRect(const QRect& row) const
{
    return {actionRect(row).left() - metrics::betweenGroups - countWidth, row.top(), countWidth,
            row.height()};
}

void SetDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRect row = option.rect;
    if (option.state & (QStyle::State_Selected | QStyle::State_MouseOver))
        painter->fillRect(row, m_theme.color(Role::hover));
    painter->setPen(m_theme.color(Role::line));
    painter->drawLine(row.bottomLeft(), row.bottomRight());
    const bool hasFocus = (option.state & QStyle::State_HasFocus) != 0;
    if (hasFocus) {
        painter->setPen(QPen(m_theme.color(Role::accent), 2));
        painter->drawRoundedRect(QRectF(row).adjusted(1, 1, -1, -2), metrics::radius / 2,
                                 metrics::radius / 2);
    }
    paintState(*painter, row, index.data(SetListModel::ActiveRole).toBool());
    paintTexts(*painter, row, index);
    paintAction(*painter, row, index);
    painter->restore();
}

void SetDelegate::paintState(QPainter& painter, const QRect& row, bool isActive) const
{
    const QRectF area(row.left() + metrics::betweenGroups, row.center().y() - circle / 2.0 + 0.5, circle,
                      circle);
    painter.setPen(QPen(m_theme.color(isActive ? Role::success : Role::secondary), 1.5));
    painter.setBrush(isActive ? QBrush(m_theme.color(Role::success)) : QBrush(Qt::NoBrush));
    painter.drawEllipse(area);
}

void SetDelegate::paintTexts(QPainter& painter, const QRect& row, const QModelIndex& index) const
{
    const int left = row.left() + 2 * metrics::betweenGroups + circle;
    const QRect texts(left, row.top(), countRect(row).left() - metrics::inGroup - left, row.height());
    const QString description = index.data(SetListModel::DescriptionRole).toString();
    const auto line = [&](const QRect& area, TextStyle style, Role role, const QString& text, int align) {
        const QFont font = m_theme.font(style);
        painter.setFont(style == TextStyle::caption ? Theme::tabular(font) : font);
        painter.setPen(m_theme.color(role));
        const QString shown =
            painter.fontMetrics().elidedText(text.simplified(), Qt::ElideRight, area.width());
        painter.drawText(area, align | Qt::TextSingleLine, shown);
    };
    const QString headline = index.data(SetListModel::HeadlineRole).toString();
    if (description.isEmpty()) {
        line(texts, TextStyle::section, Role::text, headline, Qt::AlignVCenter);
    } else {
        const int half = row.height() / 2;
        line(texts.adjusted(0, 6, 0, -half + 4), TextStyle::section, Role::text, headline, Qt::AlignVCenter);
        line(texts.adjusted(0, half + 2, 0, -6), TextStyle::body, Role::secondary, description,
             Qt::AlignVCenter);
    }
    line(countRect(row), TextStyle::body, Role::secondary, index.data(SetListModel::CountRole).toString(),
         Qt::AlignVCenter | Qt::AlignRight);
}

void SetDelegate::paintAction(QPainter& painter, const QRect& row, const QModelIndex& index) const
{
    const QRectF area = QRectF(actionRect(row)).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool isActive = index.data(SetListModel::ActiveRole).toBool();
    QFont font = m_theme.font(isActive ? TextStyle::caption : TextStyle::body);
    font.setBold(isActive);
    painter.setFont(font);
    if (isActive) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_theme.color(Role::banner));
        const QRectF badge = area.adjusted(8, 3, -8, -3);
        painter.drawRoundedRect(badge, badge.height() / 2, badge.height() / 2);
        painter.setPen(m_theme.color(Role::onBanner));
        painter.drawText(area, Qt::AlignCenter, tr("ACTIEF"));
        return;
    }
    painter.setPen(m_theme.color(m_hoveredAction == index ? Role::accent : Role::line));
    painter.setBrush(m_theme.color(Role::card));
    painter.drawRoundedRect(area, metrics::radius, metrics::radius);
    painter.setPen(m_theme.color(Role::text));
    painter.drawText(area, Qt::AlignCenter, tr("Activeer"));
}

}  // namespace morvak
