#pragma once

#include <QRandomGenerator>
#include <QTest>

namespace morvak::test {

/// Whether $MORVAK_FAULT_ROUNDS asks for the long run, in which everything may take as long as it likes.
inline bool isLongRun()
{
    return qEnvironmentVariableIsSet("MORVAK_FAULT_ROUNDS");
}

/// The rounds of a test whose faults strike at moments of chance: $MORVAK_FAULT_ROUNDS of them, `usual`
/// otherwise. Each is a row named after its seed, from which all its chances follow; $MORVAK_FAULT_SEED gives
/// the first one again.
inline void addRounds(int usual)
{
    QTest::addColumn<quint32>("seed");
    const int rounds = isLongRun() ? qEnvironmentVariableIntValue("MORVAK_FAULT_ROUNDS") : usual;
    bool given = false;
    const auto wanted = quint32(qEnvironmentVariableIntValue("MORVAK_FAULT_SEED", &given));
    const quint32 first = given ? wanted : QRandomGenerator::global()->bounded(1'000'000u);
    for (quint32 seed = first; seed < first + quint32(rounds); ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

}  // namespace morvak::test
