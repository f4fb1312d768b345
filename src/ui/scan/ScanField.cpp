#include "ui/scan/ScanField.h"

#include "text/Lines.h"

#include <QDragEnterEvent>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

// A bar that somebody has typed is text. The one that stands for a line break carries an invisible WORD
// JOINER, which survives editing and tells them apart.
constexpr QChar breakMark(0x2060);

QString shownBreak()
{
    return u" |"_s + breakMark + u' ';
}

}  // namespace

ScanField::ScanField(QWidget* parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textChanged, this, &ScanField::joinLines);
}

ScanField::State ScanField::state() const
{
    if (!m_shown.isEmpty() && text() == m_shown)
        return {m_beforeScan, static_cast<int>(m_beforeScan.size()), -1, 0};
    return {text(), cursorPosition(), selectionStart(), selectionLength()};
}

void ScanField::setState(const State& state)
{
    setText(state.text);
    setCursorPosition(state.cursor);
    if (state.selectionLength > 0)
        setSelection(state.selectionStart, state.selectionLength);
}

void ScanField::showScan(const State& before, const QString& scan)
{
    setState(before);
    insert({});
    m_beforeScan = text();
    end(false);
    insert(m_beforeScan.isEmpty() ? scan : u'\n' + scan);
    m_shown = text();
}

QString ScanField::scanText() const
{
    return asLines(text());
}

QString ScanField::asOneLine(const QString& text)
{
    QString joined = text;
    joined.replace(u"\r\n"_s, u"\n"_s);
    QStringList lines;
    for (const QStringView line : cutAtLineBreaks(joined))
        lines.append(line.toString());
    return lines.join(shownBreak());
}

QString ScanField::asLines(const QString& text)
{
    QString lines = text;
    lines.replace(shownBreak(), u"\n"_s);
    lines.replace(u'|' + QString(breakMark), u"\n"_s);
    lines.replace(breakMark, u'\n');
    return lines;
}

/// However the text came in: pasted, dropped, or from an input method.
void ScanField::joinLines()
{
    const QString before = text();
    const QString after = asOneLine(before);
    if (before == after)
        return;
    const auto cursor = static_cast<int>(asOneLine(before.first(cursorPosition())).size());
    setText(after);
    setCursorPosition(cursor);
}

/// Files are for the window.
void ScanField::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        QLineEdit::dragEnterEvent(event);
}

}  // namespace morvak
