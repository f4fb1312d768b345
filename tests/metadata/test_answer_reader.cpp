#include "metadata/AnswerReader.h"
#include "support/TestMain.h"

using morvak::AnswerReader;
using Marker = AnswerReader::Marker;

class TestAnswerReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void judgesAnswers_data();
    void judgesAnswers();
    void findsTheMarkerWhereverTheChunksAreCut_data();
    void findsTheMarkerWhereverTheChunksAreCut();
};

void TestAnswerReader::judgesAnswers_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<bool>("ready");
    QTest::addColumn<bool>("success");
    const auto row = [](const char* name, const QByteArray& output, bool ready, bool success) {
        QTest::newRow(name) << output << ready << success;
    };
    row("updated", "    1 image files updated\n{ready000007}\n", true, true);
    row("a warning is no error", "Warning: odd\n{ready000007}\n", true, true);
    row("marker without its line break", "{ready000007}", true, true);
    row("error", "Error: no\n{ready000007}\n", true, false);
    row("errors in capitals", "due to ERRORS\n{ready000007}\n", true, false);
    row("error behind the marker", "{ready000007}\nerror", true, false);
    row("invalid UTF-8 around everything", "\xff\xc3{ready000007}\xfe", true, true);
    row("late marker of an abandoned request", "{ready000006}\n", false, false);
    row("longer number with the same start", "{ready0000071}\n", false, false);
    row("unfinished marker", "{ready000007", false, false);
    row("nothing", "", false, false);
}

void TestAnswerReader::judgesAnswers()
{
    QFETCH(QByteArray, output);
    AnswerReader reader(7);
    QTEST(reader.feed(output), "ready");
    QTEST(reader.succeeded(), "success");
    QCOMPARE(reader.output(), output);
}

void TestAnswerReader::findsTheMarkerWhereverTheChunksAreCut_data()
{
    QTest::addColumn<Marker>("place");
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("text") << Marker::Anywhere << QByteArray("\xe2\x80\x94 {ready{ready00000\n");
    QTest::newRow("bytes of a photo that quote a marker")
        << Marker::AtEnd << QByteArray("\xff\xd8\0{ready000007}\n{ready000007} {ready000007", 43);
}

void TestAnswerReader::findsTheMarkerWhereverTheChunksAreCut()
{
    QFETCH(Marker, place);
    QFETCH(QByteArray, payload);
    const QByteArray output = payload + "{ready000007}\n";
    const qsizetype seenAt = place == Marker::AtEnd ? output.size() : output.size() - 1;
    for (qsizetype size = 1; size <= output.size(); ++size) {
        AnswerReader reader(7, place);
        for (qsizetype at = 0; at < output.size(); at += size) {
            const QByteArrayView chunk = QByteArrayView(output).sliced(at, qMin(size, output.size() - at));
            // A quoted marker that happens to end a chunk looks like the end until more comes.
            const bool quoted =
                place == Marker::AtEnd && output.first(at + chunk.size()).endsWith("{ready000007}\n");
            QCOMPARE(reader.feed(chunk), quoted || at + chunk.size() >= seenAt);
        }
        QCOMPARE(reader.payload(), payload);
    }
}

MORVAK_TEST(TestAnswerReader);
#include "test_answer_reader.moc"
