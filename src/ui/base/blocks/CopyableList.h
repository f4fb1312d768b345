#pragma once

#include <QListView>

namespace morvak {

/// Rows to read, of which any can be selected and copied, a line of plain text each.
class CopyableList : public QListView {
    Q_OBJECT

public:
    /// `lineRole` is the model's role of a row as plain text.
    explicit CopyableList(int lineRole, QWidget* parent = nullptr);

    /// As high as its minimum height: it is given what there is.
    [[nodiscard]] QSize sizeHint() const override;

    /// The selected rows as they stand.
    [[nodiscard]] QString selectedText() const;

private:
    int m_lineRole;
};

}  // namespace morvak
