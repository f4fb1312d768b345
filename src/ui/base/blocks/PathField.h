#pragma once

#include <QLineEdit>

namespace morvak {

/// A path to read, select and copy. Shortened in its middle where it does not fit, with all of it in the
/// tooltip; shown whole, and scrolled with the cursor, while it has the focus.
class PathField final : public QLineEdit {
    Q_OBJECT

public:
    explicit PathField(QWidget* parent = nullptr);

    /// An empty path shows the placeholder and takes no focus.
    void setPath(const QString& path, const QString& placeholder);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showText();

    QString m_path;
    QString m_placeholder;
};

}  // namespace morvak
