#pragma once

#include <QByteArray>

#include <utility>

namespace morvak {

/// What came of asking exiftool about one photo.
struct ToolAnswer {
    enum class Kind {
        Printed,  ///< it answered, be it with nothing
        Late,     ///< it did not answer in time, or holds more tools back than may be started
        Unasked,  ///< no regular file, no tool, or the application quits
    };

    ToolAnswer(Kind without) : kind(without) {}
    ToolAnswer(QByteArray bytes) : kind(Kind::Printed), printed(std::move(bytes)) {}

    Kind kind;
    QByteArray printed;  ///< empty unless it printed something
};

}  // namespace morvak
