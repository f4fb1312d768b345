#include "store/ShootFile.h"

#include <cstdint>
#include <cstdlib>

/// Whatever is read can be written, and what was written reads back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace morvak;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    JsonFault fault;
    const std::optional<Shoot> shoot = decodeShootFile(bytes, fault);
    if (shoot.has_value() == fault.isSet())
        std::abort();
    if (!shoot)
        return 0;
    const std::optional<QByteArray> written = encodeShootFile(*shoot);
    if (!written)
        std::abort();
    const std::optional<Shoot> again = decodeShootFile(*written, fault);
    if (!again || encodeShootFile(*again) != written)
        std::abort();
    return 0;
}
