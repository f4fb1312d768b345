#pragma once

#include "ui/base/blocks/CopyableList.h"

namespace morvak {

class LogModel;
class Theme;

/// The rows of the log. Follows the newest while it is at the top; scrolled away from there, it shows on
/// what it shows while rows come in above.
class LogList final : public CopyableList {
    Q_OBJECT

public:
    LogList(const Theme& theme, LogModel& model, QWidget* parent = nullptr);

protected:
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
};

}  // namespace morvak
