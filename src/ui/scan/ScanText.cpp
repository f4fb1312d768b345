#include "ui/scan/ScanText.h"

#include "text/Lines.h"

#include <QStringList>

#include <algorithm>

namespace morvak {

namespace {

const QStringList& setTextKeys()
{
    static const QStringList keys{QStringLiteral("SET"),      QStringLiteral("BRAND"),
                                  QStringLiteral("ITEM"),     QStringLiteral("MODEL"),
                                  QStringLiteral("LOCATION"), QStringLiteral("EMAIL")};
    return keys;
}

/// Letters without a partner that leads back to them are what Caps Lock leaves alone.
char32_t swapped(char32_t c)
{
    const char32_t other = QChar::isLower(c) ? QChar::toUpper(c) : QChar::toLower(c);
    const char32_t back = QChar::isLower(c) ? QChar::toLower(other) : QChar::toUpper(other);
    return back == c ? other : c;
}

/// The set-text keys of its lines, as they stand there.
QStringList setTextKeysIn(const QString& text)
{
    QStringList keys;
    for (const QStringView line : cutAtLineBreaks(text)) {
        const std::optional<SplitText> parts = splitOnce(trimmed(line), u':');
        const QString key = parts ? trimmed(parts->first).toString() : QString();
        if (setTextKeys().contains(key.toUpper()))
            keys.append(key);
    }
    return keys;
}

bool typedWithCapsLock(const QString& text)
{
    const QStringList keys = setTextKeysIn(text);
    return !keys.isEmpty() &&
           std::all_of(keys.begin(), keys.end(), [](const QString& key) { return key == key.toLower(); });
}

}  // namespace

bool isScan(const QString& text)
{
    if (std::any_of(text.begin(), text.end(), isLineBreak))
        return true;
    const std::optional<SplitText> parts = splitOnce(trimmed(text), u':');
    return parts && parts->second;
}

bool isSetText(const QString& text)
{
    return !setTextKeysIn(text).isEmpty();
}

QString withoutCapsLock(const QString& text)
{
    if (!typedWithCapsLock(text))
        return text;
    QList<char32_t> letters;
    for (const uint c : text.toUcs4())
        letters.append(swapped(c));
    return QString::fromUcs4(letters.constData(), letters.size());
}

}  // namespace morvak
