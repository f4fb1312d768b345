#pragma once

#include <QWidget>

class QStackedLayout;

namespace morvak {

class EmptyState;
class Theme;

/// A code to look at, black on white in either scheme and sharp on every display, or a placeholder that says
/// why there is none. The code can have the focus, for those who cannot see it.
class QRPreview final : public QWidget {
    Q_OBJECT

public:
    static constexpr int side = 300;  ///< of the code, in device-independent pixels

    explicit QRPreview(const Theme& theme, QWidget* parent = nullptr);

    /// `text` has a code.
    void showCode(const QString& text);
    void showPlaceholder(const QString& headline, const QString& hint = {});

private:
    class Code;

    EmptyState* m_placeholder;
    Code* m_code;
    QStackedLayout* m_layers;
};

}  // namespace morvak
