#pragma once

#include <QStyledItemDelegate>

namespace morvak {

class Theme;

/// Draws a result of the RAW rename: symbol, old name, and the new name or the reason. Names that do not fit
/// are shortened in their middle.
class RenameResultDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    RenameResultDelegate(const Theme& theme, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    const Theme& m_theme;
};

/// How wide a name is drawn whose rest is `restWidth` wide, when both have `room`: as it is where both fit,
/// else not narrower than half of the room for the sake of the rest.
[[nodiscard]] int nameWidth(int natural, int restWidth, int room);

}  // namespace morvak
