#include "ui/base/blocks/SegmentedSwitch.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPushButton>

#include <algorithm>

namespace morvak {

namespace {

constexpr int rim = 2;

/// As wide as its text is when it is the chosen one, in semibold, so that nothing moves or is cut then.
class Segment final : public QPushButton {
public:
    using QPushButton::QPushButton;

    [[nodiscard]] QSize sizeHint() const override
    {
        QFont chosen = font();
        chosen.setWeight(QFont::DemiBold);
        const int wider =
            QFontMetrics(chosen).horizontalAdvance(text()) - fontMetrics().horizontalAdvance(text());
        return QPushButton::sizeHint() + QSize(std::max(wider, 0) + 1, 0);
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace

SegmentedSwitch::SegmentedSwitch(const QString& name, const QStringList& segments, QWidget* parent)
    : QFrame(parent), m_group(new QButtonGroup(this))
{
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(rim, rim, rim, rim);
    row->setSpacing(rim);
    for (const QString& segment : segments) {
        auto* const button = new Segment(segment);
        button->setCheckable(true);
        button->setAutoDefault(false);
        m_group->addButton(button, static_cast<int>(m_group->buttons().size()));
        row->addWidget(button);
    }
    setCurrentIndex(0);
    connect(m_group, &QButtonGroup::idToggled, this, [this](int index, bool down) {
        if (down)
            Q_EMIT currentIndexChanged(index);
    });
}

QStringList SegmentedSwitch::segments() const
{
    QStringList texts;
    for (int index = 0; const QAbstractButton* const button = m_group->button(index); ++index)
        texts.append(button->text());
    return texts;
}

int SegmentedSwitch::currentIndex() const
{
    return m_group->checkedId();
}

void SegmentedSwitch::setCurrentIndex(int index)
{
    if (QAbstractButton* const button = m_group->button(index))
        button->setChecked(true);
}

void SegmentedSwitch::setSegmentToolTip(int index, const QString& help)
{
    if (QAbstractButton* const button = m_group->button(index))
        button->setToolTip(help);
}

}  // namespace morvak
