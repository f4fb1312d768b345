#include "ui/rename/RenameResultDelegate.h"

#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/rename/RenameResultModel.h"

#include <QPainter>

#include <algorithm>

namespace morvak {

namespace {

constexpr int sideMargin = 12;
constexpr int rowHeight = 28;
constexpr double selectedOpacity = 0.18;

}  // namespace

int nameWidth(int natural, int restWidth, int room)
{
    return std::min(natural, std::max(room - restWidth, room / 2));
}

RenameResultDelegate::RenameResultDelegate(const Theme& theme, QObject* parent)
    : QStyledItemDelegate(parent), m_theme(theme)
{
}

QSize RenameResultDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {sideMargin, rowHeight};
}

void RenameResultDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    painter->save();
    if (option.state.testFlag(QStyle::State_Selected))
        painter->fillRect(option.rect,
                          blended(m_theme.color(Role::accent), m_theme.color(Role::card), selectedOpacity));
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(m_theme.color(Role::accent));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    QRect row = option.rect.adjusted(sideMargin, 0, -sideMargin, 0);
    m_theme.icons()
        .icon(index.data(RenameResultModel::SymbolRole).toString(),
              static_cast<Role>(index.data(RenameResultModel::SymbolColorRole).toInt()))
        .paint(painter, QRect(row.left(), row.top(), metrics::smallIcon, row.height()));
    row.setLeft(row.left() + metrics::smallIcon + metrics::inGroup);

    painter->setFont(m_theme.font(TextStyle::body));
    const QFontMetrics font = painter->fontMetrics();
    const auto draw = [&](const QRect& area, Role role, const QString& text, Qt::TextElideMode elide) {
        painter->setPen(m_theme.color(role));
        painter->drawText(area, Qt::AlignVCenter | Qt::TextSingleLine,
                          font.elidedText(text, elide, area.width()));
    };
    const bool renamed = index.data(RenameResultModel::IsRenamedRole).toBool();
    const QString name = index.data(RenameResultModel::NameRole).toString();
    const QString rest = index.data(RenameResultModel::RestRole).toString();
    const int gap = renamed ? metrics::betweenGroups : 0;
    const int width =
        nameWidth(font.horizontalAdvance(name) + 1, font.horizontalAdvance(rest) + 1, row.width() - gap);
    draw(QRect(row.left(), row.top(), width, row.height()), renamed ? Role::secondary : Role::text, name,
         Qt::ElideMiddle);
    row.setLeft(row.left() + width + gap);
    draw(row, renamed ? Role::text : Role::secondary, rest, renamed ? Qt::ElideMiddle : Qt::ElideRight);
    painter->restore();
}

}  // namespace morvak
