#include "update/UpdateAnswer.h"

#include "text/JsonText.h"

namespace morvak {

using namespace Qt::StringLiterals;

namespace {

std::nullopt_t notUsable(QLatin1StringView key, const QString& what, JsonFault& fault)
{
    fault = {u'.' + QString(key), what};
    return std::nullopt;
}

}  // namespace

std::optional<PublishedVersion> parseUpdateAnswer(const QByteArray& bytes, JsonFault& fault)
{
    const std::optional<QJsonValue> top = parseForeignJson(bytes, fault);
    if (!top)
        return std::nullopt;
    JsonFields fields(*top, fault);
    PublishedVersion published{.version = fields.text("version"_L1),
                               .downloadUrl = fields.text("download_url"_L1)};
    if (!fields.intact())
        return std::nullopt;
    if (published.version.isEmpty())
        return notUsable("version"_L1, u"is leeg"_s, fault);
    if (!webAddress(published.downloadUrl))
        return notUsable("download_url"_L1, u"is geen webadres"_s, fault);
    return published;
}

std::optional<QUrl> webAddress(const QString& text)
{
    const QUrl url(text);
    const bool web = url.scheme() == u"http" || url.scheme() == u"https";
    return url.isValid() && web && !url.host().isEmpty() ? std::optional(url) : std::nullopt;
}

}  // namespace morvak
