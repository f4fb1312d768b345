#pragma once

#include <QListView>

namespace morvak {

class SetChoiceModel;
class Theme;

/// The sets to choose from. Takes what height there is, and makes do with little.
class SetChoiceList final : public QListView {
    Q_OBJECT

public:
    SetChoiceList(const Theme& theme, SetChoiceModel& model, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
};

}  // namespace morvak
