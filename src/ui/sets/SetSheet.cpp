#include "ui/sets/SetSheet.h"

#include "store/ShootManager.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/FormField.h"
#include "ui/base/blocks/ItemRows.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/sets/CatalogPickerMenu.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int sheetWidth = 560;

QLineEdit* makeField(const QString& objectName, const QString& placeholder = {})
{
    auto* const field = new QLineEdit;
    field->setObjectName(objectName);
    field->setPlaceholderText(placeholder);
    return field;
}

struct Labelled {
    QString label;
    QLineEdit* field;
};

void addSideBySide(QVBoxLayout& content, const Labelled& left, const Labelled& right)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::betweenGroups);
    content.addLayout(row);
    for (const auto& [label, field] : {left, right}) {
        auto* const column = new QVBoxLayout;
        row->addLayout(column, 1);
        addFormField(*column, label, field);
    }
}

}  // namespace

SetSheet::SetSheet(UiServices& services, const QString& title, const QString& primaryLabel, QWidget* window)
    : SheetFrame(title, window),
      m_number(makeField(u"setNumber"_s)),
      m_brand(makeField(u"setBrand"_s, tr("bijv. Velora"))),
      m_model(makeField(u"setModel"_s, tr("Naam"))),
      m_location(makeField(u"setLocation"_s, tr("Studio"))),
      m_email(makeField(u"setEmail"_s, tr("bijv. voor portretsessies per persoon"))),
      m_items(
          new ItemRows(services.theme, {.name = tr("Item"), .color = tr("Kleur"), .append = tr("+ Item")}))
{
    setContentWidth(sheetWidth);
    addFields();
    addItems(services);
    setCancelButton(tr("Annuleer"));
    setPrimaryButton(primaryLabel);
}

void SetSheet::addFields()
{
    addSideBySide(*content(), {tr("Set nummer"), m_number}, {tr("Merk"), m_brand});
    addSideBySide(*content(), {tr("Model"), m_model}, {tr("Locatie"), m_location});
    addFormField(*content(), tr("E-mail (optioneel)"), m_email);
}

void SetSheet::addItems(UiServices& services)
{
    const std::optional<Shoot> shoot = services.shoots.activeShoot();
    auto* const menu = new CatalogPickerMenu(services.catalog, shoot ? shoot->client : QString(), this);
    connect(menu, &CatalogPickerMenu::picked, m_items, [this](const QString& name, const QString& color) {
        SetItem item;
        item.name = name;
        item.color = color;
        m_items->append(item);
    });
    QPushButton* const fromCatalog = makeButton(tr("Uit catalogus"));
    fromCatalog->setObjectName(u"fromCatalog"_s);
    fromCatalog->setMenu(menu);

    auto* const section = new QVBoxLayout;
    section->setSpacing(metrics::inGroup);
    content()->addLayout(section);
    section->addWidget(makeText(tr("Items"), TextStyle::section));
    section->addWidget(m_items);
    m_items->addBesideAppend(fromCatalog);
}

SetFields SetSheet::fields() const
{
    return {enteredText(*m_number),   enteredText(*m_brand), enteredText(*m_model),
            enteredText(*m_location), enteredText(*m_email), m_items->items()};
}

void SetSheet::fill(const SetFields& fields)
{
    setFieldText(*m_number, fields.setNumber);
    setFieldText(*m_brand, fields.brand);
    setFieldText(*m_model, fields.model);
    setFieldText(*m_location, fields.location);
    setFieldText(*m_email, fields.email);
    m_items->setItems(fields.items);
}

void SetSheet::showDefaultNumber(const QString& number)
{
    m_number->setPlaceholderText(number);
}

void SetSheet::addEmptyItem()
{
    m_items->appendEmptyRow();
}

NewSetSheet::NewSetSheet(UiServices& services, QWidget* window)
    : SetSheet(services, tr("Nieuwe Set"), tr("Toevoegen"), window)
{
    setObjectName(u"newSetSheet"_s);
    showDefaultNumber(services.shoots.defaultSetNumber());
    addEmptyItem();
}

EditSetSheet::EditSetSheet(UiServices& services, const SetData& set, QWidget* window)
    : SetSheet(services, tr("Set bewerken"), tr("Opslaan"), window)
{
    setObjectName(u"editSetSheet"_s);
    fill({set.setNumber, set.brand, set.model, set.location, set.email, set.items});
}

}  // namespace morvak
