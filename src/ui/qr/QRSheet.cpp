#include "ui/qr/QRSheet.h"

#include "actions/SetTexts.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/ElidedLabel.h"
#include "ui/base/blocks/NoticeLine.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/qr/QROutput.h"
#include "ui/qr/QRPreview.h"
#include "ui/qr/QRTexts.h"

#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int copiedSide = 600;

}  // namespace

QRSheet::QRSheet(UiServices& services, const SetData& set, QWidget* window)
    : SheetFrame(tr("QR-code"), window), m_services(services), m_set(set), m_notice(new NoticeLine)
{
    setObjectName(u"qrSheet"_s);
    showCode();
    addButtons();
}

void QRSheet::showCode()
{
    auto* const preview = new QRPreview(m_services.theme);
    const QString text = m_set.toQRText();
    if (const QString problem = QRTexts::problem(text); problem.isEmpty())
        preview->showCode(text);
    else
        preview->showPlaceholder(tr("Geen QR-code"), problem);
    auto* const caption = new ElidedLabel(tr("QR-code: ") + SetTexts::name(m_set));
    caption->setObjectName(u"qrCaption"_s);
    caption->setAlignment(Qt::AlignCenter);
    setTextLook(*caption, TextStyle::body);
    m_notice->setObjectName(u"qrNotice"_s);
    // All of it is seen over the smallest window.
    content()->setSpacing(0);
    content()->addWidget(preview);
    content()->addSpacing(metrics::inGroup / 2);
    content()->addWidget(caption);
    content()->addWidget(m_notice);
}

void QRSheet::addButtons()
{
    QPushButton* const copy = addSideButton(tr("Kopieer QR"));
    copy->setObjectName(u"copyQR"_s);
    connect(copy, &QPushButton::clicked, this, [this] { copyQR(m_set.toQRText(), copiedSide, *m_notice); });
    connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, copy, &QPushButton::click);
    QPushButton* const save = setPrimaryButton(tr("Bewaar als PNG..."));
    save->setObjectName(u"saveQR"_s);
    const QString problem = QRTexts::problem(m_set.toQRText());
    for (QPushButton* const button : {copy, save}) {
        button->setEnabled(problem.isEmpty());
        button->setToolTip(problem);
    }
    for (QPushButton* const button : {copy, save, setCancelButton(tr("Sluit"))}) {
        button->setDefault(false);
        button->setAutoDefault(false);
    }
}

void QRSheet::accept()
{
    saveQRAs(m_set, m_services.dialogs, *m_notice);
}

}  // namespace morvak
