#pragma once

#include <QListView>

namespace morvak {

class LogModel;
class Theme;

/// The rows of the log. Follows the newest while it is at the top; scrolled away from there, it shows on
/// what it shows while rows come in above. Rows can be selected and copied as lines of text.
class LogList final : public QListView {
    Q_OBJECT

public:
    LogList(const Theme& theme, LogModel& model, QWidget* parent = nullptr);

    /// The selected rows as they stand, a line each.
    [[nodiscard]] QString selectedText() const;

protected:
    void rowsInserted(const QModelIndex& parent, int start, int end) override;

private:
    void addActions();
};

}  // namespace morvak
