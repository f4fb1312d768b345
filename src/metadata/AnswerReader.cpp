#include "metadata/AnswerReader.h"

#include "metadata/ToolRequest.h"

#include <algorithm>

namespace morvak {

AnswerReader::AnswerReader(qint64 requestNumber, Marker place)
    : m_marker(readyMarker(requestNumber) + (place == Marker::AtEnd ? "\n" : "")), m_place(place)
{
}

bool AnswerReader::feed(QByteArrayView chunk)
{
    const qsizetype firstNew = std::max<qsizetype>(m_output.size() - m_marker.size() + 1, 0);
    m_output += chunk;
    if (m_place == Marker::AtEnd)
        m_markerAt = m_output.endsWith(m_marker) ? m_output.size() - m_marker.size() : -1;
    else if (m_markerAt < 0)
        m_markerAt = m_output.indexOf(m_marker, firstNew);
    return m_markerAt >= 0;
}

bool AnswerReader::succeeded() const
{
    return m_markerAt >= 0 && !m_output.toLower().contains("error");
}

QByteArray AnswerReader::payload() const
{
    return m_markerAt < 0 ? QByteArray() : m_output.first(m_markerAt);
}

}  // namespace morvak
