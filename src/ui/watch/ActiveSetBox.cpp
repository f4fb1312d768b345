#include "ui/watch/ActiveSetBox.h"

#include "ui/base/UiServices.h"
#include "ui/base/blocks/Card.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "watch/FolderWatcher.h"

#include <QLabel>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int itemMarker = 8;

void addLine(QVBoxLayout& box, SymbolLabel* symbol, QLabel* text)
{
    auto* const line = new QHBoxLayout;
    line->setSpacing(metrics::inGroup);
    line->addWidget(symbol);
    line->addWidget(text, 1);
    box.addLayout(line);
}

}  // namespace

ActiveSetBox::ActiveSetBox(UiServices& services, QWidget* parent) : QWidget(parent), m_services(services)
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* const card = new Card(services.theme, tr("Actieve Set"), {});
    column->addWidget(card);
    m_box = card->content();
    connect(&services.watcher, &FolderWatcher::currentSetChanged, this, &ActiveSetBox::refresh);
    connect(&services.theme, &Theme::changed, this, &ActiveSetBox::refresh);
    refresh();
}

void ActiveSetBox::refresh()
{
    const std::unique_ptr<QWidget> old(m_content);
    m_content = new QWidget;
    m_content->setObjectName(u"activeSet"_s);
    auto* const content = new QVBoxLayout(m_content);
    content->setContentsMargins(0, 0, 0, 0);
    content->setSpacing(metrics::inGroup);
    if (const std::optional<SetData>& set = m_services.watcher.currentSet())
        addSet(*content, *set);
    else
        content->addWidget(makeText(tr("Geen actieve set. Scan een QR-code of voer handmatig in via de "
                                       "'Handmatige Scan' tab."),
                                    TextStyle::body, Role::secondary, true));
    m_box->addWidget(m_content);
}

void ActiveSetBox::addSet(QVBoxLayout& box, const SetData& set) const
{
    box.addWidget(makeText(set.headline(), TextStyle::title, Role::text, true));
    if (!set.model.isEmpty())
        addLine(box, new SymbolLabel(m_services.theme, u"person"_s, metrics::smallIcon),
                makeText(set.model, TextStyle::body, Role::text, true));
    for (const SetItem& item : set.items)
        addItem(box, item);
}

void ActiveSetBox::addItem(QVBoxLayout& box, const SetItem& item) const
{
    const QString colour = item.color.isEmpty() ? QString() : u" (%1)"_s.arg(item.color);
    QLabel* const text = makeText({}, TextStyle::body, Role::text, true);
    text->setTextFormat(Qt::RichText);
    text->setText(u"%1<span style=\"color:%2\">%3</span>"_s.arg(
        item.name.toHtmlEscaped(), m_services.theme.color(Role::secondary).name(), colour.toHtmlEscaped()));
    text->setAccessibleName(item.name + colour);
    addLine(box, new SymbolLabel(m_services.theme, u"circle.fill"_s, itemMarker, Role::accent), text);
}

}  // namespace morvak
