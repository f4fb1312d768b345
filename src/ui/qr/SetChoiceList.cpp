#include "ui/qr/SetChoiceList.h"

#include "ui/qr/SetChoiceDelegate.h"
#include "ui/qr/SetChoiceModel.h"

namespace morvak {

namespace {

constexpr int leastHeight = 96;

}  // namespace

SetChoiceList::SetChoiceList(const Theme& theme, SetChoiceModel& model, QWidget* parent) : QListView(parent)
{
    setAccessibleName(tr("Sets"));
    setItemDelegate(new SetChoiceDelegate(theme, *this));
    setModel(&model);
    setUniformItemSizes(true);
    setMouseTracking(true);
    setSelectionMode(NoSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setMinimumHeight(leastHeight);
    setCurrentIndex(model.index(0));
}

QSize SetChoiceList::sizeHint() const
{
    return {QListView::sizeHint().width(), leastHeight};
}

}  // namespace morvak
