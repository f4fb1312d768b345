#pragma once

#include "ui/base/theme/Theme.h"

#include <QStringList>

#include <optional>
#include <variant>

namespace morvak {

/// What the user asked for on the command line.
struct StartOptions {
    QStringList files;  ///< absolute paths
    bool exitAfterStartup = false;
    bool scanStdin = false;
    std::optional<Theme::Choice> theme;

    bool operator==(const StartOptions&) const = default;
};

/// A command line that is answered with a text instead of a start.
struct StartAnswer {
    QString text;      ///< for standard output with status 0, for standard error otherwise
    int exitCode = 0;  ///< 0: help or version; 2: the command line is not understood

    bool operator==(const StartAnswer&) const = default;
};

/// What the pure parser is told of the world.
struct StartContext {
    QString workingFolder;  ///< absolute; relative files lie in it
    QString version;
    QString shootsFile;  ///< these two are named in the help
    QString preferencesFile;
};

/// Reads a command line, without the program's name. Qt's own options (`-platform`, `-style`, ...) are to be
/// gone by then, as they are from `argv` once the application object is made; help and version are best asked
/// before that, for they need no display.
[[nodiscard]] std::variant<StartOptions, StartAnswer> parseStartOptions(const QStringList& arguments,
                                                                        const StartContext& context);

/// The arguments after the program's name, each byte kept: file names need not be valid UTF-8.
[[nodiscard]] QStringList commandLineArguments(int argc, const char* const* argv);

}  // namespace morvak
