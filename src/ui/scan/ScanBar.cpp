#include "ui/scan/ScanBar.h"

#include "actions/SetActions.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/theme/Metrics.h"
#include "ui/scan/ScanField.h"
#include "watch/FolderWatcher.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace morvak {

ScanBar::ScanBar(UiServices& services, QWidget* parent)
    : QWidget(parent), m_services(services), m_field(new ScanField)
{
    m_field->setObjectName(QStringLiteral("scanField"));
    m_field->setPlaceholderText(tr("Scan QR of typ setdata..."));
    m_field->setAccessibleName(tr("Set scannen of typen"));
    m_field->setClearButtonEnabled(true);
    QPushButton* const activate = makeButton(tr("Activeer"));
    activate->setObjectName(QStringLiteral("activateScan"));

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    row->addWidget(new SymbolLabel(services.theme, QStringLiteral("barcode.viewfinder"), 24));
    row->addWidget(m_field, 1);
    row->addWidget(activate);
    connect(m_field, &QLineEdit::returnPressed, this, &ScanBar::submit);
    connect(activate, &QPushButton::clicked, this, &ScanBar::submit);
}

void ScanBar::focusField()
{
    m_field->setFocus(Qt::ShortcutFocusReason);
}

void ScanBar::takeScanned(const QString& text)
{
    const QString scan = text.trimmed();
    if (scan.isEmpty())
        return;
    if (takeScan(m_services.shoots, m_services.watcher, scan)) {
        m_field->insert({});  // what an earlier scan left selected
    } else {
        m_field->showScan(m_field->state(), scan);
        m_field->selectAll();
        Q_EMIT notUnderstood();
        // On another tab only the last line of the log is to be seen.
        if (!isVisible())
            m_services.watcher.addLog(tr("⚠️ Gescande tekst bevat geen set — overgeslagen"),
                                      LogType::warning);
    }
}

void ScanBar::submit()
{
    const QString text = m_field->scanText().trimmed();
    if (text.isEmpty())
        return;
    if (takeScan(m_services.shoots, m_services.watcher, text)) {
        m_field->clear();
    } else {
        m_field->selectAll();
        Q_EMIT notUnderstood();
    }
    focusField();
}

}  // namespace morvak
