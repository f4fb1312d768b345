#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace morvak {

/// Places its items side by side in their preferred sizes and goes on in a further row where they do not fit.
/// Items of a row are centred on each other. An item wider than the layout gets the layout's width.
class WrapLayout final : public QLayout {
public:
    explicit WrapLayout(QWidget* parent = nullptr, int horizontalSpacing = 8, int verticalSpacing = 8);
    ~WrapLayout() override;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override { return static_cast<int>(m_items.size()); }
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Placed {
        QLayoutItem* item;
        QRect rect;
    };
    [[nodiscard]] std::vector<Placed> arranged(int width) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
    int m_horizontalSpacing;
    int m_verticalSpacing;
};

}  // namespace morvak
