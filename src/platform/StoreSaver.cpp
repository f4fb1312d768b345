#include "platform/StoreSaver.h"

#include "platform/Diagnostics.h"

#include <utility>

namespace morvak {

StoreSaver::StoreSaver(QString path, std::chrono::milliseconds retryInterval, QObject* parent)
    : QObject(parent), m_file(std::move(path))
{
    m_retry.setInterval(retryInterval);
    connect(&m_retry, &QTimer::timeout, this, &StoreSaver::saveAsked);
}

void StoreSaver::write(const QByteArray& content)
{
    m_isBehind = !m_file.replace(content);
    setProblem(m_isBehind ? m_file.problem() : QString());
}

void StoreSaver::fail(const QString& reason)
{
    m_isBehind = true;
    if (reason != m_problem)
        diagnostic(QStringLiteral("⚠️ %1 is niet bewaard: %2").arg(path(), reason));
    setProblem(reason);
}

void StoreSaver::setProblem(const QString& problem)
{
    if (problem.isEmpty())
        m_retry.stop();
    else
        m_retry.start();
    if (std::exchange(m_problem, problem) != problem)
        Q_EMIT problemChanged();
}

}  // namespace morvak
