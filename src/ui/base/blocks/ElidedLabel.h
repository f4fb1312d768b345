#pragma once

#include <QLabel>

namespace morvak {

/// One line of plain text that is cut with an ellipsis where it does not fit; then the tooltip has all of it.
/// Line breaks are shown as blanks. Looks are set with `setTextLook`.
class ElidedLabel final : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(const QString& text = {}, QWidget* parent = nullptr,
                         Qt::TextElideMode mode = Qt::ElideRight);

    /// Text and tooltip; hides QLabel's on purpose.
    void setText(const QString& text);

    [[nodiscard]] bool isElided() const;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] QString oneLine() const;

    Qt::TextElideMode m_mode;
};

}  // namespace morvak
