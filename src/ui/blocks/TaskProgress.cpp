#include "ui/blocks/TaskProgress.h"

#include "ui/blocks/Buttons.h"
#include "ui/blocks/TextLook.h"
#include "ui/theme/Metrics.h"
#include "ui/theme/Theme.h"

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
    : QWidget(parent), m_bar(new QProgressBar), m_count(makeText({}, TextStyle::body, Role::secondary))
{
    m_bar->setTextVisible(false);
    m_bar->setFixedWidth(barWidth);
    m_bar->setAccessibleName(task);
    m_count->setFont(Theme::tabular(m_count->font()));
    QPushButton* const giveUp = makeButton(tr("Stop"));
    giveUp->setObjectName(QStringLiteral("giveUp"));
    giveUp->setToolTip(tr("Stoppen na het bestand dat nu aan de beurt is"));
    connect(giveUp, &QPushButton::clicked, this, &TaskProgress::giveUpAsked);

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::inGroup);
    row->addWidget(m_bar);
    row->addWidget(m_count);
    row->addWidget(giveUp);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    hide();
}

void TaskProgress::begin()
{
    m_bar->setRange(0, 0);
    m_count->setText({});
    show();
}

void TaskProgress::setProgress(qint64 done, qint64 total)
{
    m_bar->setRange(0, steps);
    m_bar->setValue(total > 0 ? static_cast<int>(done * steps / total) : 0);
    m_count->setText(tr("%1 van %2").arg(done).arg(total));
}

void TaskProgress::end()
{
    hide();
}

}  // namespace morvak
