#include "ui/base/blocks/FormField.h"

#include "text/Lines.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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

void setFieldText(QLineEdit& field, const QString& text)
{
    field.setText(text);
    field.setCursorPosition(0);
}

QString enteredText(const QLineEdit& field)
{
    const QString text = field.text();
    QStringList pieces;
    for (const QStringView piece : cutAtLineBreaks(text)) {
        if (!piece.isEmpty())
            pieces.append(piece.toString());
    }
    return pieces.join(u' ');
}

void enableWhileFilled(QPushButton& button, const QLineEdit& field, const QString& whyNot)
{
    const auto follow = [&button, whyNot](const QString& text) {
        button.setEnabled(!text.isEmpty());
        button.setToolTip(text.isEmpty() ? whyNot : QString());
    };
    follow(field.text());
    QObject::connect(&field, &QLineEdit::textChanged, &button, follow);
}

}  // namespace morvak
