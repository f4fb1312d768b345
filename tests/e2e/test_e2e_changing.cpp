#include "FaultRounds.h"
#include "MorvakRun.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/PictureData.h"
#include "sampleshoot/SampleShoot.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QDeadlineTimer>
#include <QTimer>

#include <algorithm>
#include <filesystem>
#include <vector>

#include <sys/stat.h>

using namespace morvak;
using namespace Qt::StringLiterals;
using morvak::test::contentOf;
using morvak::test::MorvakRun;
using morvak::test::setOfTags;

namespace fs = std::filesystem;

namespace {

constexpr int photosInARound = 24;
constexpr int latestFault = 1'500;  // milliseconds after the photo came

enum class Fault { Deleted, Replaced, Rewritten, Moved, MadeAFolder, MadeALink, MadeAPipe };
constexpr int faults = 7;

QByteArray photo(qsizetype size, quint32 seed)
{
    samples::PhotoOptions options = samples::plainPhoto(QSize(640, 480));
    options.size = size;
    options.seed = seed;
    return samples::dngPhoto(options);
}

fs::path native(const QString& path)
{
    return path.toStdString();
}

/// One photo, what befalls it, and what must have come of it.
class Victim {
public:
    Victim(MorvakRun& run, int number, Fault fault)
        : m_run(run),
          m_fault(fault),
          m_name(u"%1.dng"_s.arg(number)),
          m_other(run.elsewhere(u"other%1.dng"_s.arg(number))),
          m_before(photo(1'000'000, quint32(2 * number))),
          m_after(photo(1'200'000, quint32(2 * number + 1)))
    {
        run.drop(m_name, m_before);
        test::writeFile(m_other, m_after);
    }

    void strike() const
    {
        const fs::path place = native(path());
        std::error_code ignored;
        switch (m_fault) {
            case Fault::Deleted:
                fs::remove(place);
                break;
            case Fault::Replaced:
                fs::rename(native(m_other), place);
                break;
            case Fault::Rewritten:
                m_run.drop(m_name, m_after);
                break;
            case Fault::Moved:
                fs::rename(place, native(m_run.path(u"moved-"_s + m_name)));
                break;
            case Fault::MadeAFolder:
                fs::remove(place);
                fs::create_directory(place, ignored);  // the tool may have put its result there again
                break;
            case Fault::MadeALink:
                fs::create_symlink(native(m_other), native(path() + u".link"_s));
                fs::rename(native(path() + u".link"_s), place);
                break;
            case Fault::MadeAPipe:
                QCOMPARE(::mkfifo(QString(path() + u".pipe"_s).toUtf8().constData(), 0600), 0);
                fs::rename(native(path() + u".pipe"_s), place);
                break;
        }
    }

    /// What is not as it should be by now; empty when all is well.
    ///
    /// The tool reads the photo and puts its result in that place. What somebody else puts there in between,
    /// for some hundredths of a second, makes way for the tagged photo; that one is whole at any rate.
    QString complaint(const QHash<QString, QJsonObject>& tags) const
    {
        const bool wentOn = isTagged(m_name, m_before, tags);
        switch (m_fault) {
            case Fault::Deleted:
                return wentOn || !QFile::exists(path()) ? QString() : told(u"half deleted"_s);
            case Fault::Replaced:
            case Fault::Rewritten:
                return wentOn || isTagged(m_name, m_after, tags) ? QString() : told(u"not tagged"_s);
            case Fault::Moved:
                return isTagged(u"moved-"_s + m_name, m_before, tags) ? QString() : told(u"not tagged"_s);
            case Fault::MadeAFolder:
                return wentOn || fs::is_directory(native(path())) ? QString() : told(u"no folder"_s);
            case Fault::MadeALink:
                if (contentOf(m_other) != m_after)
                    return told(u"target changed"_s);
                return wentOn || isTagged(m_name, m_after, tags) || fs::is_symlink(native(path()))
                           ? QString()
                           : told(u"no link"_s);
            case Fault::MadeAPipe:
                return wentOn || fs::is_fifo(native(path())) ? QString() : told(u"no pipe"_s);
        }
        return {};
    }

    /// Whether the photo that replaced it was lost to the tool's result.
    bool madeWay(const QHash<QString, QJsonObject>& tags) const
    {
        return (m_fault == Fault::Replaced || m_fault == Fault::Rewritten) &&
               isTagged(m_name, m_before, tags);
    }

private:
    QString path() const { return m_run.path(m_name); }
    QString told(const QString& what) const
    {
        return u"%1 (%2): %3"_s.arg(m_name, QString::number(int(m_fault)), what);
    }
    bool isTagged(const QString& name, const QByteArray& original,
                  const QHash<QString, QJsonObject>& tags) const
    {
        const QString path = m_run.path(name);
        return fs::is_regular_file(fs::symlink_status(native(path))) &&
               setOfTags(tags.value(name), samples::sampleSets()) &&
               samples::pictureData(contentOf(path)) == samples::pictureData(original);
    }

    MorvakRun& m_run;
    Fault m_fault;
    QString m_name;
    QString m_other;
    QByteArray m_before;
    QByteArray m_after;
};

}  // namespace

class TestE2eChanging : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whateverBefallsAPhoto_data() { test::addRounds(2); }
    void whateverBefallsAPhoto();
};

/// Photos are deleted, replaced and moved away at any moment of their run. What is there in the end is whole,
/// and tagged when it is a photo; what is none is left alone.
void TestE2eChanging::whateverBefallsAPhoto()
{
    QFETCH(const quint32, seed);
    QRandomGenerator chance(seed);
    MorvakRun run;
    run.start();
    run.scan(samples::sampleSets().constFirst());
    std::vector<Victim> victims;
    int struck = 0;
    for (int i = 0; i < photosInARound; ++i) {
        victims.emplace_back(run, i, Fault(chance.bounded(faults)));
        QTimer::singleShot(int(chance.bounded(latestFault)), this, [&struck, victim = victims.back()] {
            victim.strike();
            ++struck;
        });
    }
    QTRY_COMPARE_WITH_TIMEOUT(struck, photosInARound, 30'000);
    run.drop(u"last.dng"_s, photo(1'000'000, 999));
    QTRY_COMPARE_WITH_TIMEOUT(run.count(u"✅ Getagd: last.dng"_s), 1, 60'000);

    QHash<QString, QJsonObject> tags;
    const auto complaints = [&] {
        tags = run.readBack();
        QStringList all = run.leftovers();
        for (const Victim& victim : victims)
            all.append(victim.complaint(tags));
        all.removeAll(QString());
        return all;
    };
    for (const QDeadlineTimer patience(60'000); !complaints().isEmpty() && !patience.hasExpired();)
        QTest::qWait(100);
    QVERIFY2(complaints().isEmpty(), qPrintable(complaints().join(u'\n') + u'\n' + run.lines().join(u'\n')));
    const auto lost = std::count_if(victims.begin(), victims.end(),
                                    [&](const Victim& victim) { return victim.madeWay(tags); });
    if (lost > 0)
        qInfo("%d of %d came while the tool wrote, and made way for its result", int(lost), photosInARound);
    QVERIFY(run.quit(SIGTERM) >= 0);
    QCOMPARE(run.leftovers(), QStringList());
}

MORVAK_TEST(TestE2eChanging);
#include "test_e2e_changing.moc"
