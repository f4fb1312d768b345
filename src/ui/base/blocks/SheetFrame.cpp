#include "ui/base/blocks/SheetFrame.h"

#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace morvak {

namespace {

constexpr int smallestLimit = 240;
/// Room for focus rings, which a scroll area would cut at its edge.
constexpr int ringRoom = 2;

void indent(QBoxLayout& row)
{
    row.setContentsMargins(ringRoom, 0, ringRoom, 0);
}

}  // namespace

SheetFrame::SheetFrame(const QString& title, QWidget* window)
    : QDialog(window),
      m_title(makeText({}, TextStyle::title, Role::text, true)),
      m_heading(new QHBoxLayout),
      m_scroll(new QScrollArea),
      m_content(new QVBoxLayout),
      m_sideButtons(new QHBoxLayout),
      m_mainButtons(new QHBoxLayout)
{
    setWindowModality(Qt::WindowModal);
    setTitle(title);

    auto* const inside = new QWidget;
    inside->setLayout(m_content);
    inside->installEventFilter(this);
    m_content->setContentsMargins(ringRoom, ringRoom, ringRoom, ringRoom);
    m_content->setSpacing(metrics::betweenGroups);
    m_scroll->setWidget(inside);
    m_scroll->setWidgetResizable(true);
    m_scroll->setMinimumHeight(1);  // a single line may be all there is
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    indent(*m_heading);
    m_heading->setSpacing(metrics::inGroup);
    m_heading->addWidget(m_title, 1);
    auto* const buttons = new QHBoxLayout;
    indent(*buttons);
    m_sideButtons->setSpacing(metrics::inGroup);
    m_mainButtons->setSpacing(metrics::inGroup);
    buttons->addLayout(m_sideButtons);
    buttons->addStretch();
    buttons->addLayout(m_mainButtons);

    auto* const column = new QVBoxLayout(this);
    constexpr int sideMargin = metrics::sheetMargin - ringRoom;
    column->setContentsMargins(sideMargin, metrics::sheetMargin, sideMargin, metrics::sheetMargin);
    column->setSpacing(metrics::betweenGroups);
    column->addLayout(m_heading);
    column->addWidget(m_scroll, 1);
    column->addLayout(buttons);

    connect(qApp, &QApplication::focusChanged, this, &SheetFrame::revealFocus);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const shortcut = new QShortcut(QKeySequence(Qt::CTRL | key), this);
        connect(shortcut, &QShortcut::activated, this, [this] {
            if (m_primary)
                m_primary->click();
        });
    }
}

/// The focus leaves the sheet as it goes.
SheetFrame::~SheetFrame()
{
    disconnect(qApp, nullptr, this, nullptr);
}

QPushButton* SheetFrame::setPrimaryButton(const QString& label)
{
    Q_ASSERT(!m_primary);
    m_primary = makeButton(label, ButtonKind::primary);
    m_primary->setDefault(true);
    m_mainButtons->addWidget(m_primary);
    connect(m_primary, &QPushButton::clicked, this, &QDialog::accept);
    return m_primary;
}

QPushButton* SheetFrame::setCancelButton(const QString& label)
{
    QPushButton* const cancel = makeButton(label);
    m_mainButtons->insertWidget(0, cancel);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    return cancel;
}

QPushButton* SheetFrame::addSideButton(const QString& label, ButtonKind kind)
{
    QPushButton* const button = makeButton(label, kind);
    m_sideButtons->addWidget(button);
    return button;
}

void SheetFrame::addSideWidget(QWidget* widget)
{
    m_sideButtons->addWidget(widget);
}

QPushButton* SheetFrame::addHeadingButton(const QString& label)
{
    QPushButton* const button = makeButton(label);
    m_heading->addWidget(button);
    return button;
}

void SheetFrame::setGivingWay(QWidget* part, int smallest, int preferred)
{
    m_givingWay = {part, smallest, preferred};
    part->setFixedHeight(preferred);
}

void SheetFrame::setContentWidth(int width)
{
    m_contentWidth = width;
    if (isVisible())
        fitToWindow();
}

void SheetFrame::setTitle(const QString& title)
{
    m_title->setText(title);
    setWindowTitle(title);
}

bool SheetFrame::eventFilter(QObject* watched, QEvent* event)
{
    // Rows were added or removed.
    if (watched == m_scroll->widget() && event->type() == QEvent::LayoutRequest && isVisible()) {
        fitToWindow();
        revealFocus();
    }
    return QDialog::eventFilter(watched, event);
}

void SheetFrame::showEvent(QShowEvent* event)
{
    fitToWindow();
    if (const QWidget* const behind = windowBehind())
        move(behind->frameGeometry().center() - rect().center());
    if (!m_scroll->widget()->isAncestorOf(focusWidget()))
        focusFirstField();
    QDialog::showEvent(event);
}

/// Under all sheets; null without a window.
const QWidget* SheetFrame::windowBehind() const
{
    const QWidget* behind = parentWidget() ? parentWidget()->window() : nullptr;
    while (behind && qobject_cast<const SheetFrame*>(behind) && behind->parentWidget())
        behind = behind->parentWidget()->window();
    return behind;
}

int SheetFrame::naturalHeight() const
{
    const auto height = [](const QLayout& layout, int width) {
        return layout.hasHeightForWidth() ? layout.totalHeightForWidth(width)
                                          : layout.totalSizeHint().height();
    };
    // What the layout reckons for the scroll area, in whose place the whole content is to stand.
    const int reckoned = m_scroll->sizeHint().expandedTo(m_scroll->minimumSizeHint()).height();
    return height(*layout(), m_contentWidth + 2 * metrics::sheetMargin) - reckoned +
           height(*m_content, m_contentWidth + 2 * ringRoom);
}

int SheetFrame::heightLimit() const
{
    const QWidget* const behind = windowBehind();
    const int available = behind ? behind->height() : screen()->availableGeometry().height();
    return std::max(smallestLimit, available - metrics::windowMargin);
}

void SheetFrame::fitToWindow()
{
    if (const auto& [part, smallest, preferred] = m_givingWay; part) {
        const int others = naturalHeight() - part->minimumHeight();
        const int height = std::clamp(heightLimit() - others, smallest, preferred);
        if (height != part->minimumHeight())
            part->setFixedHeight(height);
    }
    resize(m_contentWidth + 2 * metrics::sheetMargin, std::min(naturalHeight(), heightLimit()));
}

void SheetFrame::revealFocus()
{
    const QWidget* const focused = focusWidget();
    const QWidget* const inside = m_scroll->widget();
    if (!focused || !inside->isAncestorOf(focused))
        return;
    const QPoint centre = focused->mapTo(inside, focused->rect().center());
    const int half = std::min(focused->height() / 2 + metrics::inGroup, m_scroll->viewport()->height() / 2);
    m_scroll->ensureVisible(centre.x(), centre.y(), 0, half);
}

void SheetFrame::focusFirstField()
{
    const QWidget* const inside = m_scroll->widget();
    for (QWidget* next = nextInFocusChain(); next != this; next = next->nextInFocusChain()) {
        if (inside->isAncestorOf(next) && (next->focusPolicy() & Qt::TabFocus) != 0 &&
            next->isEnabledTo(this) && next->isVisibleTo(this)) {
            next->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
    if (m_primary)
        m_primary->setFocus(Qt::OtherFocusReason);
}

}  // namespace morvak
