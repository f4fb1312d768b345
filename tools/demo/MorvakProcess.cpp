#include "demo/MorvakProcess.h"

#include <algorithm>
#include <array>

#include <sys/prctl.h>
#include <unistd.h>
#include <csignal>

namespace morvak::demo {

namespace {

/// How the lines for developers begin; every other line is the user's log.
bool isDiagnostic(const QString& line)
{
    static const std::array<QString, 8> beginnings{
        QStringLiteral("📁"),          QStringLiteral("🏷️"),    QStringLiteral("🖼️"),
        QStringLiteral("🔧"),          QStringLiteral("⏱️"),     QStringLiteral("✅ Tagged:"),
        QStringLiteral("✅ ExifTool"), QStringLiteral("❌ Failed to")};
    return std::ranges::any_of(beginnings, [&line](const QString& text) { return line.startsWith(text); });
}

}  // namespace

MorvakProcess::MorvakProcess(QString program) : m_program(std::move(program))
{
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &MorvakProcess::readLines);
    connect(&m_process, &QProcess::readyReadStandardError, this,
            [this] { m_complaint = QString::fromUtf8(m_process.readAllStandardError()).trimmed(); });
    connect(&m_process, &QProcess::errorOccurred, this, [this] { m_complaint = m_process.errorString(); });
}

MorvakProcess::~MorvakProcess()
{
    m_process.disconnect(this);
    if (hasEnded())
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(3000)) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

void MorvakProcess::start(const QProcessEnvironment& environment, const QStringList& arguments)
{
    m_process.setProcessEnvironment(environment);
    m_process.setChildProcessModifier([] {
        ::setsid();  // Ctrl+C in the terminal is for the demonstration, which then ends the program in order
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    });
    m_process.start(m_program, arguments);
}

void MorvakProcess::scan(const QString& setText)
{
    m_process.write(setText.toUtf8() + "\n\n");
}

void MorvakProcess::quit()
{
    m_process.terminate();
}

bool MorvakProcess::endedWell() const
{
    return hasEnded() && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0 &&
           m_process.error() == QProcess::UnknownError;
}

void MorvakProcess::readLines()
{
    while (m_process.canReadLine()) {
        QString line = QString::fromUtf8(m_process.readLine());
        line.chop(1);
        takeLine(line);
    }
}

void MorvakProcess::takeLine(const QString& line)
{
    const QString watching = QStringLiteral("Watching: ");
    const QString tagged = QStringLiteral("✅ Getagd: ");
    const QString activeSet = QStringLiteral("🏷️ Actieve set: ");
    if (line.startsWith(watching))
        m_watched = line.sliced(watching.size());
    else if (line.startsWith(tagged))
        m_tagged.insert(line.sliced(tagged.size()).section(QStringLiteral(" → "), 0, 0));
    else if (line.startsWith(activeSet))
        m_activeSet = line.sliced(activeSet.size());
    else if (m_refusal.isEmpty() && (line.endsWith(QStringLiteral(" overgeslagen")) ||
                                     line.startsWith(QStringLiteral("❌ Tagging mislukt: "))))
        m_refusal = line;
    if (!isDiagnostic(line))
        Q_EMIT logged(line);
}

}  // namespace morvak::demo
