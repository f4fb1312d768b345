#include "watch/ReaderHealth.h"

#include <utility>

namespace morvak {

namespace {

constexpr int unansweredAtMost = 2;

}  // namespace

ReaderHealth::Advice ReaderHealth::advice(bool isRewritten, Time now)
{
    if (!m_isAway)
        return Advice::Look;
    if (now >= m_nextTry) {
        tried(now);
        return Advice::Look;
    }
    return isRewritten ? Advice::Wait : Advice::Skip;
}

bool ReaderHealth::answered()
{
    m_unansweredInARow = 0;
    return std::exchange(m_isAway, false);
}

bool ReaderHealth::unanswered(Time now)
{
    if (m_isAway || ++m_unansweredInARow < unansweredAtMost)
        return false;
    m_isAway = true;
    tried(now);
    return true;
}

}  // namespace morvak
