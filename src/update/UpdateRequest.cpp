#include "update/UpdateRequest.h"

#include <QNetworkReply>
#include <QTimer>

namespace morvak {

namespace {

QNetworkRequest requestFor(const QUrl& endpoint, const UpdateLimits& limits)
{
    QNetworkRequest request(endpoint);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(attribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(5);
    request.setTransferTimeout(static_cast<int>(limits.silence.count()));
    return request;
}

/// An error that only repeats the HTTP status comes with the whole body.
bool isComplete(QNetworkReply::NetworkError error)
{
    return error == QNetworkReply::NoError ||
           (error > QNetworkReply::UnknownProxyError && error != QNetworkReply::ProtocolUnknownError &&
            error != QNetworkReply::ProtocolFailure);
}

}  // namespace

UpdateRequest::UpdateRequest(const QUrl& endpoint, const UpdateLimits& limits)
    : m_limits(limits), m_reply(m_network.get(requestFor(endpoint, limits)))
{
    m_reply->setReadBufferSize(limits.answerBytes + 1);
    connect(m_reply, &QNetworkReply::readyRead, this, &UpdateRequest::take);
    connect(m_reply, &QNetworkReply::finished, this, &UpdateRequest::finish);
    QTimer::singleShot(limits.whole, m_reply, &QNetworkReply::abort);
}

bool UpdateRequest::isTooLarge() const
{
    return m_body.size() > m_limits.answerBytes;
}

void UpdateRequest::take()
{
    m_body += m_reply->read(m_limits.answerBytes + 1 - m_body.size());
    if (isTooLarge())
        m_reply->abort();
}

void UpdateRequest::finish()
{
    if (m_reply->isOpen())
        take();
    const QNetworkReply::NetworkError error = m_reply->error();
    if (isTooLarge())
        Q_EMIT finished(std::nullopt, QStringLiteral("te groot"));
    else if (error == QNetworkReply::OperationCanceledError)
        Q_EMIT finished(std::nullopt, QStringLiteral("niet op tijd"));
    else if (!isComplete(error))
        Q_EMIT finished(std::nullopt, m_reply->errorString());
    else
        Q_EMIT finished(m_body, {});
}

}  // namespace morvak
