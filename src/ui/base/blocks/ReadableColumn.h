#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace morvak {

/// A column that scrolls when the window is too low for it and stays readable, in the middle, when the window
/// is very wide.
class ReadableColumn final : public QScrollArea {
    Q_OBJECT

public:
    explicit ReadableColumn(const QString& name, QWidget* parent = nullptr);

    /// Where the content goes, from top to bottom, in groups.
    [[nodiscard]] QVBoxLayout* content() const { return m_content; }

    /// Scrolls as little as needed to show a part of the content, once that has found its place.
    void reveal(QWidget& part);

private:
    QVBoxLayout* m_content;
};

}  // namespace morvak
