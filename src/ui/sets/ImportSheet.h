#pragma once

#include "ui/base/blocks/ImportFrame.h"

#include <QUuid>

namespace morvak {

struct UiServices;

/// Takes the sets of a CSV text into a shoot, and stays open to tell how many. `text` is what the sheet
/// begins with.
class ImportSheet final : public ImportFrame {
    Q_OBJECT

public:
    explicit ImportSheet(UiServices& services, QUuid shootId, QWidget* window, const QString& text = {});

private:
    Result import(const QString& text) override;

    UiServices& m_services;
    QUuid m_shootId;
};

}  // namespace morvak
