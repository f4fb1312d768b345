#pragma once

#include <QFrame>

class QButtonGroup;

namespace morvak {

/// Buttons side by side of which exactly one is down. Tab enters it at that one, the arrow keys move it.
class SegmentedSwitch final : public QFrame {
    Q_OBJECT

public:
    /// `name` is the accessible name; the first segment is down.
    SegmentedSwitch(const QString& name, const QStringList& segments, QWidget* parent = nullptr);

    [[nodiscard]] QStringList segments() const;
    [[nodiscard]] int currentIndex() const;
    /// An index that no segment has changes nothing.
    void setCurrentIndex(int index);
    void setSegmentToolTip(int index, const QString& help);

Q_SIGNALS:
    void currentIndexChanged(int index);

private:
    QButtonGroup* m_group;
};

}  // namespace morvak
