#pragma once

#include <QObject>
#include <QTest>

namespace morvak::test {

/// Adds a test class to the binary's list; `file` tells ctest's `--only` which one to run.
bool registerTest(const char* file, QObject* (*make)());

}  // namespace morvak::test

/// Stands once at the end of each test source, before its moc include.
#define MORVAK_TEST(TestClass)     \
    static const bool registered = \
        morvak::test::registerTest(__FILE__, []() -> QObject* { return new TestClass; })
