#include "ui/base/blocks/ImportPane.h"

#include "platform/Diagnostics.h"
#include "ui/base/Dialogs.h"
#include "ui/base/blocks/Buttons.h"
#include "ui/base/blocks/TextFile.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/base/theme/Metrics.h"

#include <QAccessible>
#include <QDropEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int widestFileName = 280;

/// By its name: a widget would lose the font of the system itself.
QFont monospaced()
{
    return styledFont(QFont(QFontDatabase::systemFont(QFontDatabase::FixedFont).family()), TextStyle::body);
}

QString droppedFile(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
}

/// "%1" stands for the name of the file.
QString faultText(TextFileFault fault)
{
    switch (fault) {
        case TextFileFault::unreadable:
            return ImportPane::tr("“%1” kan niet gelezen worden.");
        case TextFileFault::empty:
            return ImportPane::tr("“%1” is leeg.");
        case TextFileFault::tooLarge:
            return ImportPane::tr("“%1” is te groot om te importeren.");
        case TextFileFault::notUtf8:
            return ImportPane::tr(
                "“%1” is geen tekst in UTF-8. Bewaar het in je spreadsheet als “CSV UTF-8”.");
    }
    Q_UNREACHABLE();
}

}  // namespace

ImportPane::ImportPane(Dialogs& dialogs, const Texts& texts, QWidget* parent)
    : QWidget(parent),
      m_dialogs(dialogs),
      m_editor(new QPlainTextEdit),
      m_result(makeText({}, TextStyle::body, Role::secondary, true))
{
    m_editor->setObjectName(u"csvText"_s);
    m_editor->setAccessibleName(tr("CSV-tekst"));
    m_editor->setFont(monospaced());
    m_editor->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_editor->setTabChangesFocus(true);
    m_editor->viewport()->installEventFilter(this);
    m_result->setObjectName(u"importResult"_s);
    QLabel* const example = makeText(texts.example, TextStyle::caption, Role::secondary, true);
    example->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QPushButton* const choose = makeButton(tr("Kies bestand..."));
    choose->setObjectName(u"chooseImportFile"_s);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::inGroup);
    column->addWidget(makeText(texts.help, TextStyle::body, Role::secondary, true));
    column->addWidget(example);
    column->addWidget(m_editor, 1);
    auto* const row = new QHBoxLayout;
    row->setSpacing(metrics::inGroup);
    row->addWidget(choose);
    row->addWidget(m_result, 1);
    column->addLayout(row);

    connect(choose, &QPushButton::clicked, this, &ImportPane::chooseFile);
    connect(m_editor, &QPlainTextEdit::textChanged, m_result, &QLabel::clear);
    connect(m_editor, &QPlainTextEdit::textChanged, this, &ImportPane::textChanged);
}

QString ImportPane::text() const
{
    return m_editor->toPlainText();
}

bool ImportPane::isEmpty() const
{
    return m_editor->document()->isEmpty();
}

QWidget* ImportPane::editor() const
{
    return m_editor;
}

void ImportPane::setText(const QString& text)
{
    m_editor->setPlainText(text);
}

void ImportPane::chooseFile()
{
    const QString path = m_dialogs.openFile(this, tr("CSV-bestand kiezen"),
                                            tr("CSV en tekst (*.csv *.txt *.tsv);;Alle bestanden (*)"));
    if (!path.isEmpty())
        takeFile(path);
}

void ImportPane::takeFile(const QString& path)
{
    const auto read = readTextFile(path);
    if (const auto* const text = std::get_if<QString>(&read)) {
        setText(*text);
        return;
    }
    const QString name =
        fontMetrics().elidedText(QFileInfo(path).fileName(), Qt::ElideMiddle, widestFileName);
    const QString told = faultText(std::get<TextFileFault>(read)).arg(name);
    diagnostic(u"⚠️ "_s + told);
    showResult(told, Role::warning);
}

void ImportPane::showResult(const QString& result, Role role)
{
    setTextLook(*m_result, TextStyle::body, role);
    m_result->setText(result);
    QAccessibleEvent alert(m_result, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

/// The editor would take a dropped file as its address.
bool ImportPane::eventFilter(QObject* watched, QEvent* event)
{
    const bool drags = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!drags && event->type() != QEvent::Drop)
        return QWidget::eventFilter(watched, event);
    auto& drop = static_cast<QDropEvent&>(*event);
    const QString file = droppedFile(drop);
    if (file.isEmpty())
        return QWidget::eventFilter(watched, event);
    drop.acceptProposedAction();
    if (!drags)
        takeFile(file);
    return true;
}

}  // namespace morvak
