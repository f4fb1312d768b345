#include "ui/base/theme/SymbolShape.h"

#include <QFile>
#include <QIcon>
#include <QLatin1StringView>
#include <QPainter>
#include <QStandardPaths>
#include <QSvgRenderer>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

struct Symbol {
    QLatin1StringView name;
    QLatin1StringView themeIcon;  // its freedesktop name; empty for a drawing of our own
};

constexpr std::array symbolTable{
    Symbol{"arrow.down.circle.fill"_L1, {}},
    Symbol{"arrow.right.circle.fill"_L1, {}},
    Symbol{"barcode.viewfinder"_L1, {}},
    Symbol{"camera.fill"_L1, {}},
    Symbol{"character.cursor.ibeam"_L1, {}},
    Symbol{"checkmark.circle.fill"_L1, {}},
    Symbol{"circle"_L1, {}},
    Symbol{"circle.fill"_L1, {}},
    Symbol{"doc.on.doc"_L1, "edit-copy"_L1},
    Symbol{"exclamationmark.triangle.fill"_L1, {}},
    Symbol{"folder"_L1, {}},
    Symbol{"folder.fill"_L1, {}},
    Symbol{"info.circle.fill"_L1, {}},
    Symbol{"list.bullet.rectangle"_L1, {}},
    Symbol{"list.bullet.rectangle.fill"_L1, {}},
    Symbol{"magnifyingglass"_L1, "search"_L1},
    Symbol{"minus.circle.fill"_L1, {}},
    Symbol{"pencil"_L1, "document-edit"_L1},
    Symbol{"person"_L1, {}},
    Symbol{"photo"_L1, {}},
    Symbol{"play.fill"_L1, {}},
    Symbol{"plus"_L1, {}},
    Symbol{"qrcode"_L1, {}},
    Symbol{"questionmark.circle.fill"_L1, {}},
    Symbol{"square.and.arrow.up.fill"_L1, {}},
    Symbol{"stop.fill"_L1, {}},
    Symbol{"tag.fill"_L1, {}},
    Symbol{"trash"_L1, "edit-delete"_L1},
    Symbol{"wrench.and.screwdriver.fill"_L1, "tools"_L1},
    Symbol{"xmark.circle.fill"_L1, {}},
};

QStringList iconFolders()
{
    return QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, u"icons"_s,
                                     QStandardPaths::LocateDirectory);
}

/// Breeze draws its monochrome actions on grids of 16 and of 22.
QString themeFile(QLatin1StringView name, int pixels)
{
    const bool fitsSmallGrid = pixels % 16 == 0 && pixels <= 32;
    const QStringList grids = fitsSmallGrid ? QStringList{u"16"_s, u"22"_s} : QStringList{u"22"_s, u"16"_s};
    for (const QString& grid : grids) {
        for (const QString& folder : iconFolders()) {
            const QString path = folder + u"/breeze/actions/"_s + grid + u'/' + name + u".svg"_s;
            if (QFile::exists(path))
                return path;
        }
    }
    return {};
}

QString fileOf(const Symbol& symbol, int pixels)
{
    return symbol.themeIcon.isEmpty() ? u":/morvak/symbols/"_s + symbol.name + u".svg"_s
                                      : themeFile(symbol.themeIcon, pixels);
}

}  // namespace

QStringList symbolNames()
{
    QStringList names;
    for (const Symbol& symbol : symbolTable)
        names.append(symbol.name);
    return names;
}

QImage symbolShape(const QString& symbol, int pixels)
{
    const auto* const entry = std::find_if(symbolTable.begin(), symbolTable.end(),
                                           [&](const Symbol& each) { return each.name == symbol; });
    if (entry == symbolTable.end() || pixels <= 0)
        return {};
    QImage shape(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    shape.fill(Qt::transparent);
    QSvgRenderer renderer(fileOf(*entry, pixels));
    QPainter painter(&shape);
    renderer.render(&painter);
    return shape;
}

void installIconTheme(bool dark)
{
    QStringList folders = QIcon::themeSearchPaths();
    folders += iconFolders();
    folders.removeDuplicates();
    QIcon::setThemeSearchPaths(folders);
    QIcon::setThemeName(dark ? u"breeze-dark"_s : u"breeze"_s);
    QIcon::setFallbackThemeName(u"breeze"_s);
}

}  // namespace morvak
