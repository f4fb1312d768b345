#include "app/StartOptions.h"

#include "platform/FileName.h"

#include <QCommandLineParser>
#include <QDir>
#include <QUrl>

namespace morvak {

using namespace Qt::StringLiterals;

namespace {

QString helpText(const StartContext& context)
{
    return u"Gebruik: morvak [opties] [bestand.morvak ...]\n"
           "\n"
           "Geeft elke nieuwe foto in de map van de shoot de gegevens van de actieve set mee.\n"
           "Een bestand wordt als shoot geopend; draait Morvak al, dan opent dat het.\n"
           "\n"
           "  --theme light|dark|system  licht, donker, of zoals het bureaublad\n"
           "  --scan-stdin               lees scans van de standaardinvoer; een lege regel sluit een scan "
           "af\n"
           "  --exit-after-startup       sluit af zodra Morvak gestart is (om te zien of dat lukt)\n"
           "  -h, --help                 deze tekst\n"
           "  -v, --version              het versienummer\n"
           "\n"
           "Shoots:     "_s +
           context.shootsFile + u"\nVoorkeuren: "_s + context.preferencesFile + u'\n';
}

StartAnswer notUnderstood(const QString& what)
{
    return {u"morvak: "_s + what + u"\nmorvak --help noemt de opties.\n"_s, 2};
}

std::optional<Theme::Choice> themeNamed(const QString& name)
{
    if (name == u"system")
        return Theme::Choice::system;
    if (name == u"light")
        return Theme::Choice::light;
    if (name == u"dark")
        return Theme::Choice::dark;
    return std::nullopt;
}

/// The path of a file URL (RFC 8089) of this machine; none for one of another. Escaped bytes are those of the
/// file's name.
std::optional<QString> pathOfUrl(const QString& text)
{
    const QUrl url(text);
    if (!url.isValid() || !(url.host().isEmpty() || url.host() == u"localhost") ||
        !url.path().startsWith(u'/'))
        return std::nullopt;
    return decodeFileName(QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()));
}

std::optional<QString> absolutePath(const QString& file, const QString& workingFolder)
{
    if (file.startsWith(u"file:", Qt::CaseInsensitive))
        return pathOfUrl(file);
    return file.startsWith(u'/') ? file : QDir::cleanPath(workingFolder + u'/' + file);
}

}  // namespace

std::variant<StartOptions, StartAnswer> parseStartOptions(const QStringList& arguments,
                                                          const StartContext& context)
{
    const QCommandLineOption help(QStringList{u"h"_s, u"help"_s});
    const QCommandLineOption version(QStringList{u"v"_s, u"version"_s});
    const QCommandLineOption exitAfterStartup(u"exit-after-startup"_s);
    const QCommandLineOption scanStdin(u"scan-stdin"_s);
    const QCommandLineOption theme(u"theme"_s, {}, u"name"_s);
    QCommandLineParser parser;
    parser.addOptions({help, version, exitAfterStartup, scanStdin, theme});
    const bool understood = parser.parse(QStringList(u"morvak"_s) + arguments);
    if (parser.isSet(help))
        return StartAnswer{helpText(context), 0};
    if (parser.isSet(version))
        return StartAnswer{u"Morvak "_s + context.version + u'\n', 0};
    if (const QStringList unknown = parser.unknownOptionNames(); !unknown.isEmpty())
        return notUnderstood(u"onbekende optie: "_s + unknown.constFirst());
    if (!understood)
        return notUnderstood(u"een optie heeft een waarde te veel of te weinig"_s);

    StartOptions options;
    options.exitAfterStartup = parser.isSet(exitAfterStartup);
    options.scanStdin = parser.isSet(scanStdin);
    if (parser.isSet(theme)) {
        options.theme = themeNamed(parser.value(theme));
        if (!options.theme)
            return notUnderstood(u"--theme kent light, dark en system"_s);
    }
    for (const QString& file : parser.positionalArguments()) {
        const std::optional<QString> path = absolutePath(file, context.workingFolder);
        if (!path || file.isEmpty())
            return notUnderstood(u"geen bestand van deze computer: "_s + file);
        options.files.append(*path);
    }
    return options;
}

QStringList commandLineArguments(int argc, const char* const* argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(decodeFileName(argv[i]));
    return arguments;
}

}  // namespace morvak
