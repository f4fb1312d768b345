#include "Gallery.h"

#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/Card.h"
#include "ui/base/blocks/ElidedLabel.h"
#include "ui/base/blocks/EmptyState.h"
#include "ui/base/blocks/IconButton.h"
#include "ui/base/blocks/NoticeLine.h"
#include "ui/base/blocks/SegmentedSwitch.h"
#include "ui/base/blocks/SetActivatedBanner.h"
#include "ui/base/blocks/SheetFrame.h"
#include "ui/base/blocks/StatBadge.h"
#include "ui/base/blocks/StatusDot.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/blocks/WrapLayout.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

QHBoxLayout* row()
{
    auto* const layout = new QHBoxLayout;
    layout->setSpacing(metrics::betweenGroups);
    return layout;
}

QComboBox* shootPicker()
{
    auto* const box = new QComboBox;
    box->addItems({u"Ibiza Zomer 2026"_s, u"Studio"_s});
    return box;
}

}  // namespace

Gallery::Gallery(Theme& theme) : m_theme(theme)
{
    setWindowTitle(u"Morvak Gallery"_s);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::windowMargin, metrics::windowMargin, metrics::windowMargin,
                               metrics::windowMargin);
    column->setSpacing(metrics::betweenGroups);
    addHeader(*column);
    addButtons(*column);
    addCards(*column);
    addSymbols(*column);
    auto* const banner = new SetActivatedBanner(theme, this);
    banner->setHeadline(u"Set 12 — Noord"_s);
}

void Gallery::addHeader(QVBoxLayout& column)
{
    auto* const header = row();
    header->addWidget(new SymbolLabel(Icons::logo(), metrics::largeIcon));
    header->addWidget(new SymbolLabel(Icons::logo(), metrics::smallIcon));
    header->addWidget(new SymbolLabel(Icons::tray(), 22));
    header->addWidget(makeText(u"Morvak"_s, TextStyle::title));
    header->addWidget(makeText(u"v1.0.0"_s, TextStyle::caption, Role::secondary));
    header->addStretch();
    auto* const sets = new StatBadge(u"Sets"_s, Role::info);
    sets->setValue(u"12"_s);
    auto* const tagged = new StatBadge(u"Getagd"_s, Role::success);
    tagged->setValue(u"1348"_s);
    header->addWidget(sets);
    header->addWidget(tagged);
    column.addLayout(header);
    column.addWidget(new SegmentedSwitch(
        u"Tabs"_s, {u"Sets"_s, u"Watch Folder"_s, u"Hernoemen"_s, u"Log"_s, u"Handleiding"_s}));
}

void Gallery::addButtons(QVBoxLayout& column)
{
    auto* const bar = new WrapLayout;
    bar->addWidget(shootPicker());
    bar->addWidget(makeButton(u"Nieuwe Shoot"_s));
    bar->addWidget(makeButton(u"Activeer"_s, ButtonKind::primary));
    bar->addWidget(makeButton(u"Verwijderen"_s, ButtonKind::danger));
    bar->addWidget(makeButton(u"Beheer klanten"_s, ButtonKind::quiet));
    auto* const withMenu = makeButton(u"Uit catalogus  "_s);
    withMenu->setMenu(new QMenu(withMenu));
    withMenu->menu()->addAction(u"Chino"_s);
    bar->addWidget(withMenu);
    for (const ButtonKind kind : {ButtonKind::normal, ButtonKind::primary, ButtonKind::danger}) {
        QPushButton* const button = makeButton(u"Bezig..."_s, kind);
        button->setEnabled(false);
        bar->addWidget(button);
    }
    auto* const off = new IconButton(m_theme, u"trash"_s, u"Verwijderen"_s);
    off->setEnabled(false);
    bar->addWidget(new IconButton(m_theme, u"qrcode"_s, u"Toon QR-code"_s));
    bar->addWidget(new IconButton(m_theme, u"pencil"_s, u"Bewerken"_s));
    bar->addWidget(new IconButton(m_theme, u"trash"_s, u"Verwijderen"_s, nullptr, Role::danger));
    bar->addWidget(off);
    column.addLayout(bar);

    auto* const search = new QLineEdit;
    search->setPlaceholderText(u"Zoek op naam, model of item..."_s);
    search->addAction(m_theme.icons().icon(u"magnifyingglass"_s, Role::secondary),
                      QLineEdit::LeadingPosition);
    column.addWidget(search);
}

