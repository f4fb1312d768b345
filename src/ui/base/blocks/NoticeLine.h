#pragma once

#include "ui/base/theme/Colors.h"

#include <QTimer>
#include <QWidget>

#include <chrono>

namespace morvak {

class ElidedLabel;

/// A line for the user.
struct Notice {
    QString text;
    Role role = Role::secondary;
};

/// One quiet line that tells something and goes away by itself. Its room is kept, so nothing jumps.
class NoticeLine final : public QWidget {
    Q_OBJECT

public:
    explicit NoticeLine(QWidget* parent = nullptr);

    /// Replaces what is being shown.
    void showNotice(const QString& text, Role role = Role::secondary,
                    std::chrono::milliseconds duration = std::chrono::seconds(5));
    void clear();
    [[nodiscard]] QString text() const;

private:
    ElidedLabel* m_label;
    QTimer m_timer;
};

}  // namespace morvak
