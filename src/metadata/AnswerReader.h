#pragma once

#include <QByteArray>

namespace morvak {

/// Recognises the end of exiftool's answer to one request. Fed in chunks cut anywhere; judges bytes, so
/// neither the cuts nor invalid UTF-8 matter.
class AnswerReader {
public:
    enum class Marker {
        Anywhere,  ///< seen wherever it stands: answers that are lines of text
        AtEnd,     ///< followed by its line break and nothing more: answers that are a photo's own bytes
    };

    explicit AnswerReader(qint64 requestNumber, Marker place = Marker::Anywhere);

    /// True once the marker has been seen.
    [[nodiscard]] bool feed(QByteArrayView chunk);

    /// The marker was seen and the answer does not hold "error" in any letter case.
    [[nodiscard]] bool succeeded() const;

    /// All that was fed, the marker included.
    [[nodiscard]] const QByteArray& output() const { return m_output; }

    /// What stands before the marker; empty when it was not seen.
    [[nodiscard]] QByteArray payload() const;

private:
    QByteArray m_marker;
    Marker m_place;
    QByteArray m_output;
    qsizetype m_markerAt = -1;
};

}  // namespace morvak
