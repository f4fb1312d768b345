#include "ui/catalog/EditProductSheet.h"

#include "ui/base/blocks/FormField.h"
#include "ui/catalog/CatalogRules.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace morvak {

EditProductSheet::EditProductSheet(const Product& product, const QStringList& brandNames, QWidget* window)
    : SheetFrame(tr("Product bewerken"), window),
      m_id(product.id),
      m_name(new QLineEdit),
      m_colors(new QLineEdit),
      m_brand(new ChoiceBox)
{
    setObjectName(u"editProductSheet"_s);
    m_name->setObjectName(u"productName"_s);
    m_colors->setObjectName(u"productColors"_s);
    setFieldText(*m_name, product.name);
    setFieldText(*m_colors, textOfColors(product.colors));
    m_brand->setObjectName(u"productBrand"_s);
    m_brand->setAccessibleName(tr("Merk"));
    m_brand->setChoices(QList<ChoiceBox::Choice>{{tr("Algemeen (alle merken)"), QString()}} +
                            brandChoices(brandNames, product.brand),
                        product.brand);
    addFormField(*content(), tr("Naam"), m_name);
    addFormField(*content(), tr("Kleuren, komma-gescheiden"), m_colors);
    content()->addWidget(m_brand);
    setCancelButton(tr("Annuleer"));
    enableWhileFilled(*setPrimaryButton(tr("Opslaan")), *m_name, tr("Een product heeft een naam nodig"));
}

Product EditProductSheet::product() const
{
    return {m_id, enteredText(*m_name), colorsOfText(enteredText(*m_colors)),
            m_brand->currentData().toString()};
}

}  // namespace morvak
