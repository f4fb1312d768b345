#include "ui/watch/ThumbnailStrip.h"

#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace morvak {

namespace {

constexpr QSize fullSize(120, 80);
constexpr QSize leastSize(60, 40);
constexpr int places = 5;
constexpr int nameGap = 4;
constexpr qreal corner = 4;

int widthOf(const QSize& image)
{
    return places * image.width() + (places - 1) * metrics::inGroup;
}

}  // namespace

ThumbnailStrip::ThumbnailStrip(const Theme& theme, QWidget* parent) : QWidget(parent), m_theme(theme)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFont(theme.font(TextStyle::caption));
    setAccessibleName(tr("Laatst getagde foto's"));
}

void ThumbnailStrip::setThumbnails(const QList<FolderWatcher::NamedThumbnail>& thumbnails)
{
    m_thumbnails = thumbnails.first(std::min<qsizetype>(thumbnails.size(), places));
    QStringList names;
    for (const auto& [name, image] : std::as_const(m_thumbnails))
        names.append(name);
    setAccessibleDescription(names.join(QStringLiteral(", ")));
    update();
}

QSize ThumbnailStrip::sizeHint() const
{
    return {widthOf(fullSize), fullSize.height() + nameGap + fontMetrics().height()};
}

QSize ThumbnailStrip::minimumSizeHint() const
{
    return {widthOf(leastSize), sizeHint().height()};
}

QRectF ThumbnailStrip::imageRect(qsizetype place) const
{
    const qreal room = (width() - (places - 1) * metrics::inGroup) / qreal(places);
    const qreal wide = std::clamp<qreal>(room, leastSize.width(), fullSize.width());
    return {qreal(place) * (wide + metrics::inGroup), 0, wide, wide * fullSize.height() / fullSize.width()};
}

void ThumbnailStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    for (qsizetype place = 0; place < m_thumbnails.size(); ++place)
        paintThumbnail(painter, place);
}

void ThumbnailStrip::paintThumbnail(QPainter& painter, qsizetype place) const
{
    const auto& [name, image] = m_thumbnails.at(place);
    const QRectF rect = imageRect(place);
    QPainterPath outline;
    outline.addRoundedRect(rect, corner, corner);
    painter.save();
    painter.setClipPath(outline);
    painter.drawImage(rect, image);
    painter.restore();

    const QRectF under(rect.left(), rect.bottom() + nameGap, rect.width(), fontMetrics().height());
    painter.setPen(m_theme.color(Role::secondary));
    painter.drawText(under, Qt::AlignCenter,
                     fontMetrics().elidedText(name, Qt::ElideMiddle, static_cast<int>(rect.width())));
}

bool ThumbnailStrip::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    for (qsizetype place = 0; place < m_thumbnails.size(); ++place) {
        const QRectF rect = imageRect(place);
        if (help.pos().x() >= rect.left() && help.pos().x() <= rect.right())
            QToolTip::showText(help.globalPos(), Qt::convertFromPlainText(m_thumbnails.at(place).first),
                               this);
    }
    return true;
}

}  // namespace morvak
