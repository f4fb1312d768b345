#include "MorvakRun.h"

#include "BenchShoot.h"

#include <QElapsedTimer>

namespace morvak::bench {

MorvakRun::MorvakRun(const QString& program, std::chrono::milliseconds wholeTime)
    : m_pacer(wholeTime), m_process(program)
{
    m_profile.makeShoot(benchTagging().shootName(), QString(), QString());
    QElapsedTimer timer;
    timer.start();
    m_process.start(m_profile.environment(), {QStringLiteral("--scan-stdin")});
    const QString folder = m_profile.photoFolder();
    if (!m_pacer.waitUntil([&] { return m_process.isWatching(folder) || m_process.hasEnded(); }) ||
        m_process.hasEnded())
        qFatal("%s does not watch: %s", qPrintable(program), qPrintable(m_process.complaint()));
    m_startTime = std::chrono::milliseconds(timer.elapsed());
}

void MorvakRun::activateSet()
{
    m_process.scan(benchTagging().set.toQRText());
    if (!m_pacer.waitUntil([this] { return m_process.isTaggingWith(benchTagging().set.headline()); }))
        qFatal("the set was not activated");
}

}  // namespace morvak::bench
