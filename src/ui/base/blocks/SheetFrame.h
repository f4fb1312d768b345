#pragma once

#include "ui/base/blocks/Buttons.h"

#include <QDialog>

class QHBoxLayout;
class QLabel;
class QScrollArea;
class QVBoxLayout;

namespace morvak {

/// A sheet over a window: title, content, a row of buttons.
///
/// Modal to `window`, which may be a sheet itself, and centred on it; never higher than the window under all
/// sheets, the content scrolls instead and follows the focus. Esc cancels, Ctrl+Return presses the primary
/// button, and so does Return unless the focused field has a use for it. The first field of the content has
/// the focus when the sheet opens. Show it with `open` and hear `accepted`.
class SheetFrame : public QDialog {
    Q_OBJECT

public:
    SheetFrame(const QString& title, QWidget* window);
    ~SheetFrame() override;

    /// Where the content goes, from top to bottom.
    [[nodiscard]] QVBoxLayout* content() const { return m_content; }

    /// Right-most and filled; accepts the sheet, unless disabled. At most one.
    QPushButton* setPrimaryButton(const QString& label);
    /// Left of the primary button; rejects the sheet, as Esc does. At most one.
    QPushButton* setCancelButton(const QString& label);
    /// At the left end of the row; does nothing by itself.
    QPushButton* addSideButton(const QString& label, ButtonKind kind = ButtonKind::normal);

    /// At the left end of the row, in the room that the buttons leave.
    void addSideWidget(QWidget* widget);

    /// Beside the title; does nothing by itself. Comes behind the row of buttons for Tab, and so before the
    /// content, when it is added last.
    QPushButton* addHeadingButton(const QString& label);

    /// This part of the content is `preferred` high where there is room, and gives way down to `smallest`
    /// before the content has to scroll. At most one.
    void setGivingWay(QWidget* part, int smallest, int preferred);

    /// Width of the content; the height follows from it.
    void setContentWidth(int width);

    /// Takes the title that the sheet shows, and that its window has.
    void setTitle(const QString& title);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] const QWidget* windowBehind() const;
    [[nodiscard]] int naturalHeight() const;
    [[nodiscard]] int heightLimit() const;
    void fitToWindow();
    void revealFocus();
    void focusFirstField();

    struct GivingWay {
        QWidget* part = nullptr;
        int smallest = 0;
        int preferred = 0;
    };

    QLabel* m_title;
    QHBoxLayout* m_heading;
    QScrollArea* m_scroll;
    QVBoxLayout* m_content;
    QHBoxLayout* m_sideButtons;
    QHBoxLayout* m_mainButtons;
    QPushButton* m_primary = nullptr;
    GivingWay m_givingWay;
    int m_contentWidth = 432;
};

}  // namespace morvak
