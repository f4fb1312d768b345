#pragma once

#include "model/SetData.h"

#include <QWidget>

class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace morvak {

class IconButton;
class Theme;
class WrapLayout;

/// The items of a set as rows to fill in: name, colour, and a button that takes the row away; under them the
/// button for a further row. Return goes to the next row, and makes one after the last.
class ItemRows final : public QWidget {
    Q_OBJECT

public:
    struct Texts {
        QString name;    ///< placeholder of the name
        QString color;   ///< placeholder of the colour
        QString append;  ///< label of the button for a further row
    };

    ItemRows(const Theme& theme, const Texts& texts, QWidget* parent = nullptr);

    /// The rows whose name is not empty, as typed and with fresh ids.
    [[nodiscard]] QList<SetItem> items() const;
    void setItems(const QList<SetItem>& items);

    /// In the last row where that is empty, behind it otherwise; the focus stays where it is.
    void append(const SetItem& item);
    void appendEmptyRow();

    /// For buttons that belong beside "+ Item".
    void addBesideAppend(QWidget* button);

Q_SIGNALS:
    void changed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Row {
        QWidget* frame;
        QLineEdit* name;
        QLineEdit* color;
        IconButton* removal;
    };

    void appendAndFocus();
    void addToTabOrder(const Row& row);
    void numberRows();
    void remove(QWidget* frame);
    [[nodiscard]] qsizetype focusedRow() const;

    const Theme& m_theme;
    Texts m_texts;
    QList<Row> m_rows;
    QVBoxLayout* m_column;
    WrapLayout* m_below;
    QPushButton* m_append;
};

}  // namespace morvak
