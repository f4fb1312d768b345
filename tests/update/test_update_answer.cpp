#include "support/TestMain.h"
#include "update/UpdateAnswer.h"
#include "update/UpdateChecker.h"

using namespace morvak;
using namespace Qt::StringLiterals;

class TestUpdateAnswer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();
    void versions();
};

void TestUpdateAnswer::answers_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("fault");
    const auto row = [](const QByteArray& answer, const char* fault) {
        QTest::addRow("%.60s", answer.constData()) << answer << fault;
    };
    row(R"({"x":[{}],"version":"1.5","download_url":"http://a"})", "");
    row("<html>", "geen JSON");
    row(R"({"version":"1","download_url":"https://a"} x)", "geen JSON");
    row(R"(["1.5"])", "is geen object");
    row(QByteArray(60'000, '['), "geen JSON");
    row(R"({"download_url":"https://a"})", ".version ontbreekt");
    row(R"({"version":1.5,"download_url":"https://a"})", ".version is geen tekst");
    row(R"({"version":"","download_url":"https://a"})", ".version is leeg");
    row(R"({"version":"1.5","download_url":null})", ".download_url ontbreekt");
    for (const char* url : {"HTTPS://www.a.example:8443/x?y=%20z#1", "https://é.example/ü"})
        row(QByteArray(R"({"version":"1","download_url":")") + url + R"("})", "");
    for (const char* url : {"", "www.a.example/x", "//a/x", "https:///x", "https:a", "ftp://a/x", "file:///x",
                            "javascript:alert(1)", "https://a b/", "https://[::1", "https://a:99999/"})
        row(QByteArray(R"({"version":"1","download_url":")") + url + R"("})",
            ".download_url is geen webadres");
}

void TestUpdateAnswer::answers()
{
    QFETCH(const QByteArray, answer);
    QFETCH(const QString, fault);
    JsonFault told;
    QCOMPARE(parseUpdateAnswer(answer, told).has_value(), fault.isEmpty());
    QCOMPARE(told.message().left(fault.size()), fault);
}

void TestUpdateAnswer::versions()
{
    const auto compare = [](QStringView a, QStringView b) {
        return UpdateChecker::isVersion(a, b) - UpdateChecker::isVersion(b, a);
    };
    for (const char* pair : {"1.10 1.9", "1.4.10 1.4.9", "2 1.9.9", "1.0.1 1", "1 1.-2", "1.x.5 1.4", "1 x",
                             "9223372036854775807 9223372036854775806"}) {
        const QStringList versions = QString::fromLatin1(pair).split(u' ');
        QVERIFY2(compare(versions[0], versions[1]) == 1, pair);
    }
    for (const char* pair :
         {"1.2 1.2.0.0", "1..2. 1.2", "2.0-beta 2", "+1.2 01.2", "00000000000000000000001 1"}) {
        const QStringList versions = QString::fromLatin1(pair).split(u' ');
        QVERIFY2(compare(versions[0], versions[1]) == 0, pair);
    }
    for (const QString& nothing : {u""_s, u"..."_s, u" 1"_s, u"1 "_s, u"\t1"_s, u"1_0"_s, u"0x10"_s, u"1e3"_s,
                                   u"+"_s, u"--1"_s, u"9223372036854775808"_s, u"１"_s, u"1\u00A0"_s})
        QVERIFY2(compare(nothing, u"0") == 0, qPrintable(nothing));
}

MORVAK_TEST(TestUpdateAnswer);
#include "test_update_answer.moc"
