#pragma once

#include "driver/Pacer.h"
#include "driver/Profile.h"
#include "model/SetData.h"

#include <QObject>
#include <QProcess>

namespace morvak::driver {

/// The real program, run on files of its own, and what it says.
///
/// Main thread. Neither the program nor its tools outlive this object or this process.
class MorvakProcess : public QObject {
    Q_OBJECT

public:
    explicit MorvakProcess(QString program);
    ~MorvakProcess() override;

    [[nodiscard]] const Profile& profile() const { return m_profile; }
    [[nodiscard]] QString folder() const { return m_profile.photoFolder(); }

    /// For what is started from now on, exiftool among it.
    void setEnvironment(const QString& name, const QString& value) { m_environment.insert(name, value); }

    /// Errors and the reports of sanitizers go where ours go; there is no `complaint` then.
    void forwardErrors() { m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel); }

    /// Starts it and waits until it watches the profile's folder. False when it has ended, or does not within
    /// 20 seconds.
    [[nodiscard]] bool start(Pacer& pacer, const QStringList& arguments = {});

    /// Types a set's card as a scanner would; the program must listen to its standard input.
    void type(const SetData& set) { m_process.write(set.toQRText().toUtf8() + "\n\n"); }

    /// The same, and waits as long for the set to become active.
    [[nodiscard]] bool scan(const SetData& set, Pacer& pacer);

    /// Do nothing when there is nobody to hear it.
    void signal(int number) const;
    void signalTools(int number) const;

    /// SIGKILL; waits until the program is gone.
    void kill();
    bool waitForEnd() { return m_process.waitForFinished(20'000); }

    [[nodiscard]] qint64 processId() const { return m_process.processId(); }
    [[nodiscard]] bool hasEnded() const { return m_process.state() == QProcess::NotRunning; }

    /// It ended by itself, with a good exit status.
    [[nodiscard]] bool endedWell() const;

    /// What its standard error said last; for the report of a start that failed.
    [[nodiscard]] QString complaint() const { return m_complaint; }

    /// What it has said on standard output since its start, as far as the event loop has read it.
    [[nodiscard]] const QStringList& lines() const { return m_lines; }
    [[nodiscard]] qsizetype count(const QString& textInLine) const
    {
        return m_lines.filter(textInLine).size();
    }
    [[nodiscard]] bool hasTagged(const QString& fileName) const;

    /// Reads what it has said by now, for those who do not wait for the event loop.
    void catchUp() { m_process.waitForReadyRead(1); }

    /// Its tools that still exist, also when it is gone, as process ids.
    [[nodiscard]] QList<qint64> exifTools() const;

Q_SIGNALS:
    void said(const QString& line);

private:
    void readLines();

    Profile m_profile;
    QString m_program;
    QProcessEnvironment m_environment;
    QProcess m_process;
    QStringList m_lines;
    QString m_complaint;
};

}  // namespace morvak::driver
