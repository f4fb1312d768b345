#include "sampleshoot/SampleShoot.h"

#include "sampleshoot/CardPhoto.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/StudioScene.h"

namespace morvak::samples {

namespace {

constexpr QSize wide(2400, 1600);
constexpr QSize tall(1600, 2400);
constexpr QSize screenWide(1620, 1080);  // enough where the picture is stored uncompressed
constexpr QSize screenTall(1080, 1620);

struct Shot {
    const char* suffix;
    QByteArray (*encode)(const PhotoOptions&);
    qsizetype set;
    bool isCard;
    QSize upright;
    int orientation;
    qsizetype size;
};

/// What the camera does: a card, then its set.
constexpr Shot shots[]{
    {"JPG", jpegPhoto, 0, true, wide, 1, 0},         {"JPG", jpegPhoto, 0, false, tall, 6, 3'000'000},
    {"NEF", nefPhoto, 0, false, wide, 1, 6'000'000}, {"TIF", tiffPhoto, 0, false, screenTall, 8, 0},
    {"DNG", dngPhoto, 0, false, tall, 6, 8'000'000}, {"NEF", nefPhoto, 1, true, tall, 8, 6'000'000},
    {"JPG", jpegPhoto, 1, false, wide, 1, 0},        {"CR2", cr2Photo, 1, false, tall, 6, 6'000'000},
    {"TIF", tiffPhoto, 1, false, screenWide, 3, 0},  {"ARW", arwPhoto, 1, false, tall, 8, 8'000'000},
};

SetData makeSet(const QString& number, const QString& brand, const QString& model, const QString& location,
                const QList<QPair<QString, QString>>& items)
{
    SetData set;
    set.setNumber = number;
    set.brand = brand;
    set.model = model;
    set.location = location;
    for (const auto& [name, color] : items)
        set.items.append({.name = name, .color = color});
    return set;
}

}  // namespace

Shoot shootNamed(const QString& name)
{
    Shoot shoot;
    shoot.name = name;
    return shoot;
}

Tagging sampleTagging(const QString& shootName)
{
    return {sampleSets().constFirst(), shootNamed(shootName)};
}

QList<SetData> sampleSets()
{
    return {makeSet(QStringLiteral("12"), QStringLiteral("Noord"), QStringLiteral("Anna"),
                    QStringLiteral("Studio 2"),
                    {{QStringLiteral("Overshirt"), QStringLiteral("marine")},
                     {QStringLiteral("Chino"), QStringLiteral("zand")}}),
            makeSet(QStringLiteral("13"), QStringLiteral("Café Léonie"), QStringLiteral("Zoë"),
                    QStringLiteral("Den Haag"),
                    {{QStringLiteral("Jurk"), QStringLiteral("terracotta")},
                     {QStringLiteral("Tas"), QStringLiteral("cognac")}})};
}

QList<SamplePhoto> sampleShoot(const QList<SetData>& sets)
{
    QList<SamplePhoto> photos;
    quint32 number = 0;
    for (const Shot& shot : shots) {
        ++number;
        const SetData& set = sets.at(shot.set);
        const QImage upright = shot.isCard ? cardPhoto(set, shot.upright, number)
                                           : studioScene(outfitOf(set), shot.upright, number);
        photos.append(
            {.name = QStringLiteral("MRV_%1.%2")
                         .arg(number, 4, 10, QLatin1Char('0'))
                         .arg(QLatin1String(shot.suffix)),
             .bytes = shot.encode(
                 {.upright = upright, .orientation = shot.orientation, .size = shot.size, .seed = number}),
             .set = shot.set,
             .isCard = shot.isCard});
    }
    return photos;
}

}  // namespace morvak::samples
