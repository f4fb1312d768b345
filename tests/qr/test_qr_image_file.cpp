#include "qr/QRImageFile.h"
#include "qr/QRPhotoDetector.h"
#include "support/CapturedOutput.h"
#include "support/FullDisk.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace morvak;
using namespace morvak::test;
using namespace Qt::StringLiterals;

namespace {

SetData orva()
{
    return SetData::parse(u"SET:7\nBRAND:Orva\nITEM:Sneaker/wit"_s).value();
}

/// The types of a PNG file's chunks.
QByteArrayList chunkTypes(const QByteArray& png)
{
    QByteArrayList types;
    for (qsizetype at = 8; at + 12 <= png.size();) {
        types.append(png.sliced(at + 4, 4));
        at += 12 + png.sliced(at, 4).toHex().toLongLong(nullptr, 16);
    }
    types.removeAll("IDAT");
    return types;
}

}  // namespace

class TestQRImageFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void proposedName_data();
    void proposedName();
    void pngHoldsTheCodeAndNothingElseAndReplacesAFile();
    void failureLeavesEverythingAsItWas_data();
    void failureLeavesEverythingAsItWas();
};

void TestQRImageFile::proposedName_data()
{
    QTest::addColumn<QString>("setText");
    QTest::addColumn<QString>("name");
    QTest::newRow("number and brand") << u"SET:7\nBRAND:Orva"_s << u"SET-7-Orva.png"_s;
    QTest::newRow("no brand") << u"SET:7"_s << u"SET-7-.png"_s;
    QTest::newRow("values stay as they are") << u"SET:%1/2\nBRAND:A: B"_s << u"SET-%1/2-A: B.png"_s;
}

void TestQRImageFile::proposedName()
{
    QFETCH(const QString, setText);
    QTEST(proposedQRFileName(SetData::parse(setText).value()), "name");
}

void TestQRImageFile::pngHoldsTheCodeAndNothingElseAndReplacesAFile()
{
    const QByteArray png = qrPng(orva()).value();
    QCOMPARE(chunkTypes(png), (QByteArrayList{"IHDR", "IEND"}));
    const QImage image = QImage::fromData(png, "PNG");
    QCOMPARE(image.size(), QSize(600, 600));
    QCOMPARE(QRPhotoDetector::detectQRText(image), orva().toQRText());
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"SET-7-Orva.png"_s));
    QVERIFY(file.open(QFile::WriteOnly) && file.write("an older one") > 0);
    file.close();
    QVERIFY(saveQR(orva(), file.fileName()));
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), png);
}

void TestQRImageFile::failureLeavesEverythingAsItWas_data()
{
    QTest::addColumn<SetData>("set");
    QTest::addColumn<QString>("name");
    QTest::addColumn<qulonglong>("diskSize");
    constexpr qulonglong ample = 1'000'000;
    SetData tooLong = orva();
    tooLong.location = QString(2400, u'x');
    QTest::newRow("too much text") << tooLong << u"old.png"_s << ample;
    QTest::newRow("full disk") << orva() << u"old.png"_s << 100ULL;
    QTest::newRow("a folder stands there") << orva() << u"folder"_s << ample;
    QTest::newRow("a pipe stands there") << orva() << u"pipe"_s << ample;
    QTest::newRow("in no folder") << orva() << u"missing/new.png"_s << ample;
    QTest::newRow("no name") << orva() << QString() << ample;
}

void TestQRImageFile::failureLeavesEverythingAsItWas()
{
    QFETCH(const SetData, set);
    QFETCH(const QString, name);
    QFETCH(const qulonglong, diskSize);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(u"folder"_s));
    QVERIFY(::mkfifo(QFile::encodeName(folder.filePath(u"pipe"_s)).constData(), 0600) == 0);
    QFile old(folder.filePath(u"old.png"_s));
    QVERIFY(old.open(QFile::ReadWrite) && old.write("old") == 3 && old.flush());
    CapturedOutput output;
    {
        const FullDisk disk(diskSize);
        QVERIFY(!saveQR(set, name.isEmpty() ? QString() : folder.filePath(name)));
    }
    QCOMPARE(output.take().count(u"⚠️"_s), 1);
    QVERIFY(old.seek(0));
    QCOMPARE(old.readAll(), QByteArray("old"));
    QCOMPARE(
        QDir(folder.path()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot),
        (QStringList{u"folder"_s, u"old.png"_s, u"pipe"_s}));
}

MORVAK_TEST(TestQRImageFile);

#include "test_qr_image_file.moc"
