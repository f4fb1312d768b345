#include "ui/main/MenuBarView.h"

#include "actions/SetTexts.h"
#include "ui/base/UiServices.h"
#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/StatusDot.h"
#include "ui/base/blocks/SymbolLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "ui/main/UpdateNotice.h"
#include "watch/FolderWatcher.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace morvak {

namespace {

constexpr int panelWidth = 280;
constexpr qsizetype mostItems = 12;  // a set of sixty items must not push "Quit" off the screen

class Divider final : public QWidget {
public:
    explicit Divider(const Theme& theme) : m_theme(theme) { setFixedHeight(1); }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), m_theme.color(Role::line)); }

private:
    const Theme& m_theme;
};

/// As a list; a colour stands behind its item as it does in the set's description.
QString itemLines(const QList<SetItem>& items)
{
    QStringList lines;
    for (const SetItem& item : items.first(std::min(items.size(), mostItems)))
        lines.append(item.joined(u' '));
    if (items.size() > mostItems)
        lines.append(QStringLiteral("… +%1").arg(items.size() - mostItems));
    return lines.join(u'\n');
}

}  // namespace

MenuBarView::MenuBarView(UiServices& services, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_watching(new StatusDot(services.theme)),
      m_tagged(makeText({}, TextStyle::body, Role::secondary)),
      m_set(makeText({}, TextStyle::section, Role::text, true)),
      m_items(makeText({}, TextStyle::body, Role::text, true)),
      m_refresh([this] { showState(); })
{
    setObjectName(QStringLiteral("panel"));
    setWindowTitle(QStringLiteral("Morvak"));
    setFixedWidth(panelWidth);
    m_tagged->setObjectName(QStringLiteral("panelTagged"));
    m_set->setObjectName(QStringLiteral("panelSet"));
    m_items->setObjectName(QStringLiteral("panelItems"));

    auto* const column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetNoConstraint);
    column->setContentsMargins(metrics::windowMargin, metrics::windowMargin, metrics::windowMargin,
                               metrics::windowMargin);
    column->setSpacing(metrics::inGroup);
    addHeader(*column);
    addState(*column);
    addButtons(*column);

    observe();
    showState();
}

void MenuBarView::addHeader(QVBoxLayout& column)
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    row->addWidget(new SymbolLabel(Icons::logo(), 24));
    row->addWidget(makeText(QStringLiteral("Morvak"), TextStyle::section), 0, Qt::AlignBaseline);
    row->addWidget(makeText(u'v' + m_services.version, TextStyle::caption, Role::secondary), 0,
                   Qt::AlignBaseline);
    row->addStretch();
    column.addLayout(row);

    auto* const update = new UpdateNotice(m_services);
    setButtonKind(*update, ButtonKind::quiet);
    column.addWidget(update);
}

void MenuBarView::addState(QVBoxLayout& column)
{
    m_tagged->setFont(Theme::tabular(m_tagged->font()));
    auto* const row = new QHBoxLayout;
    row->addWidget(m_watching);
    row->addStretch();
    row->addWidget(m_tagged);
    column.addLayout(row);
    column.addWidget(m_set);
    column.addWidget(m_items);
}

void MenuBarView::addButtons(QVBoxLayout& column)
{
    const auto add = [&column](const QString& label, const QString& name) {
        QPushButton* const button = makeButton(label);
        button->setObjectName(name);
        column.addWidget(button);
        return button;
    };
    column.addWidget(new Divider(m_services.theme));
    QPushButton* const open = add(tr("Open Morvak"), QStringLiteral("openMain"));
    open->setFocus();
    connect(open, &QPushButton::clicked, this, &MenuBarView::mainWindowAsked);
    connect(add(tr("QR Generator"), QStringLiteral("openGenerator")), &QPushButton::clicked, this,
            &MenuBarView::qrGeneratorAsked);
    connect(add(tr("Stop"), QStringLiteral("stop")), &QPushButton::clicked, this, &MenuBarView::stop);
    column.addWidget(new Divider(m_services.theme));
    connect(add(tr("Quit"), QStringLiteral("quit")), &QPushButton::clicked, this, &MenuBarView::quitAsked);
}

void MenuBarView::observe()
{
    const auto refresh = [this] { m_refresh.ask(); };
    for (const auto changed : {&FolderWatcher::isWatchingChanged, &FolderWatcher::taggedCountChanged,
                               &FolderWatcher::currentSetChanged})
        connect(&m_services.watcher, changed, this, refresh);
}

void MenuBarView::showState()
{
    const FolderWatcher& watcher = m_services.watcher;
    m_watching->setActive(watcher.isWatching());
    m_tagged->setText(tr("%1 getagd").arg(watcher.taggedCount()));
    const std::optional<SetData>& set = watcher.currentSet();
    const QString name = set ? SetTexts::name(*set) : tr("Geen actieve set");
    if (m_set->text() != name)
        setTextLook(*m_set, TextStyle::section, set ? Role::text : Role::secondary);
    m_set->setText(name);
    m_items->setText(set ? itemLines(set->items) : QString());
    m_items->setVisible(!m_items->text().isEmpty());
    fitHeight();
}

void MenuBarView::fitHeight()
{
    resize(panelWidth, layout()->totalHeightForWidth(panelWidth));
}

void MenuBarView::stop()
{
    m_services.watcher.stopWatching();
    m_services.stopTool();
}

void MenuBarView::openBeside(const QRect& icon)
{
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    const QScreen* screen = QGuiApplication::screenAt(icon.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    fitHeight();
    setGeometry(panelPlace(icon, size(), screen->availableGeometry()));
    show();
    raise();
    activateWindow();
}

void MenuBarView::openAsWindow()
{
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    fitHeight();
    show();
}

bool MenuBarView::isOrdinaryWindow() const
{
    return windowType() == Qt::Window;
}

void MenuBarView::closeEvent(QCloseEvent* event)
{
    event->setAccepted(!isOrdinaryWindow());
    QMetaObject::invokeMethod(this, &MenuBarView::closeAsked, Qt::QueuedConnection);
}

void MenuBarView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    Q_EMIT hidden();
}

void MenuBarView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && isVisible() && !isOrdinaryWindow())
        hide();
}

void MenuBarView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !isOrdinaryWindow())
        hide();
    else
        QWidget::keyPressEvent(event);
}

/// A frameless window has no edge of its own.
void MenuBarView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_services.theme.color(Role::surface));
    if (isOrdinaryWindow())
        return;
    painter.setPen(m_services.theme.color(Role::line));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace morvak
