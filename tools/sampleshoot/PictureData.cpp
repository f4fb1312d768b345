#include "sampleshoot/PictureData.h"

#include "sampleshoot/ExifTags.h"
#include "sampleshoot/TiffWriter.h"

#include <QHash>
#include <QSet>
#include <QtEndian>

namespace morvak::samples {

namespace {

std::optional<QByteArray> scanOf(const QByteArray& jpeg)
{
    constexpr uchar startOfScan = 0xda;
    qsizetype at = 2;
    while (at + 4 <= jpeg.size() && static_cast<uchar>(jpeg.at(at)) == 0xff) {
        if (static_cast<uchar>(jpeg.at(at + 1)) == startOfScan)
            return jpeg.sliced(at);
        at += 2 + qFromBigEndian<quint16>(jpeg.constData() + at + 2);
    }
    return std::nullopt;
}

/// Walks the directories of a little-endian TIFF structure and collects what their offsets point to.
class TiffReader {
public:
    explicit TiffReader(const QByteArray& file) : m_file(file) {}

    std::optional<QByteArray> pictures()
    {
        m_sound = m_file.size() >= 8;
        for (quint32 at = number(4, 4); at != 0 && m_sound && !m_seen.contains(at);)
            at = readDirectory(at);
        return m_sound ? std::optional(m_pictures) : std::nullopt;
    }

private:
    /// Collects one directory and those below it; gives the place of the next in the chain, 0 at its end.
    quint32 readDirectory(quint32 start)
    {
        m_seen.insert(start);
        const quint32 count = number(start, 2);
        QHash<quint16, QList<quint32>> fields;
        for (quint32 i = 0; i < count && m_sound; ++i)
            readField(start + 2 + 12 * i, fields);
        collect(fields.value(tag::stripOffsets), fields.value(tag::stripByteCounts));
        collect(fields.value(tag::jpegOffset), fields.value(tag::jpegLength));
        for (const quint32 child : fields.value(tag::subIfds)) {
            if (!m_seen.contains(child))
                readDirectory(child);
        }
        return number(start + 2 + 12 * count, 4);
    }

    /// Only SHORT and LONG values matter here.
    void readField(quint32 entry, QHash<quint16, QList<quint32>>& fields)
    {
        const quint32 type = number(entry + 2, 2);
        const int width = type == static_cast<quint16>(Ifd::Type::Short)  ? 2
                          : type == static_cast<quint16>(Ifd::Type::Long) ? 4
                                                                          : 0;
        if (width == 0)
            return;
        const quint32 count = number(entry + 4, 4);
        const quint32 at = quint64{count} * width <= 4 ? entry + 8 : number(entry + 8, 4);
        QList<quint32>& values = fields[static_cast<quint16>(number(entry, 2))];
        for (quint32 i = 0; i < count && m_sound; ++i)
            values.append(number(at + i * static_cast<quint32>(width), width));
    }

    void collect(const QList<quint32>& offsets, const QList<quint32>& lengths)
    {
        m_sound = m_sound && offsets.size() == lengths.size();
        for (qsizetype i = 0; i < offsets.size() && m_sound; ++i) {
            if (qint64{offsets.at(i)} + lengths.at(i) > m_file.size())
                m_sound = false;
            else
                m_pictures += m_file.sliced(offsets.at(i), lengths.at(i));
        }
    }

    quint32 number(quint32 at, int width)
    {
        if (qint64{at} + width > m_file.size()) {
            m_sound = false;
            return 0;
        }
        const char* bytes = m_file.constData() + at;
        return width == 2 ? qFromLittleEndian<quint16>(bytes) : qFromLittleEndian<quint32>(bytes);
    }

    const QByteArray& m_file;
    QSet<quint32> m_seen;
    QByteArray m_pictures;
    bool m_sound = true;
};

}  // namespace

std::optional<QByteArray> pictureData(const QByteArray& photo)
{
    if (photo.startsWith("\xff\xd8"))
        return scanOf(photo);
    if (photo.startsWith("II*"))
        return TiffReader(photo).pictures();
    return std::nullopt;
}

}  // namespace morvak::samples
