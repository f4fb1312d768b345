#pragma once

#include <QObject>
#include <QStringList>

#include <chrono>
#include <memory>

class QLocalServer;
class QLocalSocket;

namespace morvak {

/// Sees to it that one Morvak runs on a store, and passes the wishes of later starts on to it.
///
/// The first start holds a lock (`flock`) on a file in the store folder, whose end is the end of the process;
/// the file tells later starts where the first one listens: an abstract Unix socket, which leaves nothing
/// behind either. Only processes of the same user are heard. Main thread; no client is ever waited for.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        First,       ///< this process is the one that runs
        HandedOver,  ///< another one runs and has taken the wish
        Failed       ///< another one runs and does not answer, or the wish is too long; `problem` says it
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

    void listen();
    void takeClients();
    void readFrom(QLocalSocket& client);

    std::chrono::milliseconds m_patience;
    std::unique_ptr<Lock> m_lock;
    QString m_problem;
    int m_clients = 0;
    std::unique_ptr<QLocalServer> m_server;
};

}  // namespace morvak
