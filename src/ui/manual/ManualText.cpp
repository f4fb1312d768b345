#include "ui/manual/ManualText.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("morvak::ManualText", text);
}

}  // namespace

QList<ManualSection> manualSections()
{
    return {
        {tr("1. Een Shoot aanmaken"),
         u"camera.fill"_s,
         {{tr("Ga naar de Sets-tab en klik op \"Nieuwe Shoot\".")},
          {tr("Vul een naam in (bijv. \"Ibiza Zomer 2026\"), en optioneel locatie en klant.")},
          {tr("Een Shoot is de map waarin al je Sets voor die dag/opdracht samenkomen.")}}},
        {tr("2. Sets aanmaken"),
         u"tag.fill"_s,
         {{tr("Een Set is één outfit/product-combinatie: merk, model, locatie en de items erin.")},
          {tr("Klik \"+ Set\" om handmatig een set aan te maken, of gebruik \"Uit catalogus\" om een eerder "
              "opgeslagen product te kiezen (zie punt 5).")},
          {tr("Elke set krijgt automatisch een setnummer als je er zelf geen invult.")}}},
        {tr("3. Scannen tijdens de shoot"),
         u"barcode.viewfinder"_s,
         {{tr("Drie manieren om een set te activeren tijdens het fotograferen:")},
          {tr("• USB-scanner: scan de QR-code op de setkaart, direct actief onderaan de Sets-tab.")},
          {tr("• Handmatig: typ of plak de settekst in hetzelfde veld en druk op Enter.")},
          {tr("• Automatisch uit de foto: fotografeer de geprinte QR-setkaart als eerste foto van een nieuwe "
              "set. Morvak herkent 'm automatisch uit de preview en activeert de set, geen los scanmoment "
              "nodig. Zet dit aan/uit bij \"QR-code herkennen\" op het Watch Folder-tabblad.")},
          {tr("Print een setkaart via het QR-icoontje naast een set, gebruik de losse QR Generator "
              "(menubalk) voor één losse kaart zonder shoot, of exporteer met \"Bulk QR-export\" de kaarten "
              "van een hele shoot in één keer als PDF (meerdere per A4, met snijlijnen).")}}},
        {tr("4. Watch Folder — automatisch taggen"),
         u"folder.fill"_s,
         {{tr("Ga naar de Watch Folder-tab en kies de map waar je tethersoftware (bijv. Capture One) de "
              "foto's naartoe schrijft.")},
          {tr("Zodra die map actief gewatcht wordt, tagt Morvak automatisch elke nieuwe foto met de op dat "
              "moment actieve set (merk, model, locatie, items) in zowel IPTC als XMP.")},
          {tr("Werkt met elk tethersoftware dat naar een map schrijft, geen directe koppeling nodig.")},
          {tr("Foto's van vóór een actieve set (of terwijl Morvak niet draaide) gemist? Klik \"Verwerk "
              "bestaande bestanden\": Morvak wijst elk nog-ongetagd bestand toe aan de set die op dat moment "
              "actief was, op basis van aankomsttijd. Bestanden van vóór de allereerste actieve set worden "
              "nooit gegokt en blijven ongetagd. Een vangnet, geen vaste stap.")}}},
        {tr("5. Productcatalogus"),
         u"list.bullet.rectangle.fill"_s,
         {{tr("Beheer herbruikbare producten (naam + bekende kleuren) via de \"Productcatalogus\"-knop.")},
          {tr("Bij het samenstellen van een set kies je dan \"Uit catalogus\" in plaats van steeds opnieuw "
              "te typen.")},
          {tr("Ook te vullen via CSV-import, handig bij een grote collectie in één keer.")}}},
        {tr("6. Exporteren, opslaan en delen"),
         u"square.and.arrow.up.fill"_s,
         {{tr("Import CSV, Export CSV en Export JSON staan bovenin naast Klanten. Export CSV/JSON is voor "
              "Excel of archivering.")},
          {tr("\"Open...\" en \"Bewaar...\" (naast + Set) werken met .morvak-bestanden: de hele shoot in één "
              "keer, inclusief alle sets, items en tag-aantallen.")},
          {tr("Handig als back-up, of om een in Morvak Prep voorbereide shoot over te zetten naar Morvak: "
              "exporteer daar als .morvak, open 'm hier (of dubbelklik het bestand gewoon in de Finder).")},
          {tr("Watch folder en tag-geschiedenis zijn Mac-specifiek en gaan bewust niet mee bij het openen "
              "van een .morvak-bestand.")}}},
        {tr("Problemen oplossen"),
         u"wrench.and.screwdriver.fill"_s,
         {{tr("Foto niet getagd? Check het Log-tabblad, daar staat precies waarom (geen actieve set, bestand "
              "gelocked).")},
          {tr("Bestandsnaam hergebruikt door je camera (bijv. na 9999 terug naar 0001)? Morvak herkent dit "
              "automatisch als de inhoud verandert, en waarschuwt je in de log.")}}},
    };
}

}  // namespace morvak
