#include "ui/qr/QRGeneratorView.h"

#include "ui/base/UiServices.h"
#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/Card.h"
#include "ui/base/blocks/FormField.h"
#include "ui/base/blocks/ItemRows.h"
#include "ui/base/blocks/NoticeLine.h"
#include "ui/base/blocks/ReadableColumn.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/qr/QROutput.h"
#include "ui/qr/QRPreview.h"
#include "ui/qr/QRTexts.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr QSize smallest(500, 600);
constexpr QSize preferred(560, 860);  // all of it with a few items

QLineEdit* makeField(const QString& name, const QString& placeholder = {})
{
    auto* const field = new QLineEdit;
    field->setObjectName(name);
    field->setPlaceholderText(placeholder);
    return field;
}

}  // namespace

QRGeneratorView::QRGeneratorView(UiServices& services, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_column(new ReadableColumn(tr("QR Generator"))),
      m_setNumber(makeField(u"setNumber"_s)),
      m_brand(makeField(u"brand"_s, tr("bijv. Velora"))),
      m_model(makeField(u"model"_s, tr("Naam model"))),
      m_location(makeField(u"location"_s, tr("Studio"))),
      m_items(new ItemRows(
          services.theme, {.name = tr("Item naam"), .color = tr("Kleur"), .append = tr("+ Item toevoegen")})),
      m_preview(new QRPreview(services.theme)),
      m_caution(makeText({}, TextStyle::body, Role::warning, true)),
      m_output(new QWidget),
      m_notice(new NoticeLine)
{
    setObjectName(u"qr-generator"_s);
    setWindowTitle(tr("QR Generator"));
    setMinimumSize(smallest);
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->addWidget(m_column, 1);
    outer->addWidget(m_caution);  // in sight wherever the column is scrolled to
    outer->addWidget(m_notice);

    m_column->content()->addWidget(makeText(tr("QR Generator"), TextStyle::title));
    addFields();
    addItems();
    addCode();
    addOutput();
    m_column->content()->addStretch(1);
    addShortcuts();
    showCode();
}

void QRGeneratorView::addFields()
{
    auto* const card = new Card(m_services.theme, tr("Set info"), {});
    const auto addPair = [&](const QString& left, QLineEdit* leftField, const QString& right,
                             QLineEdit* rightField) {
        auto* const row = new QHBoxLayout;
        row->setSpacing(metrics::inGroup);
        for (const auto& [label, field] : {std::pair(left, leftField), std::pair(right, rightField)}) {
            auto* const group = new QVBoxLayout;
            addFormField(*group, label, field);
            row->addLayout(group, 1);
        }
        card->content()->addLayout(row);
    };
    addPair(tr("Set nummer"), m_setNumber, tr("Merk"), m_brand);
    addPair(tr("Model"), m_model, tr("Locatie"), m_location);
    for (const QLineEdit* const field : {m_setNumber, m_brand, m_model, m_location})
        connect(field, &QLineEdit::textChanged, this, &QRGeneratorView::showCaution);
    m_column->content()->addWidget(card);
}

void QRGeneratorView::addItems()
{
    auto* const card = new Card(m_services.theme, tr("Items"), {});
    card->content()->addWidget(m_items);
    connect(m_items, &ItemRows::changed, this, &QRGeneratorView::showCaution);
    m_column->content()->addWidget(card);
}

void QRGeneratorView::addCode()
{
    QPushButton* const generating = makeButton(tr("Genereer QR"), ButtonKind::primary);
    generating->setObjectName(u"generateQR"_s);
    generating->setAutoDefault(true);
    generating->setToolTip(QKeySequence(Qt::CTRL | Qt::Key_Return).toString(QKeySequence::NativeText));
    connect(generating, &QPushButton::clicked, this, &QRGeneratorView::generate);
    m_caution->setObjectName(u"qrCaution"_s);
    m_column->content()->addWidget(generating);
    m_column->content()->addWidget(m_preview);
}

void QRGeneratorView::addOutput()
{
    auto* const row = new QHBoxLayout(m_output);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    row->addStretch(1);
    const auto add = [row](const QString& label, const QString& name) {
        QPushButton* const button = makeButton(label);
        button->setObjectName(name);
        button->setAutoDefault(true);
        row->addWidget(button);
        return button;
    };
    connect(add(tr("Kopieer QR"), u"copyQR"_s), &QPushButton::clicked, this,
            [this] { copyQR(m_made.value_or(QString()), QRPreview::side, *m_notice); });
    connect(add(tr("Bewaar als PNG..."), u"saveQR"_s), &QPushButton::clicked, this,
            [this] { saveQRAs(buildSetData(), m_services.dialogs, *m_notice); });
    row->addStretch(1);
    m_notice->setObjectName(u"qrNotice"_s);
    for (QWidget* const line : {static_cast<QWidget*>(m_caution), static_cast<QWidget*>(m_notice)})
        line->setContentsMargins(metrics::windowMargin, metrics::inGroup / 2, metrics::windowMargin,
                                 metrics::inGroup / 2);
    m_column->content()->addWidget(m_output);
}

void QRGeneratorView::addShortcuts()
{
    const auto on = [this](const QKeySequence& keys, auto&& action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    on(Qt::CTRL | Qt::Key_Return, [this] { generate(); });
    on(Qt::CTRL | Qt::Key_Enter, [this] { generate(); });
    on(Qt::CTRL | Qt::Key_W, [this] { close(); });
}

SetData QRGeneratorView::buildSetData() const
{
    SetData set;
    set.setNumber = m_setNumber->text();
    set.brand = m_brand->text();
    set.items = m_items->items();
    set.model = m_model->text();
    set.location = m_location->text();
    return set;
}

void QRGeneratorView::generate()
{
    m_made = buildSetData().toQRText();
    m_notice->clear();
    showCode();
    m_column->reveal(*m_output);
    m_column->reveal(*m_preview);
}

void QRGeneratorView::showCode()
{
    const bool hasCode = m_made && QRTexts::problem(*m_made).isEmpty();
    if (hasCode)
        m_preview->showCode(*m_made);
    else
        m_preview->showPlaceholder(tr("Vul de gegevens in en klik 'Genereer QR'"));
    m_output->setVisible(hasCode);
    showCaution();
}

void QRGeneratorView::showCaution()
{
    m_caution->setText(QRTexts::caution(m_made, buildSetData().toQRText()));
    m_caution->setVisible(!m_caution->text().isEmpty());
}

void QRGeneratorView::showEvent(QShowEvent* event)
{
    if (!testAttribute(Qt::WA_Resized))
        resize(preferred.boundedTo(screen()->availableSize()).expandedTo(smallest));
    QWidget::showEvent(event);
    m_setNumber->setFocus(Qt::OtherFocusReason);
}

void QRGeneratorView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        generate();
    else if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

}  // namespace morvak
