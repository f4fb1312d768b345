#include "platform/UserFolders.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>

#include <pwd.h>
#include <unistd.h>

using namespace morvak;
using namespace Qt::StringLiterals;

class TestUserFolders : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void userFolders_data();
    void userFolders();
    void homeOfThePasswordFile_data();
    void homeOfThePasswordFile();
};

void TestUserFolders::userFolders_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<QString>("data");
    QTest::addColumn<QString>("config");
    const QString home = QDir::homePath();
    for (const QByteArray& useless : {QByteArray(), QByteArray(""), QByteArray("relative/folder")}) {
        QTest::newRow(useless.isNull()    ? "unset"
                      : useless.isEmpty() ? "empty"
                                          : "relative")
            << useless << home + u"/.local/share/Morvak"_s << home + u"/.config/Morvak/Morvak.conf"_s;
    }
    QTest::newRow("absolute") << QByteArray("/some where/") << u"/some where/Morvak"_s
                              << u"/some where/Morvak/Morvak.conf"_s;
}

void TestUserFolders::userFolders()
{
    QFETCH(const QByteArray, variable);
    for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"}) {
        const QByteArray before = qgetenv(name);
        const auto restore = qScopeGuard([=] { qputenv(name, before); });
        if (variable.isNull())
            qunsetenv(name);
        else
            qputenv(name, variable);
        if (name == QByteArrayView("XDG_DATA_HOME"))
            QTEST(storeFolder(), "data");
        else
            QTEST(preferencesFile(), "config");
    }
}

void TestUserFolders::homeOfThePasswordFile_data()
{
    QTest::addColumn<QByteArray>("home");
    QTest::newRow("unset") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("relative") << QByteArray(".");
}

void TestUserFolders::homeOfThePasswordFile()
{
    QFETCH(const QByteArray, home);
    const QString own = QFile::decodeName(::getpwuid(::getuid())->pw_dir);
    const QByteArray before = qgetenv("HOME");
    const QByteArray dataBefore = qgetenv("XDG_DATA_HOME");
    const auto restore = qScopeGuard([=] {
        qputenv("HOME", before);
        qputenv("XDG_DATA_HOME", dataBefore);
    });
    QCOMPARE(homeFolder(), QFile::decodeName(before));
    qunsetenv("XDG_DATA_HOME");
    if (home.isNull())
        qunsetenv("HOME");
    else
        qputenv("HOME", home);
    QCOMPARE(homeFolder(), own);
    QCOMPARE(storeFolder(), own + u"/.local/share/Morvak"_s);
}

MORVAK_TEST(TestUserFolders);
#include "test_user_folders.moc"
