#include "ui/sets/SetsContent.h"

#include "ui/base/blocks/EmptyState.h"
#include "ui/sets/SetFilter.h"
#include "ui/sets/SetList.h"
#include "ui/sets/SetListModel.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace morvak {

SetsContent::SetsContent(const Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_model(new SetListModel(this)),
      m_filter(new SetFilter(this)),
      m_list(new SetList(theme))
{
    m_filter->setSourceModel(m_model);
    m_list->setObjectName(u"setList"_s);
    m_list->setModel(m_filter);
    connect(m_list, &SetList::asked, this, &SetsContent::asked);
    addStates(theme);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    for (QWidget* const state : std::initializer_list<QWidget*>{m_noShoot, m_noSets, m_nothingFound, m_list})
        column->addWidget(state);
    setLow(false);
    showState();
}

void SetsContent::addStates(const Theme& theme)
{
    m_noShoot = new EmptyState(theme, u"camera.fill"_s, tr("Maak een shoot aan om te beginnen"));
    m_noShoot->setToolTip(
        tr("Zonder shoot worden set-kaarten niet herkend, en onthoudt Morvak geen map en geen sets."));
    QPushButton* const firstShoot = m_noShoot->addButton(tr("Nieuwe Shoot"));
    firstShoot->setObjectName(u"firstShoot"_s);
    connect(firstShoot, &QPushButton::clicked, this, &SetsContent::newShootAsked);

    m_noSets = new EmptyState(theme, u"qrcode"_s, tr("Nog geen sets in deze shoot"));
    m_noSets->setToolTip(
        tr("Scan of fotografeer een set-kaart, of plak de setdata hierboven: de set komt er vanzelf bij."));
    QPushButton* const firstSet = m_noSets->addButton(tr("+ Set"));
    firstSet->setObjectName(u"firstSet"_s);
    connect(firstSet, &QPushButton::clicked, this, &SetsContent::newSetAsked);

    m_nothingFound = new EmptyState(theme, u"magnifyingglass"_s, tr("Geen set gevonden"));
    QPushButton* const showAll = m_nothingFound->addButton(tr("Toon alle sets"));
    showAll->setObjectName(u"showAllSets"_s);
    connect(showAll, &QPushButton::clicked, this, &SetsContent::allSetsAsked);
}

void SetsContent::showShoot(const std::optional<Shoot>& shoot, std::optional<QUuid> activeSetId)
{
    const std::optional<QUuid> id = shoot ? std::optional(shoot->id) : std::nullopt;
    if (std::exchange(m_shootId, id) != id)
        m_list->scrollToTop();
    m_model->setSets(shoot ? shoot->sets : QList<SetData>(), activeSetId);
    showState();
}

void SetsContent::setSearch(const QString& text)
{
    m_list->scrollToTop();
    m_filter->setSearch(SetSearch(text));
    showState();
    if (m_list->currentIndex().isValid())
        m_list->scrollTo(m_list->currentIndex());
}

bool SetsContent::shows(QUuid setId) const
{
    return m_filter->mapFromSource(m_model->indexOf(setId)).isValid();
}

void SetsContent::select(QUuid setId)
{
    m_list->setCurrentIndex(m_filter->mapFromSource(m_model->indexOf(setId)));
}

void SetsContent::setLow(bool isLow)
{
    for (EmptyState* const state : {m_noShoot, m_noSets, m_nothingFound}) {
        state->layout()->setContentsMargins({});
        state->setHint(isLow ? QString() : state->toolTip());
        for (QPushButton* const button : state->findChildren<QPushButton*>())
            button->setVisible(!isLow);
    }
}

void SetsContent::focusList()
{
    if (m_filter->rowCount() == 0)
        return;
    if (!m_list->currentIndex().isValid())
        m_list->setCurrentIndex(m_filter->index(0, 0));
    m_list->setFocus(Qt::ShortcutFocusReason);
}

void SetsContent::showState()
{
    const bool hasSets = m_model->rowCount() > 0;
    const bool hasFound = m_filter->rowCount() > 0;
    m_noShoot->setVisible(!m_shootId);
    m_noSets->setVisible(m_shootId && !hasSets);
    m_nothingFound->setVisible(hasSets && !hasFound);
    m_list->setVisible(hasFound);
}

}  // namespace morvak
