#include "MadeUpShoot.h"

#include "catalog/ProductCatalog.h"
#include "store/ShootFile.h"
#include "store/ShootManager.h"
#include "ui/base/UiServices.h"
#include "watch/FolderWatcher.h"

#include <QColor>
#include <QDir>
#include <QImage>

#include <array>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int manySets = 2000;
constexpr int manyProducts = 500;
constexpr int manyItems = 60;
constexpr int longestName = 200;

const std::array brands{u"Noord"_s, u"Velora"_s, u"Atelier Lindgren & Zonen"_s, u"Duin"_s};
const std::array garments{u"Overshirt"_s, u"Chino"_s, u"Coltrui"_s, u"Trenchcoat"_s, u"Jurk"_s};
const std::array colors{u"navy"_s, u"ecru"_s, u"mosgroen"_s, QString()};

template <typename List>
const QString& pick(const List& list, int number)
{
    return list[std::size_t(number) % list.size()];
}

QString longName(const QString& start)
{
    return (start + u' ').repeated(longestName).first(longestName);
}

SetData madeUpSet(int number)
{
    SetData set;
    set.setNumber = QString::number(number);
    set.brand = pick(brands, number * 3);
    for (int item = 0; item <= number % 4; ++item)
        set.items.append(
            {.name = pick(garments, number * (item + 1)), .color = pick(colors, number * (item + 2))});
    set.model = number % 3 == 0 ? QString() : u"Anna"_s;
    set.location = u"Studio 2"_s;
    set.taggedCount = number * 7 % 60;
    return set;
}

SetData overfullSet()
{
    SetData set = madeUpSet(1);
    set.brand = longName(u"Atelier Lindgren & Zonen"_s);
    set.model = longName(u"Anna"_s);
    set.location = QString(u'W').repeated(longestName);
    set.email = longName(u"anna@voorbeeld.example,"_s);
    set.items.clear();
    for (int item = 0; item < manyItems; ++item)
        set.items.append({.name = item == 0 ? longName(u"Overshirt"_s) : pick(garments, item),
                          .color = item == 1 ? longName(u"navy"_s) : pick(colors, item)});
    return set;
}

Shoot madeUpShoot(Amount amount)
{
    Shoot shoot;
    const bool much = amount == Amount::overfull;
    shoot.name = much ? longName(u"Ibiza Zomer 2026"_s) : u"Ibiza Zomer 2026"_s;
    shoot.client = much ? longName(u"Noord"_s) : u"Noord"_s;
    for (int number = much ? manySets : 8; number > 0; --number)
        shoot.sets.append(madeUpSet(number));
    if (much)
        shoot.sets.prepend(overfullSet());
    return shoot;
}

QString madeUpProducts(Amount amount)
{
    QString csv;
    const int products = amount == Amount::overfull ? manyProducts : 6;
    for (int i = 0; i < products; ++i)
        csv += u"%1 %2;%3, ecru;%4\n"_s.arg(pick(garments, i)).arg(i).arg(pick(colors, i), pick(brands, i));
    if (amount == Amount::overfull)
        csv += u"%1;%2;%3\n"_s.arg(longName(u"Overshirt"_s), longName(u"navy,"_s), longName(u"Duin"_s));
    return csv;
}

QImage photo(int hue)
{
    QImage image(600, 400, QImage::Format_RGB32);
    image.fill(QColor::fromHsl(hue, 60, 150));
    return image;
}

void photograph(FolderWatcher& watcher, const SetData& set)
{
    for (int i = 1; i <= 6; ++i) {
        const QString name = u"IMG_%1.CR3"_s.arg(1040 + i);
        watcher.addLog(u"Nieuw bestand: "_s + name, LogType::info);
        watcher.addLog(u"✅ Getagd: %1 → %2"_s.arg(name, set.headline()), LogType::success);
        watcher.appendThumbnail(photo(i * 50), name);
    }
    watcher.addLog(u"❌ Tagging mislukt: IMG_1047.CR3"_s, LogType::error);
}

}  // namespace

QString nameOf(Amount amount)
{
    return amount == Amount::nothing ? u"empty"_s : amount == Amount::usual ? u"usual"_s : u"overfull"_s;
}

void fillIn(const UiServices& services, Amount amount)
{
    ShootManager& shoots = services.shoots;
    services.watcher.setShootManager(&shoots);
    if (amount == Amount::nothing)
        return;
    shoots.createShoot(u"Lookbook voorjaar"_s, {}, u"Velora"_s);
    shoots.importShoot(*encodeShootFile(madeUpShoot(amount)));
    services.catalog.importCSV(madeUpProducts(amount), {});
    for (int i = 0; i < (amount == Amount::overfull ? manyItems : 3); ++i)
        services.catalog.addClient(i == 0 ? longName(u"Kestrum"_s) : u"Klant %1"_s.arg(i));
    services.watcher.startWatching(QDir::tempPath());
    shoots.activateSet(shoots.activeShoot()->sets[1].id);
    services.watcher.applyWatchFolder(shoots.activeShoot());
    services.watcher.setCurrentSet(shoots.activeSet());
    photograph(services.watcher, *shoots.activeSet());
}

SetData setToShow(const UiServices& services)
{
    const std::optional<Shoot> shoot = services.shoots.activeShoot();
    return shoot ? shoot->sets.constFirst() : SetData();
}

}  // namespace morvak
