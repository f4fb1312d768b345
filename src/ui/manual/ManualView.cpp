#include "ui/manual/ManualView.h"

#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/manual/ManualText.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QStandardItemModel>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int charactersInALine = 70;
constexpr int bulletIndent = 16;
constexpr int listWidth = 304;
constexpr int listRow = 36;

/// Sections whose top is this far below the top of the page count as reached.
constexpr int reachedWithin = 3 * metrics::betweenGroups;

QString bullet()
{
    return u"• "_s;
}

}  // namespace

ManualView::ManualView(const Theme& theme, QWidget* parent)
    : QWidget(parent), m_theme(theme), m_titles(new QStandardItemModel(this))
{
    m_page = makePage();
    m_list = makeSectionList();
    m_picker = makeSectionPicker();

    auto* const column = new QVBoxLayout;
    column->setSpacing(metrics::inGroup);
    column->addWidget(m_picker);
    column->addWidget(m_page, 1);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(metrics::windowMargin, metrics::windowMargin, 0, 0);
    row->setSpacing(2 * metrics::betweenGroups);
    row->addStretch(1);
    row->addWidget(m_list, 0, Qt::AlignTop);
    row->addLayout(column, 1000);
    row->addStretch(1);

    connect(m_page->verticalScrollBar(), &QScrollBar::valueChanged, this, &ManualView::showReached);
    showReached();
}

QScrollArea* ManualView::makePage()
{
    auto* const text = new QWidget;
    auto* const sections = new QVBoxLayout(text);
    sections->setContentsMargins(0, 0, metrics::windowMargin, metrics::windowMargin);
    sections->setSpacing(2 * metrics::betweenGroups);
    for (const ManualSection& section : manualSections())
        sections->addWidget(makeSection(section));
    sections->addStretch(1);

    auto* const page = new QScrollArea;
    page->setObjectName(u"manualPage"_s);
    page->setAccessibleName(tr("Handleiding"));
    page->setWidget(text);
    page->setWidgetResizable(true);
    page->setFrameShape(QFrame::NoFrame);
    page->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int line = QFontMetrics(m_theme.font(TextStyle::body)).averageCharWidth() * charactersInALine;
    page->setMaximumWidth(line + 2 * metrics::windowMargin + metrics::smallIcon + metrics::inGroup);
    return page;
}

QWidget* ManualView::makeSection(const ManualSection& section)
{
    auto* const item = new QStandardItem(m_theme.icons().icon(section.icon), section.title);
    item->setEditable(false);
    item->setSizeHint({0, listRow});
    m_titles->appendRow(item);

    auto* const widget = new QWidget;
    auto* const grid = new QGridLayout(widget);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(metrics::inGroup);
    grid->setColumnStretch(1, 1);
    grid->addWidget(new SymbolLabel(m_theme, section.icon, metrics::smallIcon, Role::accent), 0, 0);
    grid->addWidget(makeText(section.title, TextStyle::section, Role::text, true), 0, 1);
    for (const ManualStep& step : section.content) {
        QLabel* const text = makeText(step.text, TextStyle::body, Role::text, true);
        text->setContentsMargins(step.text.startsWith(bullet()) ? bulletIndent : 0, 0, 0, 0);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse);
        grid->addWidget(text, grid->rowCount(), 1);
    }
    m_sections.append(widget);
    return widget;
}

QListView* ManualView::makeSectionList()
{
    auto* const list = new QListView;
    list->setObjectName(u"manualSections"_s);
    list->setAccessibleName(tr("Onderdelen van de handleiding"));
    list->setModel(m_titles);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setFixedSize(listWidth, m_titles->rowCount() * listRow + 2 * list->frameWidth());
    connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { jumpTo(current.row()); });
    return list;
}

QComboBox* ManualView::makeSectionPicker()
{
    auto* const picker = new QComboBox;
    picker->setObjectName(u"manualPicker"_s);
    picker->setAccessibleName(m_list->accessibleName());
    picker->setModel(m_titles);
    picker->setMaximumWidth(m_page->maximumWidth());
    connect(picker, &QComboBox::activated, this, &ManualView::jumpTo);
    return picker;
}

void ManualView::jumpTo(int section)
{
    if (m_following || section < 0)
        return;
    const QScopedValueRollback following(m_following, true);
    m_page->verticalScrollBar()->setValue(m_sections.at(section)->y());
    showSection(section);
}

void ManualView::showReached()
{
    if (m_following)
        return;
    const QScopedValueRollback following(m_following, true);
    const int reached = m_page->verticalScrollBar()->value() + reachedWithin;
    int section = 0;
    while (section + 1 < m_sections.size() && m_sections.at(section + 1)->y() <= reached)
        ++section;
    showSection(m_page->verticalScrollBar()->value() > 0 ? section : 0);
}

void ManualView::showSection(int section)
{
    m_list->setCurrentIndex(m_titles->index(section, 0));
    m_picker->setCurrentIndex(section);
}

void ManualView::resizeEvent(QResizeEvent* event)
{
    const bool beside = width() >= listWidth + m_page->maximumWidth();
    m_list->setVisible(beside);
    m_picker->setVisible(!beside);
    QWidget::resizeEvent(event);
}

void ManualView::keyPressEvent(QKeyEvent* event)
{
    QScrollBar* const bar = m_page->verticalScrollBar();
    if (event->key() == Qt::Key_Home)
        bar->setValue(bar->minimum());
    else if (event->key() == Qt::Key_End)
        bar->setValue(bar->maximum());
    else
        QWidget::keyPressEvent(event);
}

}  // namespace morvak
