#include "ui/shoots/SetsButtons.h"

#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/IconButton.h"

#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace morvak {

SetsButtons::SetsButtons(const Theme& theme, QObject* parent) : QObject(parent), m_theme(theme) {}

QAbstractButton* SetsButtons::make(SetsAction action, const QString& objectName)
{
    QAbstractButton* button = nullptr;
    if (action == SetsAction::deleteShoot)
        button = new IconButton(m_theme, u"trash"_s, SetsActionTexts::help(action), nullptr, Role::danger);
    else
        button = makeButton(SetsActionTexts::label(action));
    button->setObjectName(objectName);
    connect(button, &QAbstractButton::clicked, this, [this, action] { Q_EMIT asked(action); });
    m_buttons.insert(action, button);
    show(action, *button);
    return button;
}

void SetsButtons::setFacts(const SetsFacts& facts)
{
    if (std::exchange(m_facts, facts) == facts)
        return;
    for (auto it = m_buttons.cbegin(); it != m_buttons.cend(); ++it)
        show(it.key(), **it);
}

void SetsButtons::show(SetsAction action, QAbstractButton& button) const
{
    button.setEnabled(SetsActionTexts::reasonAgainst(action, m_facts).isEmpty());
    button.setToolTip(SetsActionTexts::toolTip(action, m_facts));
    if (action == SetsAction::processExisting)
        button.setText(m_facts.isProcessing ? tr("Bezig...") : SetsActionTexts::label(action));
}

}  // namespace morvak
