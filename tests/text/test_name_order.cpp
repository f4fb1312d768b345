#include "support/TestMain.h"
#include "text/NameOrder.h"

#include <QLocale>
#include <QRandomGenerator>

using namespace morvak;
using namespace Qt::StringLiterals;

class TestNameOrder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::system()); }

    void orderFollowsTheLocale();
    void foldedNamesAreEqualWhenQtSaysSo();
};

void TestNameOrder::orderFollowsTheLocale()
{
    const QString western = u" 10 9 Ähre B b ecru écru Écru Ecrv öl zo"_s;  // equal ones as they came
    const QString swedish = u" 10 9 B b ecru écru Écru Ecrv zo Ähre öl"_s;
    const QStringList names = u"zo öl 9 Ähre Ecrv écru ecru Écru B 10 b "_s.split(u' ');
    for (const auto language : {QLocale::Dutch, QLocale::English, QLocale::C, QLocale::Swedish}) {
        QLocale::setDefault(language);
        QCOMPARE(sortedByName(names).join(u' '), language == QLocale::Swedish ? swedish : western);
    }
}

void TestNameOrder::foldedNamesAreEqualWhenQtSaysSo()
{
    // Letters whose full folding is longer, halves of characters, and pairs beyond the BMP that fold.
    const QString alphabet = u"aAßẞıİſsΣςσ\0\xD801\xDC00\xDC28"_s;
    QRandomGenerator random(6);
    const auto any = [&] {
        QString text;
        for (int n = random.bounded(4); n > 0; --n)
            text += alphabet[random.bounded(int(alphabet.size()))];
        return text;
    };
    for (int i = 0; i < 100'000; ++i) {
        const QString a = any();
        const QString b = any();
        if ((caseFolded(a) == caseFolded(b)) != (a.compare(b, Qt::CaseInsensitive) == 0))
            QFAIL((a.toUtf8().toHex() + ' ' + b.toUtf8().toHex()).constData());
    }
}

MORVAK_TEST(TestNameOrder);
#include "test_name_order.moc"
