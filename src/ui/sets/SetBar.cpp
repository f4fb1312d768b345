#include "ui/sets/SetBar.h"

#include "actions/SetTexts.h"
#include "ui/base/blocks/ElidedLabel.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/shoots/SetsButtons.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace morvak {

SetBar::SetBar(const Theme& theme, SetsButtons& buttons, QWidget* parent)
    : QWidget(parent),
      m_folder(new ElidedLabel({}, nullptr, Qt::ElideMiddle)),
      m_statistics(makeText({}, TextStyle::body, Role::secondary))
{
    m_folder->setObjectName(u"watchFolderLine"_s);
    m_statistics->setObjectName(u"statistics"_s);
    setTextLook(*m_folder, TextStyle::body, Role::secondary);
    m_statistics->setFont(Theme::tabular(m_statistics->font()));

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    row->addWidget(buttons.make(SetsAction::newSet, u"newSet"_s));
    row->addWidget(buttons.make(SetsAction::openShootFile, u"openShootFile"_s));
    row->addWidget(buttons.make(SetsAction::saveShootFile, u"saveShootFile"_s));
    row->addSpacing(metrics::inGroup);
    row->addWidget(new SymbolLabel(theme, u"folder"_s, metrics::smallIcon, Role::secondary));
    row->addWidget(m_folder, 1);
    row->addSpacing(metrics::inGroup);
    row->addWidget(m_statistics);
}

void SetBar::showShoot(const std::optional<Shoot>& shoot)
{
    m_folder->setText(SetTexts::watchFolder(shoot));
    m_statistics->setText(shoot ? SetTexts::statistics(*shoot) : QString());
}

}  // namespace morvak
