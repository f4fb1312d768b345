#include "ui/qr/SetChoiceDelegate.h"

#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/qr/SetChoiceModel.h"

#include <QCheckBox>
#include <QMouseEvent>
#include <QPainter>

namespace morvak {

namespace {

constexpr int rowHeight = 44;
constexpr int sideMargin = 12;
constexpr int boxSide = 18;
constexpr double disabledOpacity = 0.45;
constexpr int textLeft = sideMargin + boxSide + metrics::inGroup;

}  // namespace

SetChoiceDelegate::SetChoiceDelegate(const Theme& theme, QWidget& view)
    : QStyledItemDelegate(&view), m_theme(theme), m_likeness(new QCheckBox(&view))
{
    m_likeness->hide();
}

QSize SetChoiceDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {textLeft, rowHeight};
}

void SetChoiceDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    painter->save();
    paintBackground(*painter, option);
    if (!option.state.testFlag(QStyle::State_Enabled))
        painter->setOpacity(disabledOpacity);
    paintBox(*painter, option, index);
    paintTexts(*painter, option, index);
    painter->restore();
}

void SetChoiceDelegate::paintBackground(QPainter& painter, const QStyleOptionViewItem& option) const
{
    if (option.state.testFlag(QStyle::State_MouseOver))
        painter.fillRect(option.rect, m_theme.color(Role::hover));
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter.setPen(m_theme.color(Role::accent));
        painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}

void SetChoiceDelegate::paintBox(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    QStyleOptionButton box;
    box.initFrom(m_likeness);
    box.state.setFlag(QStyle::State_Enabled);  // a disabled box does not show whether it is checked
    const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    box.state.setFlag(checked ? QStyle::State_On : QStyle::State_Off);
    box.rect =
        QRect(option.rect.left() + sideMargin, option.rect.center().y() - boxSide / 2, boxSide, boxSide);
    m_likeness->style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, m_likeness);
}

void SetChoiceDelegate::paintTexts(QPainter& painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
{
    const QRect texts = option.rect.adjusted(textLeft, 4, -sideMargin, -4);
    const auto line = [&](const QRect& area, TextStyle style, Role role, const QString& text) {
        painter.setFont(m_theme.font(style));
        painter.setPen(m_theme.color(role));
        painter.drawText(area, Qt::AlignVCenter | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(text.simplified(), Qt::ElideRight, area.width()));
    };
    const QString name = index.data().toString();
    const QString problem = index.data(SetChoiceModel::ProblemRole).toString();
    const QString below =
        problem.isEmpty() ? index.data(SetChoiceModel::DescriptionRole).toString() : problem;
    if (below.isEmpty())
        return line(texts, TextStyle::body, Role::text, name);
    const int half = texts.height() / 2;
    line(texts.adjusted(0, 0, 0, -half), TextStyle::body, Role::text, name);
    line(texts.adjusted(0, half, 0, 0), TextStyle::caption,
         problem.isEmpty() ? Role::secondary : Role::warning, below);
}

bool SetChoiceDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const bool pressed =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!pressed && event->type() != QEvent::MouseButtonRelease)
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    if (pressed || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
        return false;
    const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model->setData(index, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

}  // namespace morvak
