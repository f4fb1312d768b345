#include "ui/watch/LogText.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

const QRegularExpression& emoji()
{
    static const QRegularExpression expression(
        uR"((?:(?:\p{Emoji_Presentation}|\p{Emoji}(?=\x{FE0F}))[\x{FE0F}\p{Emoji_Modifier}]*\x{200D}?)+)"_s);
    return expression;
}

QFont emojiFont(const QFont& textFont)
{
    QFont font = textFont;
    font.setFamilies(QStringList{u"Noto Color Emoji"_s} + textFont.families());
    return font;
}

}  // namespace

QString clockTime(const LogEntry& entry)
{
    return entry.time.time().toString(u"HH:mm:ss"_s);
}

QString logLine(const LogEntry& entry)
{
    return clockTime(entry) + u"  "_s + entry.message;
}

QString markerSymbol(LogType type)
{
    switch (type) {
        case LogType::info:
            return u"info.circle.fill"_s;
        case LogType::success:
            return u"checkmark.circle.fill"_s;
        case LogType::warning:
            return u"exclamationmark.triangle.fill"_s;
        case LogType::error:
            return u"xmark.circle.fill"_s;
    }
    return {};
}

Role markerRole(LogType type)
{
    switch (type) {
        case LogType::info:
            return Role::info;
        case LogType::success:
            return Role::success;
        case LogType::warning:
            return Role::warning;
        case LogType::error:
            return Role::danger;
    }
    return Role::text;
}

QString typeName(LogType type)
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("morvak::LogText", text); };
    switch (type) {
        case LogType::info:
            return tr("Informatie");
        case LogType::success:
            return tr("Gelukt");
        case LogType::warning:
            return tr("Waarschuwing");
        case LogType::error:
            return tr("Fout");
    }
    return {};
}

std::optional<LogEntry> newestFailure(const QList<LogEntry>& log)
{
    const auto failed = [](const LogEntry& entry) {
        return entry.type == LogType::warning || entry.type == LogType::error;
    };
    const auto found = std::find_if(log.cbegin(), log.cend(), failed);
    return found == log.cend() ? std::nullopt : std::optional(*found);
}

QString withoutSymbol(const QString& message)
{
    const QRegularExpressionMatch match = emoji().match(message, 0, QRegularExpression::NormalMatch,
                                                        QRegularExpression::AnchorAtOffsetMatchOption);
    return match.hasMatch() ? message.sliced(match.capturedEnd()).trimmed() : message;
}

QList<QTextLayout::FormatRange> emojiFormats(const QString& text, const QFont& textFont)
{
    QList<QTextLayout::FormatRange> formats;
    for (auto matches = emoji().globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        QTextCharFormat format;
        format.setFont(emojiFont(textFont));
        formats.append(
            {static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()), format});
    }
    return formats;
}

}  // namespace morvak
