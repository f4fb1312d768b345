#include "store/StoreFile.h"

#include <cstdint>
#include <cstdlib>

/// Whatever is read can be written, and what was written reads back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace morvak;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    JsonFault fault;
    const std::optional<QList<Shoot>> shoots = decodeShoots(bytes, fault);
    if (shoots.has_value() == fault.isSet())
        std::abort();
    if (!shoots)
        return 0;
    const std::optional<QByteArray> written = encodeShoots(*shoots);
    if (!written)
        std::abort();
    const std::optional<QList<Shoot>> again = decodeShoots(*written, fault);
    if (!again || again->size() != shoots->size() || encodeShoots(*again) != written)
        std::abort();
    return 0;
}
