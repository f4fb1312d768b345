#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QUrl>

#include <chrono>
#include <optional>

namespace morvak {

/// How long and how large an answer may be.
struct UpdateLimits {
    std::chrono::milliseconds silence{6000};  ///< without a byte from the other side
    std::chrono::milliseconds whole{8000};
    qint64 answerBytes = 64 << 10;
};

/// One question to the publisher: an HTTP GET that keeps nothing (no cookies, no cache, no credentials), and
/// that ends within its limits. A redirect never leads from https to http.
///
/// Asks on construction, without waiting; destroying it gives the question up. Main thread.
class UpdateRequest final : public QObject {
    Q_OBJECT

public:
    UpdateRequest(const QUrl& endpoint, const UpdateLimits& limits);

Q_SIGNALS:
    /// Once. The whole body, whatever the HTTP status; none and the reason when it did not come.
    void finished(const std::optional<QByteArray>& body, const QString& reason);

private:
    [[nodiscard]] bool isTooLarge() const;
    void take();
    void finish();

    UpdateLimits m_limits;
    QNetworkAccessManager m_network;
    QNetworkReply* m_reply;  // belongs to m_network
    QByteArray m_body;
};

}  // namespace morvak
