#pragma once

#include "model/SetData.h"

#include <QWidget>

class QLineEdit;
class QVBoxLayout;

namespace morvak {

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

    /// The rows whose name is not empty, as typed; rows that were set keep the ids of their items.
    [[nodiscard]] QList<SetItem> items() const;
    void setItems(const QList<SetItem>& items);

    /// Behind the last row; the focus stays where it is.
    void append(const SetItem& item);

    /// For buttons that belong beside "+ Item".
    void addBesideAppend(QWidget* button);

Q_SIGNALS:
    void changed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Row {
        QUuid id;
        QWidget* frame;
        QLineEdit* name;
        QLineEdit* color;
    };

    void appendAndFocus();
    void remove(QWidget* frame);
    [[nodiscard]] qsizetype focusedRow() const;

    const Theme& m_theme;
    Texts m_texts;
    QList<Row> m_rows;
    QVBoxLayout* m_column;
    WrapLayout* m_below;
};

}  // namespace morvak
