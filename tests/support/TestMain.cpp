#include "TestMain.h"

#include <QFileInfo>
#ifdef MORVAK_WIDGETS
#include <QApplication>
#else
#include <QGuiApplication>
#endif
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace {

#ifdef MORVAK_WIDGETS
using Application = QApplication;
#else
using Application = QGuiApplication;
#endif

struct Entry {
    QString subject;
    QObject* (*make)();
};

std::vector<Entry>& entries()
{
    static std::vector<Entry> list;
    return list;
}

/// The test never sees the developer's own files, as data, configuration and home lie in a temporary folder;
/// and the developer does not hear the tests.
void leaveTheDeveloperAlone(const QTemporaryDir& root)
{
    qputenv("HOME", root.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", root.path().toUtf8());
    qputenv("XDG_DATA_HOME", root.filePath(QStringLiteral("data")).toUtf8());
    qputenv("XDG_CONFIG_HOME", root.filePath(QStringLiteral("config")).toUtf8());
    qputenv("XDG_CACHE_HOME", root.filePath(QStringLiteral("cache")).toUtf8());
    qputenv("CANBERRA_DRIVER", "null");
}

}  // namespace

bool morvak::test::registerTest(const char* file, QObject* (*make)())
{
    entries().push_back({QFileInfo(QString::fromUtf8(file)).baseName(), make});
    return true;
}

/// `test_room [--only subject] [options of Qt Test]`
int main(int argc, char** argv)
{
    const QTemporaryDir root;
    leaveTheDeveloperAlone(root);
    const Application application(argc, argv);
    QStringList arguments = Application::arguments();
    QString only;
    if (const auto at = arguments.indexOf(QStringLiteral("--only")); at > 0 && at + 1 < arguments.size()) {
        only = arguments.at(at + 1);
        arguments.remove(at, 2);
    }
    int failures = 0;
    int classes = 0;
    for (const Entry& entry : entries()) {
        if (!only.isEmpty() && entry.subject != only)
            continue;
        const std::unique_ptr<QObject> object(entry.make());
        failures += QTest::qExec(object.get(), arguments);
        ++classes;
    }
    if (classes == 0) {
        qWarning("no such test: %s", qPrintable(only));
        return 1;
    }
    return failures;
}
