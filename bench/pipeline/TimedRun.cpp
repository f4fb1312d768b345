#include "TimedRun.h"

#include "BenchShoot.h"

#include <QElapsedTimer>

namespace morvak::bench {

TimedRun::TimedRun(const QString& program, std::chrono::milliseconds wholeTime)
    : m_pacer(wholeTime), m_process(program)
{
    m_process.profile().makeShoot(benchTagging().shootName(), QString(), QString());
    QElapsedTimer timer;
    timer.start();
    if (!m_process.start(m_pacer, {QStringLiteral("--scan-stdin")}))
        qFatal("%s does not watch: %s", qPrintable(program), qPrintable(m_process.complaint()));
    m_startTime = std::chrono::milliseconds(timer.elapsed());
}

void TimedRun::activateSet()
{
    if (!m_process.scan(benchTagging().set, m_pacer))
        qFatal("the set was not activated");
}

}  // namespace morvak::bench
