#include "ui/rename/RenameView.h"

#include "ui/base/Dialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/Card.h"
#include "ui/base/blocks/CopyableList.h"
#include "ui/base/blocks/ReadableColumn.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TaskProgress.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/rename/FolderRow.h"
#include "ui/rename/RenameResultDelegate.h"
#include "ui/rename/RenameResultModel.h"
#include "ui/rename/RenameTexts.h"
#include "watch/FolderWatcher.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int leastListHeight = 116;  // four rows

}  // namespace

RenameView::RenameView(UiServices& services, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_task(services.rename),
      m_column(new ReadableColumn(tr("Hernoemen"))),
      m_source(new FolderRow(tr("Bronmap"))),
      m_destination(new FolderRow(tr("Doelmap"))),
      m_start(makeButton(tr("Hernoemen starten"), ButtonKind::primary)),
      m_progress(new TaskProgress(tr("Hernoemen"))),
      m_hint(makeText({}, TextStyle::body, Role::secondary, true)),
      m_result(new Card(services.theme, tr("Resultaat"), u"checkmark.circle.fill"_s, nullptr, Role::success)),
      m_counts(makeText({}, TextStyle::body, Role::text, true)),
      m_ending(makeText({}, TextStyle::body, Role::warning, true)),
      m_results(new RenameResultModel(this))
{
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(m_column);
    addHeading();
    addFolders();
    addStart();
    addResult();

    connect(&m_task, &RawRenameTask::isRunningChanged, this, &RenameView::showState);
    connect(&m_task, &RawRenameTask::progressChanged, this, [this](qsizetype done, qsizetype total) {
        m_total = total;
        m_progress->setProgress(done, total);
    });
    connect(&m_task, &RawRenameTask::finished, this, &RenameView::finished);
    for (const auto signal : {&FolderWatcher::watchPathChanged, &FolderWatcher::isWatchingChanged})
        connect(&services.watcher, signal, this, &RenameView::showState);
    showState();
}

void RenameView::addHeading()
{
    auto* const heading = new QHBoxLayout;
    heading->setSpacing(metrics::inGroup);
    heading->addWidget(new SymbolLabel(m_services.theme, u"character.cursor.ibeam"_s, metrics::smallIcon));
    heading->addWidget(makeText(tr("Hernoemen op naam"), TextStyle::section), 1);
    auto* const group = new QVBoxLayout;
    group->setSpacing(metrics::inGroup);
    group->addLayout(heading);
    group->addWidget(makeText(tr("Kopieert getagde RAW-bestanden (en een eventuele .xmp ernaast) naar een "
                                 "nieuwe map, hernoemd naar "
                                 "\"Naam_01\", \"Naam_02\", ... op basis van de metadata die Morvak er al op "
                                 "heeft gezet. De bronmap "
                                 "blijft ongewijzigd — dit is altijd een kopie, geen verplaatsing."),
                              TextStyle::body, Role::secondary, true));
    m_column->content()->addLayout(group);
}

void RenameView::addFolders()
{
    m_source->setObjectName(u"renameSource"_s);
    m_destination->setObjectName(u"renameDestination"_s);
    connect(m_source, &FolderRow::chooseAsked, this,
            [this] { choose(*m_source, tr("Kies de bronmap"), m_services.watcher.watchPath()); });
    connect(m_destination, &FolderRow::chooseAsked, this,
            [this] { choose(*m_destination, tr("Kies de doelmap"), m_source->folder()); });
    auto* const group = new QVBoxLayout;
    group->setSpacing(metrics::inGroup);
    for (FolderRow* const row : {m_source, m_destination}) {
        connect(row, &FolderRow::folderChanged, this, &RenameView::showState);
        group->addWidget(row);
    }
    m_column->content()->addLayout(group);
}

void RenameView::addStart()
{
    m_start->setObjectName(u"startRename"_s);
    m_hint->setObjectName(u"renameHint"_s);
    connect(m_start, &QPushButton::clicked, this, &RenameView::start);
    connect(m_progress, &TaskProgress::giveUpAsked, this, [this] {
        m_gaveUp = true;
        m_task.giveUp();
    });
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    row->addWidget(m_start);
    row->addWidget(m_progress);
    row->addStretch(1);
    auto* const group = new QVBoxLayout;
    group->setSpacing(metrics::inGroup);
    group->addLayout(row);
    group->addWidget(m_hint);
    m_column->content()->addLayout(group);
}

void RenameView::addResult()
{
    m_result->setObjectName(u"renameResult"_s);
    m_counts->setObjectName(u"renameCounts"_s);
    m_ending->setObjectName(u"renameEnding"_s);
    auto* const list = new CopyableList(Qt::DisplayRole);
    list->setObjectName(u"renameResults"_s);
    list->setAccessibleName(tr("Resultaat"));
    list->setUniformItemSizes(true);
    list->setItemDelegate(new RenameResultDelegate(m_services.theme, list));
    list->setModel(m_results);
    list->setMinimumHeight(leastListHeight);
    m_list = list;
    m_result->content()->addWidget(m_counts);
    m_result->content()->addWidget(m_ending);
    m_result->content()->addWidget(m_list, 1);
    m_result->hide();
    m_column->content()->addWidget(m_result, 1);
    m_column->content()->addStretch();
}

void RenameView::choose(FolderRow& row, const QString& title, const QString& usual)
{
    const QString folder = m_services.dialogs.chooseFolder(this, title, tr("Selecteer map"),
                                                           row.folder().isEmpty() ? usual : row.folder());
    if (!folder.isEmpty())
        row.setFolder(folder);
}

RenameObstacle RenameView::obstacle() const
{
    RenameFacts facts{m_source->folder(), m_destination->folder(), {}, {}, {}, m_task.isRunning()};
    facts.sourcePlace = findFolder(facts.source);
    facts.destinationPlace = findFolder(facts.destination);
    if (m_services.watcher.isWatching())
        facts.watchedPlace = findFolder(m_services.watcher.watchPath());
    return renameObstacle(facts);
}

void RenameView::showState()
{
    const RenameObstacle found = obstacle();
    const QString text = obstacleText(found);
    m_start->setEnabled(found == RenameObstacle::none);
    m_start->setToolTip(text);
    if (m_hint->text() != text)
        setTextLook(*m_hint, TextStyle::body, isWrong(found) ? Role::warning : Role::secondary);
    m_hint->setText(text);
    m_hint->setVisible(!text.isEmpty() && found != RenameObstacle::running);
}

void RenameView::start()
{
    showState();  // a folder may have gone since
    if (!m_start->isEnabled())
        return;
    m_result->hide();
    m_results->setSummary({});
    m_total = 0;
    m_gaveUp = false;
    m_progress->begin();
    m_task.start(m_source->folder(), m_destination->folder());
}

void RenameView::finished(const RawRenameSummary& summary)
{
    m_progress->end();
    m_results->setSummary(summary);
    m_counts->setText(RenameTexts::counts(summary));
    m_ending->setText(RenameTexts::ending(summary, {m_gaveUp, m_total}));
    m_ending->setVisible(!m_ending->text().isEmpty());
    m_list->setVisible(!summary.results.isEmpty());
    m_result->show();
    m_column->reveal(*m_result);
}

/// A folder can come and go without a word: looked up anew whenever the user turns to this tab.
bool RenameView::event(QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::Show || type == QEvent::WindowActivate || type == QEvent::Enter)
        showState();
    return QWidget::event(event);
}

}  // namespace morvak
