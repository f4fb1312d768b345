#include "ui/base/blocks/SetActivatedBanner.h"

#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr std::chrono::milliseconds slideTime(220);
constexpr int plateHeight = 48;
constexpr int shadowReach = 10;
constexpr float shadowOpacity = 0.025F;  // of each of the layers that add up
constexpr int bannerHeight = metrics::inGroup + plateHeight + metrics::betweenGroups;
constexpr int symbolSize = 20;

}  // namespace

SetActivatedBanner::SetActivatedBanner(const Theme& theme, QWidget* parent) : QWidget(parent), m_theme(theme)
{
    setObjectName(u"setActivatedBanner"_s);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    m_animation.setDuration(static_cast<int>(slideTime.count()));
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_shown = value.toReal();
        update();
    });
    connect(&m_animation, &QVariantAnimation::finished, this, [this] { setVisible(m_target > 0); });
    parent->installEventFilter(this);
}

void SetActivatedBanner::setHeadline(const std::optional<QString>& headline)
{
    if (!headline) {
        animateTo(0);
        return;
    }
    m_headline = headline->simplified();
    setAccessibleName(m_headline + u' ' + tr("actief"));
    place();
    raise();
    show();
    update();
    animateTo(1);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

bool SetActivatedBanner::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void SetActivatedBanner::place()
{
    setGeometry(0, 0, parentWidget()->width(), bannerHeight);
}

void SetActivatedBanner::animateTo(qreal shown)
{
    if (std::exchange(m_target, shown) == shown)
        return;
    m_animation.stop();
    if (!m_theme.animates()) {
        m_shown = shown;
        setVisible(shown > 0);
        return;
    }
    m_animation.setStartValue(m_shown);
    m_animation.setEndValue(shown);
    m_animation.start();
}

void SetActivatedBanner::paintEvent(QPaintEvent*)
{
    const QFont bold = m_theme.font(TextStyle::section);
    const QFont plain = styledFont(bold, TextStyle::body);
    const QString state = tr("actief");
    const int stateWidth = QFontMetrics(plain).horizontalAdvance(state);
    const int fixed = 2 * metrics::betweenGroups + symbolSize + 2 * metrics::inGroup + stateWidth;
    const int room = width() - 2 * metrics::windowMargin - fixed;
    const QString headline = QFontMetrics(bold).elidedText(m_headline, Qt::ElideRight, room);
    const int headlineWidth = QFontMetrics(bold).horizontalAdvance(headline);

    QRectF plate(0, metrics::inGroup, fixed + headlineWidth, plateHeight);
    plate.moveLeft((width() - plate.width()) / 2);
    plate.translate(0, (m_shown - 1) * (plateHeight + metrics::inGroup));

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_shown);
    paintShadow(painter, plate);
    painter.setBrush(m_theme.color(Role::banner));
    painter.drawRoundedRect(plate, metrics::radius, metrics::radius);

    QRectF part = plate.adjusted(metrics::betweenGroups, 0, -metrics::betweenGroups, 0);
    const int symbolTop = (plateHeight - symbolSize) / 2;
    m_theme.icons()
        .icon(u"checkmark.circle.fill"_s, Role::onBanner)
        .paint(&painter, part.toAlignedRect().x(), qRound(part.top()) + symbolTop, symbolSize, symbolSize);
    painter.setPen(m_theme.color(Role::onBanner));
    part.adjust(symbolSize + metrics::inGroup, 0, 0, 0);
    painter.setFont(bold);
    painter.drawText(part, Qt::AlignVCenter | Qt::TextSingleLine, headline);
    part.adjust(headlineWidth + metrics::inGroup, 0, 1, 0);
    painter.setFont(plain);
    painter.drawText(part, Qt::AlignVCenter | Qt::TextSingleLine, state);
}

/// Layers of growing size; where they overlap the shadow is darkest.
void SetActivatedBanner::paintShadow(QPainter& painter, const QRectF& plate) const
{
    QColor layer = m_theme.color(Role::shadow);
    layer.setAlphaF(shadowOpacity);
    painter.setPen(Qt::NoPen);
    painter.setBrush(layer);
    for (int reach = shadowReach; reach > 0; --reach) {
        const QRectF around = plate.adjusted(-reach, -reach, reach, reach).translated(0, 3);
        painter.drawRoundedRect(around, metrics::radius + reach, metrics::radius + reach);
    }
}

}  // namespace morvak
