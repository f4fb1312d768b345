// Every screen as an image, for looking at: `morvak-screens FOLDER`, with QT_SCALE_FACTOR=2 for a dense
// display. Tabs in three sizes; each sheet over the smallest window and over the usual one.

#include "MadeUpShoot.h"
#include "catalog/ProductCatalog.h"
#include "rename/RawRenameService.h"
#include "store/ShootManager.h"
#include "ui/base/DesktopDialogs.h"
#include "ui/base/UiServices.h"
#include "ui/base/theme/Theme.h"
#include "ui/catalog/CatalogImportSheet.h"
#include "ui/catalog/CatalogSheet.h"
#include "ui/catalog/ClientsSheet.h"
#include "ui/catalog/EditProductSheet.h"
#include "ui/main/MainView.h"
#include "ui/main/MenuBarView.h"
#include "ui/qr/BulkQRExportSheet.h"
#include "ui/qr/QRGeneratorView.h"
#include "ui/qr/QRSheet.h"
#include "ui/sets/CatalogPickerMenu.h"
#include "ui/sets/ImportSheet.h"
#include "ui/sets/SetSheet.h"
#include "ui/shoots/NewShootSheet.h"
#include "update/UpdateChecker.h"
#include "watch/FolderWatcher.h"

#include <QApplication>
#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>

#include <cstdio>

using namespace morvak;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// Refreshes that wait a moment, and the banner on its way in.
constexpr std::chrono::milliseconds settled = 450ms;

WatcherServices quietServices()
{
    WatcherServices services;
    services.playSound = [] {};
    services.times.bannerTime = std::chrono::hours(1);
    return services;
}

UpdateConfig knownUpdate(const QString& preferences)
{
    QSettings settings(preferences, QSettings::IniFormat);
    settings.setValue(u"update.lastKnownVersion"_s, u"1.1.0"_s);
    settings.setValue(u"update.lastKnownDownloadURL"_s, u"https://morvak.example/download"_s);
    settings.sync();
    UpdateConfig config;
    config.keyPrefix = u"update"_s;
    config.currentVersion = u"1.0.0"_s;
    config.preferencesPath = preferences;
    return config;
}

/// Some pictures have an English name, to be found beside earlier ones; every other tab gives its own.
QString pictureOf(const QString& tabTitle)
{
    static const QHash<QString, QString> english{
        {u"Watch Folder"_s, u"watch"_s}, {u"Hernoemen"_s, u"rename"_s}, {u"Handleiding"_s, u"manual"_s}};
    static const QRegularExpression notInNames(u"\\W+"_s, QRegularExpression::UseUnicodePropertiesOption);
    return english.value(tabTitle, tabTitle.toLower().replace(notInNames, u"-"_s));
}

class Screens {
public:
    Screens(const QDir& folder, Theme& theme, Amount amount)
        : m_folder(folder),
          m_shoots(m_data.filePath(u"shoots.json"_s)),
          m_catalog(m_data.filePath(u"catalog.json"_s)),
          m_watcher(quietServices()),
          m_updates(knownUpdate(m_data.filePath(u"preferences"_s))),
          m_services{m_shoots, m_watcher, m_catalog, m_updates,         theme, m_dialogs, u"1.0.0"_s,
                     [] {},    [] {},     m_rename,  [](const QUrl&) {}}
    {
        fillIn(m_services, amount);
        m_prefix = u"%1-%2"_s.arg(theme.scheme() == Scheme::dark ? u"dark"_s : u"light"_s, nameOf(amount));
    }

    void shootAll()
    {
        for (const QSize& size : {QSize(700, 500), QSize(1000, 700), QSize(2560, 1440)})
            shootTabs(size);
        for (const QSize& size : {QSize(700, 500), QSize(1000, 700)})
            shootSheets(size);
        MenuBarView panel(m_services);
        panel.openAsWindow();
        save(panel, u"panel"_s);
        QRGeneratorView generator(m_services);
        generator.show();
        save(generator, u"qr-generator"_s);
        CatalogPickerMenu picker(m_catalog, u"velora"_s);
        picker.popup({});
        save(picker, u"catalog-picker"_s);
    }

private:
    void shootTabs(const QSize& size)
    {
        MainView window(m_services);
        window.resize(size);
        window.show();
        const QStringList titles = window.tabTitles();
        for (int tab = 0; tab < titles.size(); ++tab) {
            window.setSelectedTab(tab);
            save(window, u"%1-%2"_s.arg(pictureOf(titles[tab])).arg(size.width()));
        }
    }

    void shootSheets(const QSize& size)
    {
        QWidget behind;
        behind.resize(size);
        behind.show();
        const std::optional<Shoot> shoot = m_shoots.activeShoot();
        const SetData set = setToShow(m_services);
        const QList<Product>& products = m_catalog.products();
        const Product product = products.isEmpty() ? Product() : products.constLast();
        const auto take = [&](SheetFrame&& sheet, const QString& name) {
            sheet.open();
            save(sheet, u"%1-%2"_s.arg(name).arg(size.width()));
        };
        take(NewShootSheet(m_services, &behind), u"new-shoot"_s);
        take(NewSetSheet(m_services, &behind), u"new-set"_s);
        take(EditSetSheet(m_services, set, &behind), u"edit-set"_s);
        take(ImportSheet(m_services, shoot ? shoot->id : QUuid(), &behind), u"import"_s);
        take(QRSheet(m_services, set, &behind), u"qr"_s);
        take(BulkQRExportSheet(m_services, shoot ? shoot->sets : QList<SetData>(), u"Ibiza"_s, &behind),
             u"bulk-export"_s);
        take(CatalogSheet(m_services, {}, &behind), u"catalog"_s);
        take(EditProductSheet(product, m_catalog.allBrandNames(), &behind), u"edit-product"_s);
        take(CatalogImportSheet(m_services, {}, &behind), u"catalog-import"_s);
        take(ClientsSheet(m_services, {}, &behind), u"clients"_s);
    }

    void save(QWidget& widget, const QString& name)
    {
        QEventLoop loop;
        QTimer::singleShot(settled, &loop, &QEventLoop::quit);
        loop.exec();
        const QString file = m_folder.filePath(u"%1-%2.png"_s.arg(m_prefix, name));
        if (!widget.grab().save(file))
            std::fprintf(stderr, "not written: %s\n", qPrintable(file));
    }

    QDir m_folder;
    QTemporaryDir m_data;
    ShootManager m_shoots;
    ProductCatalog m_catalog;
    FolderWatcher m_watcher;
    UpdateChecker m_updates;
    DesktopDialogs m_dialogs;
    RawRenameService m_rename{{}};
    UiServices m_services;
    QString m_prefix;
};

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments[1])) {
        std::fputs("morvak-screens FOLDER\n", stderr);
        return 2;
    }
    Theme theme;
    for (const Theme::Choice choice : {Theme::Choice::light, Theme::Choice::dark}) {
        theme.setChoice(choice);
        for (const Amount amount : {Amount::nothing, Amount::usual, Amount::overfull})
            Screens(QDir(arguments[1]), theme, amount).shootAll();
    }
    return 0;
}
