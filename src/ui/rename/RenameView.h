#pragma once

#include <QWidget>

namespace morvak {

struct UiServices;

/// The tab "Hernoemen": copies tagged RAW files under names from their metadata.
class RenameView final : public QWidget {
    Q_OBJECT

public:
    explicit RenameView(UiServices& services, QWidget* parent = nullptr);
};

}  // namespace morvak
