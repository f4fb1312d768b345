#include "MadeUpShoot.h"

#include "store/ShootManager.h"
#include "watch/FolderWatcher.h"

#include <QColor>
#include <QDir>
#include <QImage>

#include <array>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

SetData madeUpSet(int number)
{
    static const std::array brands{u"Noord"_s, u"Velora"_s, u"Atelier Lindgren & Zonen"_s, u"Duin"_s};
    static const std::array garments{u"Overshirt"_s, u"Chino"_s, u"Coltrui"_s, u"Trenchcoat"_s, u"Jurk"_s};
    static const std::array colors{u"navy"_s, u"ecru"_s, u"mosgroen"_s, QString()};
    const auto pick = [number](const auto& list, int step) {
        return list[std::size_t(number * step) % list.size()];
    };
    SetData set;
    set.setNumber = QString::number(number);
    set.brand = pick(brands, 3);
    for (int item = 0; item <= number % 4; ++item)
        set.items.append({.name = pick(garments, item + 1), .color = pick(colors, item + 2)});
    set.model = number % 3 == 0 ? QString() : u"Anna"_s;
    set.location = u"Studio 2"_s;
    set.taggedCount = number * 7 % 60;
    return set;
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

void fillIn(ShootManager& shoots, FolderWatcher& watcher, int sets)
{
    watcher.setShootManager(&shoots);
    if (sets == 0)
        return;
    shoots.createShoot(u"Lookbook voorjaar"_s, {}, u"Velora"_s);
    shoots.createShoot(u"Ibiza Zomer 2026"_s, u"Ibiza"_s, u"Noord"_s);
    const QUuid shoot = *shoots.activeShootId();
    for (int number = 1; number <= sets; ++number)
        shoots.addSet(shoot, madeUpSet(number));
    watcher.startWatching(QDir::tempPath());
    shoots.activateSet(shoots.activeShoot()->sets[1].id);
    watcher.applyWatchFolder(shoots.activeShoot());
    watcher.setCurrentSet(shoots.activeSet());
    photograph(watcher, *shoots.activeSet());
}

}  // namespace morvak
