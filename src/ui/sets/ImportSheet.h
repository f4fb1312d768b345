#pragma once

#include <QUuid>
#include "ui/blocks/SheetFrame.h"

namespace morvak {

struct UiServices;

/// Takes the sets of a CSV text into a shoot. `text` is what the sheet begins with.
class ImportSheet final : public SheetFrame {
    Q_OBJECT

public:
    explicit ImportSheet(UiServices& services, QUuid shootId, QWidget* window, const QString& text = {});

    /// Replaces the text by that of the file, or tells that it holds none.
    void takeFile(const QString& path);
};

}  // namespace morvak
