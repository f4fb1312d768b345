#pragma once

#include "text/JsonFields.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace morvak {

/// What the publisher announces. A value; all of this is pure, any thread.
struct PublishedVersion {
    QString version;      ///< never empty
    QString downloadUrl;  ///< as received; a web address
};

/// Reads the publisher's answer, a JSON object with the texts `version` and `download_url`. None and the
/// fault when it is anything else, or when the address is none that a browser may be sent to.
[[nodiscard]] std::optional<PublishedVersion> parseUpdateAnswer(const QByteArray& bytes, JsonFault& fault);

/// An http or https address with a host; none when the text is no such address.
[[nodiscard]] std::optional<QUrl> webAddress(const QString& text);

}  // namespace morvak
