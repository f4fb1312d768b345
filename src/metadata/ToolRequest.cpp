#include "metadata/ToolRequest.h"

#include "platform/FileName.h"

#include <QRegularExpression>

#include <algorithm>

namespace morvak {

namespace {

constexpr int leastNumberWidth = 6;

/// As valid UTF-16: a lone surrogate becomes the replacement character.
QString wellFormed(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text.at(i).isSurrogate())
            continue;
        const bool pair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (pair)
            ++i;
        else
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

/// The tool drops one blank after the equals sign of an assignment; a second one keeps the value as it is.
void keepLeadingBlank(QString& option)
{
    static const QRegularExpression assignment(QStringLiteral("^(-[-:\\w]+#?\\s*[-+<]?= )"));
    option.replace(assignment, QStringLiteral("\\1 "));
}

QByteArray optionLine(QString option)
{
    static const QRegularExpression lineBreak(QStringLiteral("\r\n|\r|\n"));
    option.remove(QChar::Null);
    option.replace(lineBreak, QStringLiteral(" "));
    keepLeadingBlank(option);
    return wellFormed(std::move(option)).toUtf8() + '\n';
}

}  // namespace

QByteArray requestNumberText(qint64 number)
{
    return QByteArray::number(number).rightJustified(leastNumberWidth, '0');
}

QByteArray readyMarker(qint64 number)
{
    return "{ready" + requestNumberText(number) + '}';
}

bool isSendablePath(const QString& path)
{
    const auto endsLine = [](QChar c) { return c == u'\n' || c == u'\r' || c.isNull(); };
    return path.startsWith(u'/') && std::none_of(path.begin(), path.end(), endsLine);
}

std::optional<QByteArray> requestBytes(const QStringList& options, const QString& filePath, qint64 number)
{
    if (!isSendablePath(filePath))
        return std::nullopt;
    QByteArray bytes;
    for (const QString& option : options)
        bytes += optionLine(option);
    bytes += encodeFileName(filePath) + "\n-execute" + requestNumberText(number) + '\n';
    return bytes;
}

}  // namespace morvak
