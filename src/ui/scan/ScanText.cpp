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

bool typedWithCapsLock(const QString& text)
{
    bool hasKeys = false;
    for (const QStringView line : cutAtLineBreaks(text)) {
        const std::optional<SplitText> parts = splitOnce(trimmed(line), u':');
        if (!parts)
            continue;
        const QString key = trimmed(parts->first).toString();
        if (!setTextKeys().contains(key.toUpper()))
            continue;
        if (key != key.toLower())
            return false;
        hasKeys = true;
    }
    return hasKeys;
}

}  // namespace

bool isScan(const QString& text)
{
    if (std::any_of(text.begin(), text.end(), isLineBreak))
        return true;
    const std::optional<SplitText> parts = splitOnce(trimmed(text), u':');
    return parts && parts->second;
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
