#include "ui/qr/BulkQRExportSheet.h"

#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/NoticeLine.h"
#include "ui/base/blocks/SegmentedSwitch.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/qr/SetChoiceList.h"
#include "ui/qr/SetChoiceModel.h"

#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int sheetWidth = 480;
constexpr int sheetHeight = 560;
constexpr int busyWidth = 96;
constexpr std::chrono::hours untilTheNext(24);

QString noSets()
{
    return BulkQRExportSheet::tr("Er zijn nog geen sets om te exporteren.");
}

}  // namespace

BulkQRExportSheet::BulkQRExportSheet(UiServices& services, const QList<SetData>& sets,
                                     const QString& shootName, QWidget* window)
    : SheetFrame(tr("Bulk QR-export"), window),
      m_services(services),
      m_shootName(shootName),
      m_sets(new SetChoiceModel(sets, this)),
      m_form(new QWidget),
      m_density(nullptr),
      m_toggleAll(makeButton({})),
      m_count(makeText({}, TextStyle::body, Role::secondary)),
      m_notice(new NoticeLine),
      m_busy(new QProgressBar)
{
    setObjectName(u"bulkQRExport"_s);
    setContentWidth(sheetWidth - 2 * metrics::sheetMargin);
    auto* const column = new QVBoxLayout(m_form);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::betweenGroups);
    content()->addWidget(m_form, 1);
    addExplanation();
    addDensity();
    addChoice();
    addButtons();
    connect(m_sets, &SetChoiceModel::selectionChanged, this, &BulkQRExportSheet::showState);
    connect(&m_task, &CardExportTask::isRunningChanged, this, &BulkQRExportSheet::showState);
    connect(&m_task, &CardExportTask::finished, this, &BulkQRExportSheet::exported);
    showState();
    if (sets.isEmpty())
        m_notice->showNotice(noSets(), Role::secondary, untilTheNext);
}

void BulkQRExportSheet::addExplanation()
{
    m_form->layout()->addWidget(
        makeText(tr("Exporteer QR-kaarten van meerdere sets in één PDF, klaar om te printen."),
                 TextStyle::body, Role::secondary, true));
}

void BulkQRExportSheet::addDensity()
{
    QStringList labels;
    for (const BulkQRDensity density : bulkQRDensities)
        labels.append(labelOf(density));
    m_density = new SegmentedSwitch(tr("Dichtheid"), labels);
    m_density->setObjectName(u"density"_s);
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    row->addWidget(makeText(tr("Dichtheid"), TextStyle::body));
    row->addWidget(m_density);
    row->addStretch(1);
    static_cast<QVBoxLayout*>(m_form->layout())->addLayout(row);
}

void BulkQRExportSheet::addChoice()
{
    m_toggleAll->setObjectName(u"toggleAll"_s);
    m_toggleAll->setAutoDefault(false);
    connect(m_toggleAll, &QPushButton::clicked, this,
            [this] { m_sets->setAllSelected(!m_sets->allSelected()); });
    m_count->setObjectName(u"selectedCount"_s);
    m_count->setFont(Theme::tabular(m_count->font()));
    auto* const row = new QHBoxLayout;
    row->addWidget(m_toggleAll);
    row->addStretch(1);
    row->addWidget(m_count);

    auto* const list = new SetChoiceList(m_services.theme, *m_sets);
    list->setObjectName(u"setChoice"_s);
    auto* const column = static_cast<QVBoxLayout*>(m_form->layout());
    column->addLayout(row);
    column->addWidget(list, 1);
}

void BulkQRExportSheet::addButtons()
{
    m_notice->setObjectName(u"exportNotice"_s);
    m_busy->setRange(0, 0);
    m_busy->setTextVisible(false);
    m_busy->setFixedWidth(busyWidth);
    m_busy->setAccessibleName(tr("PDF wordt gemaakt"));
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    row->addWidget(m_busy);
    row->addWidget(m_notice, 1);
    content()->addLayout(row);
    m_cancel = setCancelButton(tr("Annuleer"));
    m_export = setPrimaryButton(tr("Exporteer PDF..."));
    m_export->setObjectName(u"exportPDF"_s);
}

void BulkQRExportSheet::showState()
{
    const qsizetype selected = m_sets->selectedCount();
    const int total = m_sets->rowCount();
    const bool isRunning = m_task.isRunning();
    m_toggleAll->setText(m_sets->allSelected() ? tr("Deselecteer alles") : tr("Selecteer alles"));
    m_toggleAll->setEnabled(total > 0);
    m_count->setText(QString::number(selected) + u'/' + QString::number(total) + tr(" geselecteerd"));
    m_form->setEnabled(!isRunning);
    m_busy->setVisible(isRunning);
    m_cancel->setEnabled(!isRunning);
    m_export->setEnabled(!isRunning && selected > 0);
    m_export->setToolTip(total == 0      ? noSets()
                         : selected == 0 ? tr("Kies eerst een of meer sets.")
                                         : QString());
}

void BulkQRExportSheet::accept()
{
    m_path = m_services.dialogs.saveFile(this, tr("QR-kaarten bewaren"), m_shootName + tr("-QR-kaarten.pdf"),
                                         tr("PDF-document (*.pdf)"), u"pdf"_s);
    if (m_path.isEmpty())
        return;
    const auto density = bulkQRDensities.at(static_cast<std::size_t>(m_density->currentIndex()));
    m_notice->showNotice(tr("PDF wordt gemaakt…"), Role::secondary, untilTheNext);
    m_task.start(m_sets->selectedSets(), density, m_path);
}

void BulkQRExportSheet::reject()
{
    if (!m_task.isRunning())
        SheetFrame::reject();
}

void BulkQRExportSheet::exported(bool written)
{
    if (written)
        return SheetFrame::accept();
    m_notice->showNotice(
        tr("“%1” kon niet bewaard worden. Kies een andere plaats.").arg(QFileInfo(m_path).fileName()),
        Role::danger, untilTheNext);
    m_export->setFocus(Qt::OtherFocusReason);
}

/// The sheet is as high as it is meant to be, or as the window behind it allows.
void BulkQRExportSheet::showEvent(QShowEvent* event)
{
    const int room =
        parentWidget() ? parentWidget()->window()->height() - metrics::windowMargin : sheetHeight;
    setMinimumHeight(std::min(sheetHeight, room));
    SheetFrame::showEvent(event);
}

}  // namespace morvak
