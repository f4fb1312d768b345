#include "ui/base/blocks/TaskProgress.h"

#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace morvak {

namespace {

constexpr int barWidth = 120;
constexpr int steps = 1000;

}  // namespace

TaskProgress::TaskProgress(const QString& task, QWidget* parent)
    : QWidget(parent),
      m_bar(new QProgressBar),
      m_count(makeText({}, TextStyle::body, Role::secondary)),
      m_giveUp(makeButton(tr("Stop")))
{
    m_bar->setTextVisible(false);
    m_bar->setFixedWidth(barWidth);
    m_bar->setAccessibleName(task);
    m_count->setFont(Theme::tabular(m_count->font()));
    m_giveUp->setObjectName(QStringLiteral("giveUp"));
    m_giveUp->setToolTip(tr("Stoppen na het bestand dat nu aan de beurt is"));
    connect(m_giveUp, &QPushButton::clicked, this, &TaskProgress::giveUp);

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    row->addWidget(m_bar);
    row->addWidget(m_count);
    row->addWidget(m_giveUp);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    hide();
}

void TaskProgress::begin()
{
    m_bar->setRange(0, 0);
    m_count->setText({});
    m_giveUp->setEnabled(true);
    show();
}

void TaskProgress::setProgress(qint64 done, qint64 total)
{
    m_bar->setRange(0, steps);
    m_bar->setValue(total > 0 ? static_cast<int>(done * steps / total) : 0);
    if (!m_giveUp->isEnabled())
        return;
    const auto text = [total](qint64 count) { return tr("%1 van %2").arg(count).arg(total); };
    // The button must not move away under the pointer while the figures grow.
    m_count->setMinimumWidth(m_count->fontMetrics().horizontalAdvance(text(total)));
    m_count->setText(text(done));
}

void TaskProgress::giveUp()
{
    m_giveUp->setEnabled(false);
    m_count->setText(tr("Stopt…"));
    Q_EMIT giveUpAsked();
}

void TaskProgress::end()
{
    hide();
}

}  // namespace morvak
