#pragma once

#include "ui/base/theme/Colors.h"

#include <QWidget>

class QLabel;

namespace morvak {

/// A figure over its label, readable from two metres: "348" over "Getagd".
class StatBadge final : public QWidget {
    Q_OBJECT

public:
    StatBadge(const QString& label, Role valueRole, QWidget* parent = nullptr);

    void setValue(const QString& value);
    [[nodiscard]] QString value() const;

private:
    QString m_label;
    QLabel* m_value;
};

}  // namespace morvak
