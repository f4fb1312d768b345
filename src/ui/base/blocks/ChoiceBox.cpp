#include "ui/base/blocks/ChoiceBox.h"

#include "ui/base/blocks/TextLook.h"

#include <QWheelEvent>

#include <algorithm>

namespace morvak {

namespace {

constexpr int fewestCharacters = 12;

}  // namespace

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent)
{
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(fewestCharacters);
    connect(this, &QComboBox::currentTextChanged, this,
            [this](const QString& text) { setToolTip(toolTipOf(text)); });
}

void ChoiceBox::setChoices(const QList<Choice>& choices, const QVariant& chosen)
{
    clear();
    for (const auto& [text, value] : choices) {
        addItem(text.simplified(), value);
        setItemData(count() - 1, toolTipOf(text), Qt::ToolTipRole);
    }
    const auto found = std::ranges::find(choices, chosen, &Choice::value);
    setCurrentIndex(found == choices.cend() ? 0 : static_cast<int>(found - choices.cbegin()));
}

void ChoiceBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

}  // namespace morvak
