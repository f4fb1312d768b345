#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <initializer_list>
#include <utility>
#include <vector>

namespace morvak::samples {

/// One image file directory of a TIFF structure (TIFF 6.0), filled in any order of tags.
///
/// The same structure carries TIFF pictures, the Exif block of a JPEG, camera maker notes and most RAW
/// formats.
class Ifd {
public:
    enum class Type : quint16 {
        Byte = 1,
        Ascii = 2,
        Short = 3,
        Long = 4,
        Rational = 5,
        Undefined = 7,
        SignedRational = 10
    };

    void addShorts(quint16 tag, std::initializer_list<quint16> values);
    void addLongs(quint16 tag, std::initializer_list<quint32> values);
    void addAscii(quint16 tag, QByteArrayView text);
    void addRationals(quint16 tag, std::initializer_list<std::pair<quint32, quint32>> values,
                      Type type = Type::Rational);

    /// BYTE or UNDEFINED values, as they are.
    void addBytes(quint16 tag, Type type, QByteArray bytes);

    /// A tag that points to further directories (SubIFDs, Exif IFD, a maker note's preview IFD).
    void addIfds(quint16 tag, std::vector<Ifd> ifds);

    /// A pair of tags that give place and length of data elsewhere in the file: one strip, or a JPEG.
    void addData(quint16 offsetTag, quint16 lengthTag, QByteArray data);

private:
    friend class TiffWriter;

    struct Field {
        quint16 tag = 0;
        Type type = Type::Byte;
        quint32 count = 0;
        QByteArray value{};       // little endian
        std::vector<Ifd> ifds{};  // instead of a value: offsets of these
        QByteArray data{};        // instead of a value: the offset of this
        bool isData = false;
    };

    std::vector<Field> m_fields;
};

/// The header that stands before the first directory.
enum class TiffHeader {
    Plain,  // eight bytes, TIFF 6.0
    Canon   // followed by "CR", version 2 and the place of the last directory, which holds the RAW data
};

/// The bytes of a little-endian TIFF structure with `chain` as its main directories; all data follows the
/// last directory, so the biggest block of the file is copied in one piece by whoever rewrites it.
[[nodiscard]] QByteArray encodeTiff(const std::vector<Ifd>& chain, TiffHeader header = TiffHeader::Plain);

}  // namespace morvak::samples
