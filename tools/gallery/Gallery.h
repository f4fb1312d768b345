#pragma once

#include <QWidget>

class QVBoxLayout;

namespace morvak {

class SetActivatedBanner;
class SheetFrame;
class Theme;

/// Every building block once, in the states that differ.
class Gallery final : public QWidget {
    Q_OBJECT

public:
    explicit Gallery(Theme& theme);

private:
    void addHeader(QVBoxLayout& column);
    void addButtons(QVBoxLayout& column);
    void addCards(QVBoxLayout& column);
    void addSymbols(QVBoxLayout& column);

    Theme& m_theme;
};

/// A sheet with fields of every kind and `rows` item rows.
[[nodiscard]] SheetFrame* makeSampleSheet(const Theme& theme, QWidget* window, int rows);

}  // namespace morvak
