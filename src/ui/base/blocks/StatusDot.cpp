#include "ui/base/blocks/StatusDot.h"

#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace morvak {

namespace {

constexpr int diameter = 8;
constexpr qreal ring = 1.5;

class Dot final : public QWidget {
public:
    Dot(const Theme& theme, const StatusDot& owner) : m_theme(theme), m_owner(owner)
    {
        setFixedSize(diameter, diameter);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF circle(rect());
        if (m_owner.isActive()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(m_theme.color(Role::success));
            painter.drawEllipse(circle);
        } else {
            painter.setPen(QPen(m_theme.color(Role::secondary), ring));
            painter.drawEllipse(circle.adjusted(ring / 2, ring / 2, -ring / 2, -ring / 2));
        }
    }

private:
    const Theme& m_theme;
    const StatusDot& m_owner;
};

}  // namespace

StatusDot::StatusDot(const Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_dot(new Dot(theme, *this)),
      m_label(makeText({}, TextStyle::caption, Role::secondary))
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    row->addWidget(m_dot, 0, Qt::AlignVCenter);
    row->addWidget(m_label, 1);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    showText();
}

void StatusDot::setActive(bool active)
{
    m_active = active;
    m_dot->update();
    showText();
}

void StatusDot::setStateText(const std::optional<QString>& text)
{
    m_stateText = text;
    showText();
}

QString StatusDot::text() const
{
    return m_label->text();
}

void StatusDot::showText()
{
    const QString words = m_active ? tr("Actief") : tr("Gestopt");
    m_label->setText(m_stateText.value_or(words));
    m_label->setVisible(!m_label->text().isEmpty());
    setAccessibleName(m_label->text().isEmpty() ? words : m_label->text());
}

}  // namespace morvak
