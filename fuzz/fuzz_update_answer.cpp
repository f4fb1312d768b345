#include "update/UpdateAnswer.h"
#include "update/UpdateChecker.h"

#include <cstdint>
#include <cstdlib>

using namespace morvak;

namespace {

void checkOrder(const QString& version, const QString& other)
{
    const bool newer = UpdateChecker::isVersion(version, other);
    const bool older = UpdateChecker::isVersion(other, version);
    if ((newer && older) || UpdateChecker::isVersion(version, version))
        std::abort();
    if (UpdateChecker::isVersion(version + QStringLiteral(".0.x"), other) != newer)
        std::abort();
}

}  // namespace

/// A usable answer has a version that stands in order with others, and an address that a browser may open.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString text = QString::fromUtf8(bytes);
    const qsizetype half = text.size() / 2;
    checkOrder(text.first(half), text.sliced(half));

    JsonFault fault;
    const std::optional<PublishedVersion> published = parseUpdateAnswer(bytes, fault);
    if (published.has_value() == fault.isSet())
        std::abort();
    if (!published)
        return 0;
    const QUrl url = webAddress(published->downloadUrl).value_or(QUrl());
    if (published->version.isEmpty() || url.host().isEmpty() || !url.scheme().startsWith(u"http"))
        std::abort();
    return 0;
}
