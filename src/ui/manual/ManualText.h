#pragma once

#include <QList>
#include <QString>

namespace morvak {

/// One paragraph.
struct ManualStep {
    QString text;
};

struct ManualSection {
    QString title;
    QString icon;  ///< a symbol name
    QList<ManualStep> content;
};

/// The manual, in the order in which it is read.
[[nodiscard]] QList<ManualSection> manualSections();

}  // namespace morvak
