#include "text/JsonWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace morvak {

namespace {

/// The shortest text of any double or 64-bit integer fits: sign, 17 digits, point, five zeros, exponent.
constexpr qsizetype longestNumber = 40;
constexpr qsizetype indentWidth = 2;

/// Length of the start of `text` that stands in a JSON string as it is.
qsizetype plainLength(QStringView text)
{
    qsizetype i = 0;
    while (i < text.size()) {
        const QChar c = text[i];
        if (c.unicode() < 0x20 || c == u'"' || c == u'\\' || c == QChar::ByteOrderMark)
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
    char* at = element(name.size() + 4);
    *at++ = '"';
    at = std::copy(name.begin(), name.end(), at);
    *at++ = '"';
    *at++ = ':';
    if (m_layout == JsonLayout::indented)
        *at++ = ' ';
    setEnd(at);
    m_before = Before::key;
    return *this;
}

void JsonWriter::text(QStringView value)
{
    char* const start = element(1);
    *start = '"';
    setEnd(start + 1);
    while (!value.isEmpty()) {
        const qsizetype plain = plainLength(value);
        appendUtf8(value.first(plain));
        if (plain < value.size())
            escape(value[plain].unicode());
        value = value.sliced(std::min(plain + 1, value.size()));
    }
    *room(1) = '"';
    ++m_length;
}

void JsonWriter::plainText(QLatin1StringView value)
{
    char* at = element(value.size() + 2);
    *at++ = '"';
    at = std::copy(value.begin(), value.end(), at);
    *at++ = '"';
    setEnd(at);
}

void JsonWriter::integer(qint64 value)
{
    char* const at = element(longestNumber);
    setEnd(std::to_chars(at, at + longestNumber, value).ptr);
}

void JsonWriter::number(double value)
{
    if (!std::isfinite(value)) {
        spoil();
        return;
    }
    // An exponent only where it spares a row of zeros: a date such as 700000000 stays readable.
    const double magnitude = std::abs(value);
    const bool plain = value == 0 || (magnitude >= 1e-6 && magnitude < 1e15);
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    char* const at = element(longestNumber);
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

/// Where the next value or key of so many bytes goes, set apart from what stands before it.
char* JsonWriter::element(qsizetype bytes)
{
    char* at = room(1 + newLineLength() + bytes);
    if (m_before == Before::element)
        *at++ = ',';
    if (m_before != Before::key)
        at = newLine(at);
    m_before = Before::element;
    return at;
}

void JsonWriter::open(char bracket)
{
    char* const at = element(1);
    *at = bracket;
    setEnd(at + 1);
    ++m_depth;
    m_before = Before::opening;
}

void JsonWriter::close(char bracket)
{
    --m_depth;
    char* at = room(newLineLength() + 1);
    if (m_before == Before::element)
        at = newLine(at);
    *at++ = bracket;
    setEnd(at);
    m_before = Before::element;
}

qsizetype JsonWriter::newLineLength() const
{
    return m_layout == JsonLayout::indented ? 1 + m_depth * indentWidth : 0;
}

char* JsonWriter::newLine(char* at) const
{
    if (newLineLength() == 0 || m_length == 0)
        return at;
    *at++ = '\n';
    return std::fill_n(at, m_depth * indentWidth, ' ');
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
