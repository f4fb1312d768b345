#include "ui/blocks/FormField.h"

#include "ui/blocks/TextLook.h"
#include "ui/theme/Metrics.h"

#include <QLabel>
#include <QVBoxLayout>

namespace morvak {

void addFormField(QVBoxLayout& content, const QString& label, QWidget* field)
{
    auto* const group = new QVBoxLayout;
    group->setSpacing(metrics::inGroup / 2);
    QLabel* const text = makeText(label, TextStyle::body);
    text->setBuddy(field);
    field->setAccessibleName(label);
    group->addWidget(text);
    group->addWidget(field);
    content.addLayout(group);
}

}  // namespace morvak
