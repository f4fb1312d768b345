#include "metadata/AnswerReader.h"
#include "metadata/ToolRequest.h"

#include <cstdint>
#include <cstdlib>

using morvak::AnswerReader;

namespace {

constexpr qint64 number = 7;

/// What is known of an answer must not depend on where its chunks were cut.
void compareCuts(QByteArrayView output, qsizetype size, AnswerReader::Marker place)
{
    AnswerReader whole(number, place);
    AnswerReader pieces(number, place);
    const bool ready = whole.feed(output);
    bool readyInPieces = false;
    for (qsizetype at = 0; at < output.size(); at += size)
        readyInPieces = pieces.feed(output.sliced(at, qMin(size, output.size() - at)));
    if (ready != readyInPieces || whole.output() != output || pieces.output() != output ||
        whole.succeeded() != pieces.succeeded() || whole.payload() != pieces.payload())
        std::abort();
    if (ready && !output.sliced(whole.payload().size()).startsWith(morvak::readyMarker(number)))
        std::abort();
}

}  // namespace

/// The first byte gives the size of the chunks; each byte 1 stands for the marker, which no fuzzer guesses.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    QByteArray output(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
    output.replace('\1', morvak::readyMarker(number) + '\n');
    const qsizetype chunk = data[0] + 1;
    compareCuts(output, chunk, AnswerReader::Marker::Anywhere);
    compareCuts(output, chunk, AnswerReader::Marker::AtEnd);
    return 0;
}
