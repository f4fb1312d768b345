#pragma once

#include <QVariantAnimation>
#include <QWidget>

#include <optional>

namespace morvak {

class Theme;

/// Tells over the content which set has just become active. It takes no clicks and no focus.
///
/// Hangs at the top of its parent and follows the parent's width; slides in and out with a fade, at once
/// where the desktop asks for no animations.
class SetActivatedBanner final : public QWidget {
    Q_OBJECT

public:
    SetActivatedBanner(const Theme& theme, QWidget* parent);

    /// The headline to show; none takes the banner away. A new headline replaces the old one in place.
    void setHeadline(const std::optional<QString>& headline);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void place();
    void animateTo(qreal shown);
    void paintShadow(QPainter& painter, const QRectF& plate) const;

    const Theme& m_theme;
    QString m_headline;
    QVariantAnimation m_animation;
    qreal m_shown = 0;  // 0 hidden, 1 in place
    qreal m_target = 0;
};

}  // namespace morvak
