#include "text/JsonWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace morvak {

namespace {

/// The shortest text of any double or 64-bit integer fits: sign, 17 digits, point, five zeros, exponent.
constexpr qsizetype longestNumber = 40;

/// Length of the start of `text` that stands in a JSON string as it is.
qsizetype plainLength(QStringView text)
{
    qsizetype i = 0;
    while (i < text.size()) {
        const QChar c = text[i];
        if (c.unicode() < 0x20 || c == u'"' || c == u'\\')
            break;
        if (!c.isSurrogate()) {
            ++i;
        } else if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            i += 2;
        } else {
            break;
        }
    }
    return i;
}

}  // namespace

void JsonWriter::beginArray()
{
    open('[');
}

void JsonWriter::endArray()
{
    close(']');
}

void JsonWriter::beginObject()
{
    open('{');
}

void JsonWriter::endObject()
{
    close('}');
}

JsonWriter& JsonWriter::key(QLatin1StringView name)
{
    char* at = separated(room(name.size() + 4));
    *at++ = '"';
    at = std::copy(name.begin(), name.end(), at);
    *at++ = '"';
    *at++ = ':';
    setEnd(at);
    m_needsComma = false;
    return *this;
}

void JsonWriter::text(QStringView value)
{
    open('"');
    while (!value.isEmpty()) {
        const qsizetype plain = plainLength(value);
        appendUtf8(value.first(plain));
        if (plain < value.size())
            escape(value[plain].unicode());
        value = value.sliced(std::min(plain + 1, value.size()));
    }
    close('"');
}

void JsonWriter::plainText(QLatin1StringView value)
{
    char* at = separated(room(value.size() + 3));
    *at++ = '"';
    at = std::copy(value.begin(), value.end(), at);
    *at++ = '"';
    setEnd(at);
}

void JsonWriter::integer(qint64 value)
{
    char* const at = separated(room(longestNumber + 1));
    setEnd(std::to_chars(at, at + longestNumber, value).ptr);
}

void JsonWriter::number(double value)
{
    if (!std::isfinite(value)) {
        m_spoiled = true;
        return;
    }
    // An exponent only where it spares a row of zeros: a date such as 700000000 stays readable.
    const double magnitude = std::abs(value);
    const bool plain = value == 0 || (magnitude >= 1e-6 && magnitude < 1e15);
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    char* const at = separated(room(longestNumber + 1));
    setEnd(std::to_chars(at, at + longestNumber, value, format).ptr);
}

QByteArray JsonWriter::take()
{
    m_bytes.truncate(std::exchange(m_length, 0));
    QByteArray bytes = std::exchange(m_bytes, {});
    return m_spoiled ? QByteArray() : bytes;
}

/// Where the next bytes go, with room for so many.
char* JsonWriter::room(qsizetype bytes)
{
    if (m_bytes.size() - m_length < bytes)
        m_bytes.resize(std::max(2 * m_bytes.size(), m_length + bytes));
    return m_bytes.data() + m_length;
}

char* JsonWriter::separated(char* at)
{
    if (m_needsComma)
        *at++ = ',';
    m_needsComma = true;
    return at;
}

void JsonWriter::open(char bracket)
{
    char* at = separated(room(2));
    *at++ = bracket;
    setEnd(at);
    m_needsComma = false;
}

void JsonWriter::close(char bracket)
{
    *room(1) = bracket;
    ++m_length;
    m_needsComma = true;
}

void JsonWriter::appendUtf8(QStringView plain)
{
    setEnd(m_utf8.appendToBuffer(room(m_utf8.requiredSpace(plain.size())), plain));
}

void JsonWriter::escape(char16_t unit)
{
    constexpr char hex[] = "0123456789abcdef";
    char* at = room(6);
    *at++ = '\\';
    if (unit == u'"' || unit == u'\\') {
        *at++ = static_cast<char>(unit);
    } else {
        *at++ = 'u';
        for (int shift = 12; shift >= 0; shift -= 4)
            *at++ = hex[(unit >> shift) & 0xF];
    }
    setEnd(at);
}

}  // namespace morvak
