#include "ui/blocks/ImportPane.h"

#include "platform/Diagnostics.h"
#include "ui/Dialogs.h"
#include "ui/blocks/Buttons.h"
#include "ui/blocks/NoticeLine.h"
#include "ui/blocks/TextFile.h"
#include "ui/blocks/TextLook.h"
#include "ui/theme/Metrics.h"

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

constexpr int editorHeight = 160;
constexpr std::chrono::hours untilTheTextChanges(24);

QString droppedFile(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
}

}  // namespace

ImportPane::ImportPane(Dialogs& dialogs, const Texts& texts, QWidget* parent)
    : QWidget(parent), m_dialogs(dialogs), m_editor(new QPlainTextEdit), m_notice(new NoticeLine)
{
    m_editor->setObjectName(u"csvText"_s);
    m_editor->setAccessibleName(tr("CSV-tekst"));
    m_editor->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_editor->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_editor->setTabChangesFocus(true);
    m_editor->setMinimumHeight(editorHeight);
    m_editor->viewport()->installEventFilter(this);
    m_notice->setObjectName(u"importNotice"_s);
    QLabel* const example = makeText(texts.example, TextStyle::caption, Role::secondary, true);
    example->setFont(m_editor->font());
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
    row->addWidget(m_notice, 1);
    column->addLayout(row);

    connect(choose, &QPushButton::clicked, this, &ImportPane::chooseFile);
    connect(m_editor, &QPlainTextEdit::textChanged, m_notice, &NoticeLine::clear);
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
    const QString name = QFileInfo(path).fileName();
    QString told;
    switch (std::get<TextFileFault>(read)) {
        case TextFileFault::unreadable:
            told = tr("“%1” kan niet gelezen worden.").arg(name);
            break;
        case TextFileFault::tooLarge:
            told = tr("“%1” is te groot om te importeren.").arg(name);
            break;
        case TextFileFault::notUtf8:
            told = tr("“%1” is geen tekst in UTF-8. Bewaar het in je spreadsheet als “CSV UTF-8”.").arg(name);
            break;
    }
    diagnostic(u"⚠️ "_s + told);
    m_notice->showNotice(told, Role::warning, untilTheTextChanges);
}

void ImportPane::showResult(const QString& result)
{
    m_notice->showNotice(result, Role::success, untilTheTextChanges);
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
