#pragma once

#include <QComboBox>

namespace morvak {

/// One choice out of a list that may grow while it is shown. A text too long for the box is cut, its tooltip
/// has all of it. The wheel never changes the choice: it scrolls what the box stands in.
class ChoiceBox final : public QComboBox {
    Q_OBJECT

public:
    struct Choice {
        QString text;
        QVariant value;
    };

    explicit ChoiceBox(QWidget* parent = nullptr);

    /// The first choice with the value `chosen` becomes the current one, the very first where there is none.
    void setChoices(const QList<Choice>& choices, const QVariant& chosen);

protected:
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace morvak
