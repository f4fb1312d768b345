#pragma once

#include <QObject>
#include <QProcess>
#include <QSet>

#include <chrono>

namespace morvak::demo {

/// The real program, run for its log: what its viewer would see is handed on line by line, and the photos
/// that were tagged are remembered. It never outlives this object, nor this process. Main thread.
class MorvakProcess final : public QObject {
    Q_OBJECT

public:
    explicit MorvakProcess(QString program);
    ~MorvakProcess() override;

    void start(const QProcessEnvironment& environment, const QStringList& arguments = {});

    /// Activates a set as a scanner would; the program must have been started to listen to its standard
    /// input.
    void scan(const QString& setText);

    /// Asks it to end; `hasEnded` tells when it has.
    void quit();

    [[nodiscard]] bool hasEnded() const { return m_process.state() == QProcess::NotRunning; }

    /// It ended by itself, with a good exit status.
    [[nodiscard]] bool endedWell() const;

    [[nodiscard]] bool isWatching(const QString& folder) const { return m_watched == folder; }
    [[nodiscard]] bool isTaggingWith(const QString& headline) const { return m_activeSet == headline; }
    [[nodiscard]] bool hasTagged(const QString& fileName) const { return m_tagged.contains(fileName); }

    /// The first line of the log that says a photo will not be tagged; empty while there is none.
    [[nodiscard]] QString refusal() const { return m_refusal; }

    [[nodiscard]] qint64 processId() const { return m_process.processId(); }

    /// What its standard error said last; for the report of a start that failed.
    [[nodiscard]] QString complaint() const { return m_complaint; }

Q_SIGNALS:
    void logged(const QString& line);

private:
    void readLines();
    void takeLine(const QString& line);

    QString m_program;
    QProcess m_process;
    QString m_watched;
    QString m_activeSet;
    QSet<QString> m_tagged;
    QString m_refusal;
    QString m_complaint;
};

}  // namespace morvak::demo
