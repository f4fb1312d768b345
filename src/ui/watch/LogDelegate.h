#pragma once

#include <QFont>
#include <QHash>
#include <QIcon>
#include <QStyledItemDelegate>
#include <QUuid>

#include <array>

class QTextLayout;

namespace morvak {

class Theme;

/// Draws a row of the log: time, marker, message. A message that is wider than the view is wrapped.
class LogDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    LogDelegate(const Theme& theme, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    [[nodiscard]] int messageLeft() const;
    [[nodiscard]] int messageWidth(int rowWidth) const;
    [[nodiscard]] int messageHeight(const QModelIndex& index, int width) const;
    /// Gives the height.
    int layOut(QTextLayout& layout, const QString& message, int width) const;
    void paintBackground(QPainter& painter, const QStyleOptionViewItem& option) const;

    const Theme& m_theme;
    QFont m_timeFont;
    QFont m_messageFont;
    std::array<QIcon, 4> m_markers;  // by LogType
    int m_timeWidth;
    int m_lineHeight;
    mutable QHash<QUuid, int> m_heights;  // of messages, at m_heightsWidth
    mutable int m_heightsWidth = 0;
};

}  // namespace morvak
