#include "ui/shoots/ShootPicker.h"

#include "store/ShootManager.h"
#include "ui/base/blocks/TextLook.h"

#include <QStylePainter>
#include <QUuid>
#include <QWheelEvent>

namespace morvak {

namespace {

constexpr int narrowest = 200;
constexpr int widest = 320;

}  // namespace

ShootPicker::ShootPicker(ShootManager& shoots, QWidget* parent) : QComboBox(parent), m_shoots(shoots)
{
    setObjectName(QStringLiteral("shootPicker"));
    setAccessibleName(tr("Shoot"));
    setPlaceholderText(tr("Geen shoot geselecteerd"));
    setMinimumWidth(narrowest);
    setMaximumWidth(widest);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    connect(&shoots, &ShootManager::shootsChanged, this, &ShootPicker::showShoots);
    connect(&shoots, &ShootManager::activeShootIdChanged, this, &ShootPicker::showShoots);
    connect(this, &QComboBox::activated, this,
            [this](int row) { m_shoots.setActiveShootId(itemData(row).toUuid()); });
    showShoots();
}

/// As the base class does, but a long name ends in an ellipsis.
void ShootPicker::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect room =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    if (currentIndex() < 0)
        option.currentText = placeholderText();
    option.currentText = fontMetrics().elidedText(option.currentText, Qt::ElideRight, room.width());
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void ShootPicker::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

/// Only what differs: this is asked for at every tagged photo, and the list may be open.
void ShootPicker::showShoots()
{
    const QList<Shoot>& shoots = m_shoots.shoots();
    int current = -1;
    for (int row = 0; row < shoots.size(); ++row) {
        const Shoot& shoot = shoots[row];
        if (row == count())
            addItem(QString());
        if (itemText(row) != shoot.name)
            setItemText(row, shoot.name);
        if (const QString whole = toolTipOf(shoot.name); itemData(row, Qt::ToolTipRole).toString() != whole)
            setItemData(row, whole, Qt::ToolTipRole);
        if (itemData(row).toUuid() != shoot.id)
            setItemData(row, shoot.id);
        if (current < 0 && m_shoots.activeShootId() == shoot.id)
            current = row;
    }
    while (count() > shoots.size())
        removeItem(count() - 1);
    if (currentIndex() != current)
        setCurrentIndex(current);
    setEnabled(count() > 0);
    setToolTip(toolTipOf(currentText()));
}

}  // namespace morvak
