#include "ui/sets/NewShootSheet.h"

#include "ui/blocks/FormField.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvak {

NewShootSheet::NewShootSheet(const QStringList& clients, QWidget* window)
    : SheetFrame(tr("Nieuwe Shoot"), window),
      m_name(new QLineEdit),
      m_location(new QLineEdit),
      m_client(new QComboBox)
{
    setObjectName(QStringLiteral("newShootSheet"));
    m_name->setObjectName(QStringLiteral("shootName"));
    m_location->setObjectName(QStringLiteral("shootLocation"));
    m_client->setObjectName(QStringLiteral("shootClient"));
    addFormField(*content(), tr("Naam (bijv. Ibiza Zomer 2026)"), m_name);
    addFormField(*content(), tr("Locatie (optioneel)"), m_location);
    addFormField(*content(), tr("Klant (optioneel)"), m_client);
    m_client->addItem(tr("Geen klant"));
    for (const QString& client : clients)
        m_client->addItem(client, client);

    setCancelButton(tr("Annuleer"));
    QPushButton* const create = setPrimaryButton(tr("Aanmaken"));
    create->setEnabled(false);
    connect(m_name, &QLineEdit::textChanged, create,
            [create](const QString& name) { create->setEnabled(!name.isEmpty()); });
}

NewShoot NewShootSheet::shoot() const
{
    return {m_name->text(), m_location->text(), m_client->currentData().toString()};
}

}  // namespace morvak
