#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QStringList>

#include <chrono>
#include <memory>

class QLocalServer;
class QLocalSocket;

namespace morvak {

/// Ensures that one Morvak runs per store; later starts hand it their request.
///
/// The first start holds two things until its process ends: a lock (`flock`) on a file in the store folder,
/// and an abstract Unix socket whose name follows from the folder's path, where it listens. The lock also
/// works between machines and containers; the name also works where nothing can be written, between users,
/// and when the folder was removed and made again. The file says where the first one listens, for when
/// somebody else has the name. Only processes of the same user are heard. Main thread; no client is ever
/// waited for.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        First,       ///< this process is the one that runs
        HandedOver,  ///< another one runs and has taken the wish
        Failed       ///< another one runs and cannot be handed the wish; `problem` says why
    };

    /// `patience`: how long a later start waits for the first one to answer.
    explicit SingleInstance(const QString& storeFolder,
                            std::chrono::milliseconds patience = std::chrono::seconds(10),
                            QObject* parent = nullptr);
    ~SingleInstance() override;

    /// Becomes the one that runs, or asks the one that does to open `files` (absolute paths), or to show
    /// itself when there are none. Blocks until that is settled. Called once, before anything of the store is
    /// read; from then on, for the first one, wishes arrive with the event loop.
    [[nodiscard]] Outcome start(const QStringList& files);

    /// What went wrong, in Dutch, for the user.
    [[nodiscard]] const QString& problem() const { return m_problem; }

Q_SIGNALS:
    void activationAsked();
    void filesHandedOver(const QStringList& files);  ///< absolute paths, never empty

private:
    class Lock;
    enum class Answer { None, Taken, Refused };

    [[nodiscard]] bool becomeFirst();
    [[nodiscard]] bool listen(const QString& address);
    [[nodiscard]] Answer handOver(const QByteArray& message, QDeadlineTimer deadline) const;
    [[nodiscard]] Outcome fail(const QString& problem);
    void takeClients();
    void readFrom(QLocalSocket& client);

    std::chrono::milliseconds m_patience;
    std::unique_ptr<Lock> m_lock;
    QString m_name;  // abstract address
    QString m_problem;
    int m_clients = 0;
    std::unique_ptr<QLocalServer> m_server;
};

}  // namespace morvak
