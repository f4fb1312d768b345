#include "sampleshoot/TiffWriter.h"

#include <QtEndian>

#include <algorithm>

namespace morvak::samples {

namespace {

void append16(QByteArray& out, quint16 value)
{
    const quint16 little = qToLittleEndian(value);
    out.append(reinterpret_cast<const char*>(&little), sizeof little);
}

void append32(QByteArray& out, quint32 value)
{
    const quint32 little = qToLittleEndian(value);
    out.append(reinterpret_cast<const char*>(&little), sizeof little);
}

}  // namespace

void Ifd::addShorts(quint16 tag, std::initializer_list<quint16> values)
{
    Field field{.tag = tag, .type = Type::Short, .count = static_cast<quint32>(values.size())};
    for (const quint16 value : values)
        append16(field.value, value);
    m_fields.push_back(std::move(field));
}

void Ifd::addLongs(quint16 tag, std::initializer_list<quint32> values)
{
    Field field{.tag = tag, .type = Type::Long, .count = static_cast<quint32>(values.size())};
    for (const quint32 value : values)
        append32(field.value, value);
    m_fields.push_back(std::move(field));
}

void Ifd::addAscii(quint16 tag, QByteArrayView text)
{
    QByteArray terminated = text.toByteArray();
    terminated.append('\0');
    const auto count = static_cast<quint32>(terminated.size());
    m_fields.push_back({.tag = tag, .type = Type::Ascii, .count = count, .value = std::move(terminated)});
}

void Ifd::addRationals(quint16 tag, std::initializer_list<std::pair<quint32, quint32>> values, Type type)
{
    Field field{.tag = tag, .type = type, .count = static_cast<quint32>(values.size())};
    for (const auto& [numerator, denominator] : values) {
        append32(field.value, numerator);
        append32(field.value, denominator);
    }
    m_fields.push_back(std::move(field));
}

void Ifd::addBytes(quint16 tag, Type type, QByteArray bytes)
{
    const auto count = static_cast<quint32>(bytes.size());
    m_fields.push_back({.tag = tag, .type = type, .count = count, .value = std::move(bytes)});
}

void Ifd::addIfds(quint16 tag, std::vector<Ifd> ifds)
{
    const auto count = static_cast<quint32>(ifds.size());
    m_fields.push_back({.tag = tag, .type = Type::Long, .count = count, .ifds = std::move(ifds)});
}

void Ifd::addData(quint16 offsetTag, quint16 lengthTag, QByteArray data)
{
    addLongs(lengthTag, {static_cast<quint32>(data.size())});
    m_fields.push_back(
        {.tag = offsetTag, .type = Type::Long, .count = 1, .data = std::move(data), .isData = true});
}

/// Writes directories one after another, then all data, mending the offsets that were not known yet.
class TiffWriter {
public:
    QByteArray write(const std::vector<Ifd>& chain, TiffHeader header)
    {
        m_out.append("II*\0", 4);
        append32(m_out, 0);
        if (header == TiffHeader::Canon) {
            m_out.append("CR\2\0", 4);
            append32(m_out, 0);
        }
        qsizetype pointer = 4;
        quint32 last = 0;
        for (const Ifd& ifd : chain) {
            last = appendIfd(ifd);
            patch32(pointer, last);
            pointer = m_nextPointer;
        }
        if (header == TiffHeader::Canon)
            patch32(12, last);
        appendData();
        return std::move(m_out);
    }

private:
    struct Pending {
        qsizetype pointer;
        const QByteArray* data;
    };

    quint32 appendIfd(const Ifd& ifd)
    {
        std::vector<const Ifd::Field*> fields;
        for (const Ifd::Field& field : ifd.m_fields)
            fields.push_back(&field);
        std::ranges::sort(fields, {}, &Ifd::Field::tag);  // the standard wants ascending tags

        align();
        const qsizetype start = m_out.size();
        append16(m_out, static_cast<quint16>(fields.size()));
        qsizetype entry = m_out.size();
        m_out.append(static_cast<qsizetype>(12 * fields.size()) + 4, '\0');
        for (const Ifd::Field* field : fields) {
            writeField(entry, *field);
            entry += 12;
        }
        m_nextPointer = entry;
        return static_cast<quint32>(start);
    }

    void writeField(qsizetype entry, const Ifd::Field& field)
    {
        qToLittleEndian(field.tag, m_out.data() + entry);
        qToLittleEndian(static_cast<quint16>(field.type), m_out.data() + entry + 2);
        patch32(entry + 4, field.count);
        if (field.isData) {
            m_pending.push_back({entry + 8, &field.data});
            return;
        }
        QByteArray value = field.value;
        for (const Ifd& child : field.ifds)
            append32(value, appendIfd(child));
        if (value.size() <= 4) {
            std::ranges::copy(value, m_out.begin() + entry + 8);
            return;
        }
        align();
        patch32(entry + 8, static_cast<quint32>(m_out.size()));
        m_out.append(value);
    }

    void appendData()
    {
        for (const Pending& pending : m_pending) {
            align();
            patch32(pending.pointer, static_cast<quint32>(m_out.size()));
            m_out.append(*pending.data);
        }
    }

    void patch32(qsizetype at, quint32 value) { qToLittleEndian(value, m_out.data() + at); }

    /// Directories and values begin on a word boundary.
    void align()
    {
        if (m_out.size() % 2 != 0)
            m_out.append('\0');
    }

    QByteArray m_out;
    std::vector<Pending> m_pending;
    qsizetype m_nextPointer = 0;  // where the directory written last points to its successor
};

QByteArray encodeTiff(const std::vector<Ifd>& chain, TiffHeader header)
{
    return TiffWriter().write(chain, header);
}

}  // namespace morvak::samples
