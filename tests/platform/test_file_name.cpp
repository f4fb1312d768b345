#include "platform/FileName.h"
#include "support/TestMain.h"

using namespace morvak;

class TestFileName : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyNameComesBack_data();
    void everyNameComesBack();
    void partsOfAPath_data();
    void partsOfAPath();
};

void TestFileName::everyNameComesBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QByteArray("IMG_1.CR3") << "IMG_1.CR3";
    QTest::newRow("UTF-8") << QByteArray("Łódź 日本 😀.jpg") << "Łódź 日本 😀.jpg";
    QTest::newRow("Latin-1") << QByteArray("caf\xE9.jpg")
                             << QStringLiteral("caf") + QChar(0xDCE9) + QStringLiteral(".jpg");
    QTest::newRow("cut-off sequence")
        << QByteArray("a\xE6\x97") << QStringLiteral("a") + QChar(0xDCE6) + QChar(0xDC97);
    QTest::newRow("UTF-8 beside a lone byte") << QByteArray("\xFF日") << QChar(0xDCFF) + QStringLiteral("日");
    QTest::newRow("encoded surrogate")
        << QByteArray("\xED\xB3\xBF") << QString(QChar(0xDCED)) + QChar(0xDCB3) + QChar(0xDCBF);
    QTest::newRow("beyond Unicode") << QByteArray("\xF5\x80") << QString(QChar(0xDCF5)) + QChar(0xDC80);
}

void TestFileName::everyNameComesBack()
{
    QFETCH(QByteArray, bytes);
    QTEST(decodeFileName(bytes), "name");
    QCOMPARE(encodeFileName(decodeFileName(bytes)), bytes);
}

void TestFileName::partsOfAPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("extension");
    QTest::newRow("usual") << "/a.b/IMG_1.CR3"
                           << "IMG_1.CR3"
                           << "cr3";
    QTest::newRow("no extension") << "/a.b/IMG"
                                  << "IMG"
                                  << "";
    QTest::newRow("no folder") << "x.Jpg"
                               << "x.Jpg"
                               << "jpg";
    QTest::newRow("temporary file") << "/a/x.jpg_exiftool_tmp"
                                    << "x.jpg_exiftool_tmp"
                                    << "jpg_exiftool_tmp";
}

void TestFileName::partsOfAPath()
{
    QFETCH(QString, path);
    QTEST(lastPathComponent(path), "name");
    QTEST(lowerCaseExtension(path), "extension");
}

MORVAK_TEST(TestFileName);
#include "test_file_name.moc"
