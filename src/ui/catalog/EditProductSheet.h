#pragma once

#include "catalog/Product.h"
#include "ui/base/blocks/SheetFrame.h"

class QLineEdit;

namespace morvak {

class ChoiceBox;

/// Shows a product and asks for its changes; `product` is the answer when it is accepted.
class EditProductSheet final : public SheetFrame {
    Q_OBJECT

public:
    EditProductSheet(const Product& product, const QStringList& brandNames, QWidget* window);

    [[nodiscard]] Product product() const;

private:
    QUuid m_id;
    QLineEdit* m_name;
    QLineEdit* m_colors;
    ChoiceBox* m_brand;
};

}  // namespace morvak
