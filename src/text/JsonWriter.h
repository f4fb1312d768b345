#pragma once

#include <QByteArray>
#include <QLatin1StringView>
#include <QStringEncoder>
#include <QStringView>

namespace morvak {

enum class JsonLayout {
    compact,
    indented,  ///< for reading: one member or element a line; an empty list or object stays on its line
};

/// Writes JSON (RFC 8259) straight into bytes. The caller keeps the nesting right.
///
/// Strings are UTF-8; quote, backslash and control characters are escaped. So are a lone surrogate (`\udcXX`,
/// the way a file name carries a byte that is no UTF-8) and U+FEFF, which readers drop at the start of a
/// text, so that every string reads back as it was. Numbers are the shortest text that reads back as the same
/// value.
class JsonWriter {
public:
    explicit JsonWriter(JsonLayout layout = JsonLayout::compact) : m_layout(layout) {}

    void beginArray();
    void endArray();
    void beginObject();
    void endObject();
    JsonWriter& key(QLatin1StringView name);  ///< ASCII that needs no escape; its value comes next

    void text(QStringView value);
    void plainText(QLatin1StringView value);  ///< as `text`, for ASCII that needs no escape
    void integer(qint64 value);
    void number(double value);  ///< JSON has no word for infinities and NaN: they spoil the whole result
    void spoil() { m_spoiled = true; }  ///< a value cannot be written, and so nothing is

    /// An array of what `writeElement(const T&)` writes.
    template <typename List, typename Write>
    void list(const List& elements, const Write& writeElement)
    {
        beginArray();
        for (const auto& element : elements)
            writeElement(element);
        endArray();
    }

    /// Everything written so far; null when a value could not be written.
    [[nodiscard]] QByteArray take();

private:
    /// What stands before the next value or key.
    enum class Before { opening, key, element };

    char* room(qsizetype bytes);
    void setEnd(const char* end) { m_length = end - m_bytes.constData(); }
    char* element(qsizetype bytes);
    void open(char bracket);
    void close(char bracket);
    [[nodiscard]] qsizetype newLineLength() const;
    char* newLine(char* at) const;
    void appendUtf8(QStringView plain);
    void escape(char16_t unit);

    QByteArray m_bytes;  // the result with room behind it
    qsizetype m_length = 0;
    QStringEncoder m_utf8{QStringConverter::Utf8};
    JsonLayout m_layout;
    qsizetype m_depth = 0;
    Before m_before = Before::opening;
    bool m_spoiled = false;
};

}  // namespace morvak
