#include "cards/SampleCards.h"

namespace morvak::samples {

namespace {

struct Outfit {
    const char* brand;
    const char* model;
    const char* location;
    QList<QPair<const char*, const char*>> items;
};

const QList<Outfit>& outfits()
{
    static const QList<Outfit> all{
        {"Noord", "Anna", "Studio 2", {{"Overshirt", "marine"}, {"Chino", "zand"}}},
        {"Café Léonie", "Zoë", "Den Haag", {{"Jurk", "terracotta"}, {"Tas", "cognac"}}},
        {"Velora", "Lotte", "Scheveningen", {{"Trenchcoat", "beige"}, {"Coltrui", "ecru"}, {"Laars", ""}}},
        {"Atelier Bloem & Zonen",
         "Sanne van den Berg",
         "Kasteel De Haar, Haarzuilens",
         {{"Avondjurk met sleep", "smaragdgroen"}, {"Stola", "ivoor"}, {"Pump", "goud"}, {"Clutch", "goud"}}},
        {"Łódź Denim", "Mateusz", "Studio 1", {{"Jeans", "raw indigo"}, {"T-shirt", "wit"}}},
        {"Orva", "", "", {{"Sneaker laag", "wit/gum"}}},
        {"Maison d'Été", "Chloé", "Strand Zandvoort", {{"Bikini", "koraal"}, {"Pareo", "zee"}}},
        {"Polder", "", "Studio 2", {}},
        {"Hartog",
         "Daan & Bram",
         "Dakterras",
         {{"Pak", "antraciet"}, {"Das", "bordeaux"}, {"Loafer", "zwart"}}},
    };
    return all;
}

}  // namespace

QList<SetData> sampleCards(qsizetype count)
{
    QList<SetData> sets;
    for (qsizetype i = 0; i < count; ++i) {
        const Outfit& outfit = outfits().at(i % outfits().size());
        SetData set;
        set.setNumber = QString::number(i + 1);
        set.brand = QString::fromUtf8(outfit.brand);
        set.model = QString::fromUtf8(outfit.model);
        set.location = QString::fromUtf8(outfit.location);
        for (const auto& [name, color] : outfit.items)
            set.items.append({.name = QString::fromUtf8(name), .color = QString::fromUtf8(color)});
        sets.append(set);
    }
    return sets;
}

}  // namespace morvak::samples