void Gallery::addCards(QVBoxLayout& column)
{
    auto* const cards = row();
    auto* const watching = new Card(m_theme, u"Watch Folder"_s, u"folder"_s);
    auto* const active = new StatusDot(m_theme);
    active->setActive(true);
    watching->content()->addWidget(active);
    watching->content()->addWidget(new StatusDot(m_theme));
    watching->content()->addWidget(new ElidedLabel(
        u"/srv/fotos/2026/Noord/Ibiza Zomer 2026/capture/een heel lange mapnaam die niet past"_s, nullptr,
        Qt::ElideMiddle));
    auto* const toggle = new QCheckBox(u"QR-code herkennen"_s);
    toggle->setChecked(true);
    watching->content()->addWidget(toggle);
    watching->content()->addWidget(new QCheckBox(u"QR-kaart verwijderen"_s));
    auto* const progress = new QProgressBar;
    progress->setTextVisible(false);
    progress->setValue(40);
    watching->content()->addWidget(progress);
    for (const Role role : {Role::success, Role::warning, Role::danger, Role::info})
        watching->content()->addWidget(
            makeText(u"✅ Getagd: IMG_0348.CR3 (%1)"_s.arg(nameOf(role)), TextStyle::body, role));
    auto* const notice = new NoticeLine;
    notice->showNotice(u"Alles bewaard"_s, Role::secondary, std::chrono::hours(1));
    watching->content()->addWidget(notice);
    watching->content()->addStretch();
    cards->addWidget(watching, 1);

    auto* const empty = new Card;
    auto* const state = new EmptyState(m_theme, u"camera.fill"_s, u"Maak een shoot aan om te beginnen"_s,
                                       u"Een shoot is de map waarin al je sets samenkomen."_s);
    state->addButton(u"Nieuwe Shoot"_s);
    empty->content()->addWidget(state);
    cards->addWidget(empty, 1);
    column.addLayout(cards, 1);
}

void Gallery::addSymbols(QVBoxLayout& column)
{
    for (const int size : {metrics::smallIcon, 24}) {
        auto* const symbols = new WrapLayout;
        for (const QString& symbol : Icons::symbols()) {
            auto* const label = new SymbolLabel(m_theme, symbol, size);
            label->setAttribute(Qt::WA_TransparentForMouseEvents, false);
            label->setToolTip(symbol);
            symbols->addWidget(label);
        }
        column.addLayout(symbols);
    }
}

SheetFrame* makeSampleSheet(const Theme& theme, QWidget* window, int rows)
{
    auto* const sheet = new SheetFrame(u"Nieuwe Set"_s, window);
    auto* const form = new QFormLayout;
    form->setVerticalSpacing(metrics::inGroup);
    form->addRow(u"Set nummer"_s, new QLineEdit(u"12"_s));
    auto* const brand = new QLineEdit;
    brand->setPlaceholderText(u"bijv. Velora"_s);
    form->addRow(u"Merk"_s, brand);
    form->addRow(u"Klant (optioneel)"_s, shootPicker());
    form->addRow(u"CSV"_s, new QPlainTextEdit(u"1;Velora;coated pants/brown"_s));
    sheet->content()->addLayout(form);
    sheet->content()->addWidget(makeText(u"Items"_s, TextStyle::section));
    for (int i = 0; i < rows; ++i) {
        auto* const item = row();
        item->setSpacing(metrics::inGroup);
        item->addWidget(new QLineEdit(u"Overshirt"_s), 2);
        item->addWidget(new QLineEdit(u"navy"_s), 1);
        item->addWidget(
            new IconButton(theme, u"minus.circle.fill"_s, u"Verwijderen"_s, nullptr, Role::secondary));
        sheet->content()->addLayout(item);
    }
    sheet->addSideButton(u"+ Item"_s);
    sheet->setPrimaryButton(u"Toevoegen"_s);
    sheet->setCancelButton(u"Annuleer"_s);
    return sheet;
}

}  // namespace morvak
