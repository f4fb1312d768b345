#pragma once

#include "platform/KeptFile.h"

#include <QObject>
#include <QTimer>

#include <chrono>

namespace morvak {

/// Writes a store into its file, and asks for another try every few seconds as long as that fails. Every save
/// that the store makes meanwhile is a try as well.
///
/// Lives on the main thread. What could not be written stays in the store: this object keeps no content.
class StoreSaver final : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::seconds usualRetry{10};

    explicit StoreSaver(QString path, std::chrono::milliseconds retryInterval = usualRetry,
                        QObject* parent = nullptr);

    /// To read the store from.
    [[nodiscard]] KeptFile& file() { return m_file; }
    [[nodiscard]] const QString& path() const { return m_file.path(); }

    /// Why the last save failed, in words; empty when it worked.
    [[nodiscard]] const QString& problem() const { return m_problem; }

    /// Whether the store holds more than its file: after a failed save, or after `noteChange`.
    [[nodiscard]] bool isBehind() const { return m_isBehind; }

    /// The whole content of the store; replaces the file.
    void write(const QByteArray& content);

    /// The store has no content that could be written, for this reason.
    void fail(const QString& reason);

    /// The store has changed and leaves saving that for later.
    void noteChange() { m_isBehind = true; }

Q_SIGNALS:
    void problemChanged();
    void saveAsked();  ///< the store shall try once more

private:
    void setProblem(const QString& problem);

    KeptFile m_file;
    QTimer m_retry;  // runs while there is a problem
    QString m_problem;
    bool m_isBehind = false;
};

}  // namespace morvak
