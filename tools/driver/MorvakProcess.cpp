#include "driver/MorvakProcess.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <csignal>

#include <sys/prctl.h>
#include <unistd.h>

namespace morvak::driver {

namespace {

constexpr std::chrono::seconds patience(20);

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

MorvakProcess::MorvakProcess(QString program)
    : m_program(std::move(program)), m_environment(m_profile.environment())
{
    m_process.setChildProcessModifier([] {
        ::setsid();  // Ctrl+C in the terminal is for us, who then end the program in order
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &MorvakProcess::readLines);
    connect(&m_process, &QProcess::readyReadStandardError, this,
            [this] { m_complaint = QString::fromUtf8(m_process.readAllStandardError()).trimmed(); });
    connect(&m_process, &QProcess::errorOccurred, this, [this] { m_complaint = m_process.errorString(); });
}

MorvakProcess::~MorvakProcess()
{
    m_process.disconnect(this);
    m_process.terminate();
    if (!m_process.waitForFinished(3000))
        kill();
    signalTools(SIGKILL);  // such as were stopped, and do not hear that the program has ended
}

bool MorvakProcess::start(Pacer& pacer, const QStringList& arguments)
{
    m_lines.clear();
    m_process.setProcessEnvironment(m_environment);
    m_process.start(m_program, arguments);
    const QString watching = QStringLiteral("Watching: ") + folder();
    return pacer.waitUntil([&] { return m_lines.contains(watching) || hasEnded(); }, patience) && !hasEnded();
}

bool MorvakProcess::scan(const SetData& set, Pacer& pacer)
{
    const QString active = QStringLiteral("Actieve set: ");
    const qsizetype before = count(active);
    type(set);
    return pacer.waitUntil([&] { return count(active) > before || hasEnded(); }, patience) && !hasEnded();
}

void MorvakProcess::signal(int number) const
{
    if (!hasEnded())
        ::kill(pid_t(processId()), number);
}

void MorvakProcess::signalTools(int number) const
{
    for (const qint64 tool : exifTools())
        ::kill(pid_t(tool), number);
}

void MorvakProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool MorvakProcess::endedWell() const
{
    return hasEnded() && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0 &&
           m_process.error() != QProcess::FailedToStart;
}

bool MorvakProcess::hasTagged(const QString& fileName) const
{
    const QString start = QStringLiteral("✅ Getagd: %1 → ").arg(fileName);
    return std::ranges::any_of(m_lines, [&start](const QString& line) { return line.startsWith(start); });
}

QList<qint64> MorvakProcess::exifTools() const
{
    const QByteArray home = "HOME=" + m_profile.environment().value(QStringLiteral("HOME")).toUtf8() + '\0';
    QList<qint64> found;
    for (const QString& name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        const QString process = QStringLiteral("/proc/") + name;
        if (name.toLongLong() > 0 && contentOf(process + QStringLiteral("/cmdline")).contains("-stay_open") &&
            contentOf(process + QStringLiteral("/environ")).contains(home))
            found.append(name.toLongLong());
    }
    return found;
}

void MorvakProcess::readLines()
{
    while (m_process.canReadLine()) {
        m_lines.append(QString::fromUtf8(m_process.readLine().chopped(1)));
        Q_EMIT said(m_lines.constLast());
    }
}

}  // namespace morvak::driver
