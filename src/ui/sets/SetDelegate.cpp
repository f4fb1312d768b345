#include "ui/sets/SetDelegate.h"

#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/sets/SetListModel.h"

#include <QPainter>

namespace morvak {

namespace {

void paintState(QPainter& painter, const QRect& area, bool isActive, const Theme& theme)
{
    painter.setPen(QPen(theme.color(isActive ? Role::success : Role::secondary), 1.5));
    painter.setBrush(isActive ? QBrush(theme.color(Role::success)) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5));
}

void paintLine(QPainter& painter, const QRect& area, const QString& text, Qt::Alignment side = Qt::AlignLeft)
{
    const QString shown = painter.fontMetrics().elidedText(text.simplified(), Qt::ElideRight, area.width());
    painter.drawText(area, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
}

}  // namespace

SetDelegate::SetDelegate(const Theme& theme, QObject* parent) : QStyledItemDelegate(parent), m_theme(theme) {}

QSize SetDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {0, SetRow::height};
}

SetRow SetDelegate::rowAt(const QRect& area, const QModelIndex& index)
{
    return {area, index.data(SetListModel::ActiveRole).toBool()};
}

QString SetDelegate::cutTexts(const QRect& area, const QModelIndex& index) const
{
    const int room = rowAt(area, index).texts().width();
    const auto isCut = [&](TextStyle style, const QString& text) {
        return QFontMetrics(m_theme.font(style)).horizontalAdvance(text.simplified()) > room;
    };
    const QString headline = index.data(SetListModel::HeadlineRole).toString();
    const QString description = index.data(SetListModel::DescriptionRole).toString();
    if (!isCut(TextStyle::section, headline) && !isCut(TextStyle::body, description))
        return {};
    return description.isEmpty() ? headline : headline + u'\n' + description;
}

void SetDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const SetRow row = rowAt(option.rect, index);
    if (option.state & (QStyle::State_Selected | QStyle::State_MouseOver))
        painter->fillRect(option.rect, m_theme.color(Role::hover));
    painter->setPen(m_theme.color(Role::line));
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    const bool hasFocus = (option.state & QStyle::State_HasFocus) != 0;
    if (hasFocus && chosen.row != index) {
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(m_theme.color(Role::accent), 2));
        painter->drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -2), metrics::radius / 2,
                                 metrics::radius / 2);
    }
    const bool isActive = !row.offers(SetRowAction::activate);
    paintState(*painter, row.circle(), isActive, m_theme);
    paintTexts(*painter, row, index);
    if (isActive)
        paintBadge(*painter, row.badge());
    for (const SetRowAction action : SetRow::actions) {
        if (row.offers(action))
            paintAction(*painter, row, action, index);
    }
    painter->restore();
}

void SetDelegate::paintTexts(QPainter& painter, const SetRow& row, const QModelIndex& index) const
{
    const QRect area = row.texts();
    const QString description = index.data(SetListModel::DescriptionRole).toString();
    const int half = area.height() / 2;
    const bool alone = description.isEmpty();
    painter.setFont(m_theme.font(TextStyle::section));
    painter.setPen(m_theme.color(Role::text));
    paintLine(painter, alone ? area : area.adjusted(0, 4, 0, -half + 4),
              index.data(SetListModel::HeadlineRole).toString());
    painter.setFont(m_theme.font(TextStyle::body));
    painter.setPen(m_theme.color(Role::secondary));
    paintLine(painter, area.adjusted(0, half + 1, 0, -5), description);
    painter.setFont(Theme::tabular(painter.font()));
    paintLine(painter, row.count(), index.data(SetListModel::CountRole).toString(), Qt::AlignRight);
}

void SetDelegate::paintBadge(QPainter& painter, const QRect& area) const
{
    QFont font = m_theme.font(TextStyle::caption);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_theme.color(Role::banner));
    const QRectF badge = QRectF(area).adjusted(8, 3, -8, -3);
    painter.drawRoundedRect(badge, badge.height() / 2, badge.height() / 2);
    painter.setPen(m_theme.color(Role::onBanner));
    painter.drawText(area, Qt::AlignCenter, tr("ACTIEF"));
}

void SetDelegate::paintAction(QPainter& painter, const SetRow& row, SetRowAction action,
                              const QModelIndex& index) const
{
    const bool isHovered = hovered.is(index, action);
    const bool isChosen = chosen.is(index, action);
    const bool isIcon = action != SetRowAction::activate;
    const QRect area = row.rectOf(action);
    const QColor border = m_theme.color(isHovered || isChosen ? Role::accent : Role::line);
    if (!isIcon || isHovered || isChosen) {
        painter.setPen(QPen(border, isChosen ? 2 : 1));
        painter.setBrush(m_theme.color(Role::card));
        painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), metrics::radius,
                                metrics::radius);
    }
    if (isIcon) {
        QRect square(0, 0, metrics::smallIcon, metrics::smallIcon);
        square.moveCenter(area.center());
        const Role role =
            action == SetRowAction::remove && (isHovered || isChosen) ? Role::danger : Role::text;
        painter.drawPixmap(square, m_theme.icons().pixmap(SetRow::symbol(action), metrics::smallIcon, role,
                                                          painter.device()->devicePixelRatioF()));
        return;
    }
    painter.setFont(m_theme.font(TextStyle::body));
    painter.setPen(m_theme.color(Role::text));
    painter.drawText(area, Qt::AlignCenter, tr("Activeer"));
}

}  // namespace morvak
