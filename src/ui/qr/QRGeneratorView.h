#pragma once

#include "model/SetData.h"

#include <QWidget>

#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace morvak {

class ItemRows;
class NoticeLine;
class QRPreview;
class ReadableColumn;
struct UiServices;

/// The window that makes the code of one card without a shoot.
///
/// Shows, and copies, the code that was made last, until another is made; a PNG holds the code of the fields
/// as they are. Keeps its fields while it is closed.
class QRGeneratorView final : public QWidget {
    Q_OBJECT

public:
    explicit QRGeneratorView(UiServices& services, QWidget* parent = nullptr);

    /// Of the fields as they are now; a new record every time.
    [[nodiscard]] SetData buildSetData() const;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addFields();
    void addItems();
    void addCode();
    void addOutput();
    void addShortcuts();
    void generate();
    void showCode();
    void showCaution();

    UiServices& m_services;
    ReadableColumn* m_column;
    QLineEdit* m_setNumber;
    QLineEdit* m_brand;
    QLineEdit* m_model;
    QLineEdit* m_location;
    ItemRows* m_items;
    QRPreview* m_preview;
    QLabel* m_caution;
    QWidget* m_output;
    NoticeLine* m_notice;
    std::optional<QString> m_made;  // the text of the last code
};

}  // namespace morvak
