#include "ui/shoots/ShootBar.h"

#include "ui/base/blocks/TextLook.h"
#include "ui/base/blocks/WrapLayout.h"
#include "ui/base/theme/Metrics.h"
#include "ui/shoots/SetsButtons.h"
#include "ui/shoots/ShootPicker.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

QWidget* labelled(const QString& label, QWidget* field)
{
    auto* const group = new QWidget;
    auto* const row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    QLabel* const text = makeText(label, TextStyle::body);
    text->setBuddy(field);
    row->addWidget(text);
    row->addWidget(field);
    return group;
}

}  // namespace

ShootBar::ShootBar(ShootManager& shoots, SetsButtons& buttons, QWidget* backlogProgress, QWidget* parent)
    : QWidget(parent)
{
    auto* const bar = new WrapLayout(this);
    bar->addWidget(labelled(tr("Shoot"), new ShootPicker(shoots)));
    bar->addWidget(buttons.make(SetsAction::newShoot, u"newShoot"_s));
    bar->addWidget(buttons.make(SetsAction::deleteShoot, u"deleteShoot"_s));
    bar->addWidget(buttons.make(SetsAction::clients, u"clients"_s));
    bar->addWidget(buttons.make(SetsAction::importCsv, u"importCsv"_s));
    bar->addWidget(buttons.make(SetsAction::exportCsv, u"exportCsv"_s));
    bar->addWidget(buttons.make(SetsAction::exportJson, u"exportJson"_s));
    bar->addWidget(buttons.make(SetsAction::qrGenerator, u"qrGenerator"_s));
    bar->addWidget(buttons.make(SetsAction::bulkExport, u"bulkExport"_s));
    bar->addWidget(buttons.make(SetsAction::catalog, u"catalog"_s));
    bar->addWidget(buttons.make(SetsAction::processExisting, u"processExisting"_s));
    bar->addWidget(backlogProgress);
}

}  // namespace morvak
