#include "ui/base/blocks/WrapLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace morvak {

WrapLayout::WrapLayout(QWidget* parent, int horizontalSpacing, int verticalSpacing)
    : QLayout(parent), m_horizontalSpacing(horizontalSpacing), m_verticalSpacing(verticalSpacing)
{
    setContentsMargins(0, 0, 0, 0);
}

WrapLayout::~WrapLayout() = default;

void WrapLayout::addItem(QLayoutItem* item)
{
    m_items.emplace_back(item);
    invalidate();
}

QLayoutItem* WrapLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* WrapLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    const auto at = m_items.begin() + index;
    QLayoutItem* const item = at->release();
    m_items.erase(at);
    invalidate();
    return item;
}

int WrapLayout::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    int bottom = 0;
    for (const Placed& placed : arranged(width - margins.left() - margins.right()))
        bottom = std::max(bottom, placed.rect.bottom() + 1);
    return bottom + margins.top() + margins.bottom();
}

QSize WrapLayout::sizeHint() const
{
    int width = 0;
    int height = 0;
    for (const auto& item : m_items) {
        if (item->isEmpty())
            continue;
        width += item->sizeHint().width() + (width > 0 ? m_horizontalSpacing : 0);
        height = std::max(height, item->sizeHint().height());
    }
    return QSize(width, height).grownBy(contentsMargins());
}

QSize WrapLayout::minimumSize() const
{
    QSize size;
    for (const auto& item : m_items) {
        if (!item->isEmpty())
            size = size.expandedTo(item->minimumSize());
    }
    return size.grownBy(contentsMargins());
}

void WrapLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const QRect inner = rect.marginsRemoved(contentsMargins());
    const QWidget* const parent = parentWidget();
    const Qt::LayoutDirection direction = parent ? parent->layoutDirection() : Qt::LeftToRight;
    for (const Placed& placed : arranged(inner.width())) {
        const QRect here = placed.rect.translated(inner.topLeft());
        placed.item->setGeometry(QStyle::visualRect(direction, inner, here));
    }
}

/// Where the items stand in a width, from the top left corner.
std::vector<WrapLayout::Placed> WrapLayout::arranged(int width) const
{
    std::vector<Placed> all;
    QPoint corner;
    int rowHeight = 0;
    std::size_t rowStart = 0;
    const auto centreRow = [&] {
        for (std::size_t i = rowStart; i < all.size(); ++i)
            all[i].rect.translate(0, (rowHeight - all[i].rect.height()) / 2);
    };
    for (const auto& item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size(std::min(item->sizeHint().width(), std::max(width, item->minimumSize().width())),
                         item->sizeHint().height());
        if (corner.x() > 0 && corner.x() + size.width() > width) {
            centreRow();
            corner = {0, corner.y() + rowHeight + m_verticalSpacing};
            rowHeight = 0;
            rowStart = all.size();
        }
        all.push_back({item.get(), QRect(corner, size)});
        corner.rx() += size.width() + m_horizontalSpacing;
        rowHeight = std::max(rowHeight, size.height());
    }
    centreRow();
    return all;
}

}  // namespace morvak
