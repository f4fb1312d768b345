#include "Gallery.h"
#include "ui/base/DesktopDialogs.h"
#include "ui/base/blocks/SheetFrame.h"
#include "ui/base/theme/Theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace morvak;

namespace {

/// Longer than the banner takes to slide in.
constexpr std::chrono::milliseconds settleTime(600);

/// Of the dialog where there is one.
void saveAndQuit(QWidget& window, const QString& file)
{
    QTimer::singleShot(settleTime, &window, [&window, file] {
        QWidget* const dialog = QApplication::activeModalWidget();
        const bool saved = (dialog ? dialog : &window)->grab().save(file);
        if (!saved)
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
        QApplication::exit(saved ? 0 : 1);
    });
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCommandLineParser options;
    options.setApplicationDescription(u"Shows all building blocks of the screens in one window."_s);
    options.addHelpOption();
    options.addOption({u"shot"_s, u"Writes a picture of the window to FILE and ends."_s, u"FILE"_s});
    options.addOption({u"dark"_s, u"In the dark scheme; without it in that of the desktop."_s});
    options.addOption({u"light"_s, u"In the light scheme."_s});
    options.addOption({u"sheet"_s, u"A sheet with that many item rows over the window."_s, u"ROWS"_s});
    options.addOption({u"question"_s, u"A destructive question over the window."_s});
    options.addOption({u"chooser"_s, u"A folder chooser over the window."_s});
    options.addOption({u"size"_s, u"Size of the window."_s, u"WIDTHxHEIGHT"_s, u"1000x700"_s});
    options.process(application);

    Theme theme;
    if (options.isSet(u"dark"_s))
        theme.setChoice(Theme::Choice::dark);
    else if (options.isSet(u"light"_s))
        theme.setChoice(Theme::Choice::light);
    Gallery gallery(theme);
    const QStringList size = options.value(u"size"_s).split(u'x');
    gallery.resize(size.value(0).toInt(), size.value(1).toInt());
    gallery.show();
    if (options.isSet(u"shot"_s))
        saveAndQuit(gallery, options.value(u"shot"_s));
    if (options.isSet(u"sheet"_s))
        makeSampleSheet(theme, &gallery, options.value(u"sheet"_s).toInt())->open();
    DesktopDialogs dialogs;
    if (options.isSet(u"question"_s))
        QTimer::singleShot(0, &gallery, [&] {
            (void)dialogs.confirm(&gallery, u"Shoot \"Ibiza Zomer 2026\" verwijderen?"_s,
                                  u"Dit verwijdert de shoot en alle 12 sets erin."_s, u"Verwijderen"_s);
        });
    if (options.isSet(u"chooser"_s))
        QTimer::singleShot(0, &gallery, [&] {
            (void)dialogs.chooseFolder(&gallery, u"Kies een map"_s, u"Selecteer map"_s, {});
        });
    return QApplication::exec();
}
