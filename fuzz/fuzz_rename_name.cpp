#include "rename/RawRenameService.h"
#include "text/Lines.h"

#include <cstdint>
#include <cstdlib>

namespace {

qsizetype skip(const QList<uint>& text, qsizetype at, bool (*belongs)(char32_t))
{
    while (at < text.size() && belongs(text.at(at)))
        ++at;
    return at;
}

bool isSpace(char32_t c)
{
    return QChar::isSpace(c);
}

bool isDigit(char32_t c)
{
    return QChar::isDigit(c);
}

/// The text without a leading "Set 12," in the plainest words.
QString withoutSetPrefix(const QString& text)
{
    const QList<uint> points = text.toUcs4();
    if (!text.startsWith(u"Set"))
        return text;
    const qsizetype digits = skip(points, 3, isSpace);
    const qsizetype afterDigits = skip(points, digits, isDigit);
    const qsizetype separator = skip(points, afterDigits, isSpace);
    if (afterDigits == digits || separator == points.size() ||
        !QStringView(u",—-").contains(QChar(char16_t(points.at(separator) & 0xFFFF))) ||
        points.at(separator) > 0xFFFF)
        return text;
    const qsizetype rest = skip(points, separator + 1, isSpace);
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(points.constData()) + rest,
                             points.size() - rest);
}

}  // namespace

/// Each byte 1 stands for the start of a prefix.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QString subject = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    subject.replace(u'\1', QStringLiteral("Set 1"));
    const QString text = morvak::trimmed(subject).toString();
    const QString expected = text == u"-" ? QString() : morvak::trimmed(withoutSetPrefix(text)).toString();
    const std::optional<QString> name = morvak::RawRenameService::name(subject);
    if (name.has_value() == expected.isEmpty() || name.value_or(QString()) != expected)
        std::abort();
    return 0;
}
