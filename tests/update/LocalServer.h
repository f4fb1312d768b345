#pragma once

#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

namespace morvak::test {

/// A web server on this machine, in the thread of the test: sends for each path the bytes it was given, and
/// closes. A path without bytes is never answered.
class LocalServer {
public:
    /// `server` may be one that encrypts.
    LocalServer(QTcpServer& server, const QString& scheme) : m_scheme(scheme), m_server(server)
    {
        QObject::connect(&server, &QTcpServer::pendingConnectionAvailable, &server, [this] {
            QTcpSocket* const socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(*socket); });
        });
        server.listen(QHostAddress::LocalHost);
    }

    void answer(const QByteArray& path, const QByteArray& bytes) { m_answers[path] = bytes; }

    [[nodiscard]] int requests() const { return m_requests; }
    [[nodiscard]] QUrl url(const QString& path) const
    {
        return QUrl(QStringLiteral("%1://127.0.0.1:%2%3").arg(m_scheme).arg(m_server.serverPort()).arg(path));
    }

private:
    void serve(QTcpSocket& socket)
    {
        ++m_requests;
        const QByteArray path = socket.readAll().split(' ').value(1);
        if (!m_answers.contains(path))
            return;
        socket.write(m_answers.value(path));
        socket.disconnectFromHost();
    }

    QString m_scheme;
    QTcpServer& m_server;
    QHash<QByteArray, QByteArray> m_answers;
    int m_requests = 0;
};

}  // namespace morvak::test
