#include "ui/scan/ScannerBurst.h"

#include <algorithm>
#include <utility>

namespace morvak {

namespace {

using namespace std::chrono_literals;
using Kind = ScanKey::Kind;

constexpr ScannerBurst::Time longestStep = 50ms;
constexpr ScannerBurst::Time longestStutter = 75ms;  // of a scanner; hardly a person's step
constexpr int slowStepWeight = 3;
constexpr ScannerBurst::Time burstEnd = 150ms;

// Two keys at once are a fast hand. In a field a hand may roll more of them, and Return with them; the
// shortest set text has five.
constexpr int fewestElsewhere = 3;
constexpr int fewestInField = 5;

}  // namespace

bool ScannerBurst::belongs(const ScanKey& key) const
{
    return key.kind != Kind::shortcut && key.kind != Kind::other &&
           (key.kind != Kind::controlBreak || !isIdle());
}

ScannerBurst::Verdict ScannerBurst::before(const ScanKey& key, Time time)
{
    const Time gap = time - m_last;
    if (isIdle() || (m_isCaught && gap <= burstEnd))
        return Verdict::nothing;
    if (m_isCaught)
        return Verdict::ended;
    const bool isHeldDown = m_fastSteps + m_doubts == 0 && key.key == m_lastKey;
    const bool wasTyped = gap > longestStep || isHeldDown || (key.kind != Kind::modifier && !belongs(key));
    const Verdict verdict = wasTyped ? release() : Verdict::nothing;
    if (gap > burstEnd)
        takeText();
    return verdict;
}

ScannerBurst::Fate ScannerBurst::press(const ScanKey& key, Time time, Place place)
{
    if (key.kind != Kind::modifier && !belongs(key)) {
        if (!m_isCaught)
            takeText();
        return m_isCaught && key.kind == Kind::other ? Fate::caught : Fate::pass;
    }
    m_step = isIdle() ? Time(0) : std::max(m_step, time - m_last);
    m_last = time;
    if (key.kind == Kind::modifier)
        return Fate::pass;
    count(key);
    append(key);
    const int fewest = place == Place::elsewhere ? fewestElsewhere : fewestInField;
    m_isCaught = m_isCaught || (m_fastSteps + 1 >= fewest && m_fastSteps >= m_doubts);
    if (!m_isCaught)
        return passOrHold(key, place);
    m_holds = false;
    return Fate::caught;
}

void ScannerBurst::count(const ScanKey& key)
{
    // A key that follows itself may be one that is held down.
    if (!isIdle() && key.key != m_lastKey) {
        if (m_step <= longestStep)
            ++m_fastSteps;
        else
            m_doubts += m_step <= longestStutter ? 1 : slowStepWeight;
    }
    ++m_keys;
    m_lastKey = key.key;
    m_step = Time(0);
}

void ScannerBurst::append(const ScanKey& key)
{
    if (key.kind == Kind::deadKey) {
        m_accent = key.text.front();
        return;
    }
    const QChar accent = std::exchange(m_accent, QChar());
    m_text += accent.isNull() || key.kind != Kind::text ? key.text : withAccent(accent, key.text);
}

/// Text appears in the scan field at once, unless something else goes before it.
ScannerBurst::Fate ScannerBurst::passOrHold(const ScanKey& key, Place place)
{
    if (place == Place::scanField && key.kind != Kind::lineBreak && !m_holds)
        return Fate::pass;
    m_holds = true;
    return Fate::hold;
}

/// Nothing follows what a person ends with Return.
ScannerBurst::Verdict ScannerBurst::release()
{
    if (!std::exchange(m_holds, false))
        return Verdict::nothing;
    if (m_text.endsWith(u'\n'))
        takeText();
    return Verdict::typed;
}

ScannerBurst::Verdict ScannerBurst::silence()
{
    return m_isCaught ? Verdict::ended : release();
}

ScannerBurst::Time ScannerBurst::patience() const
{
    return m_isCaught ? burstEnd : m_holds ? longestStep : Time(0);
}

QString ScannerBurst::takeText()
{
    return std::exchange(*this, ScannerBurst()).m_text;
}

}  // namespace morvak
