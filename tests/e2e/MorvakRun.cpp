#include "MorvakRun.h"

#include "driver/PhotoCheck.h"
#include "sampleshoot/PhotoEncoders.h"
#include "sampleshoot/SampleShoot.h"
#include "store/StoreFile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <algorithm>

namespace morvak::test {

namespace {

using namespace std::chrono_literals;

const QString shootName = QStringLiteral("Herfst ’26");

}  // namespace

MorvakRun::MorvakRun() : driver::MorvakProcess(QStringLiteral(MORVAK_PROGRAM))
{
    profile().makeShoot(shootName, {}, {});
    forwardErrors();
}

MorvakRun::~MorvakRun()
{
    kill();
}

void MorvakRun::start()
{
    driver::Pacer pacer(1min);
    QVERIFY(MorvakProcess::start(pacer, {QStringLiteral("--scan-stdin")}));
}

void MorvakRun::scan(const SetData& set)
{
    driver::Pacer pacer(1min);
    QVERIFY(MorvakProcess::scan(set, pacer));
}

qint64 MorvakRun::quit(int number)
{
    QElapsedTimer timer;
    timer.start();
    signal(number);
    return waitForEnd() && endedWell() ? timer.elapsed() : -1;
}

void MorvakRun::drop(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

const QStringList& MorvakRun::lines()
{
    catchUp();
    return MorvakProcess::lines();
}

QHash<QString, driver::PhotoTags> MorvakRun::readBack() const
{
    const QStringList names = QDir(folder()).entryList(QDir::Files);  // no pipes: the tool would wait there
    return driver::readTags(folder(), names, profile().environment())
        .value_or(QHash<QString, driver::PhotoTags>());
}

QStringList MorvakRun::leftovers() const
{
    const QStringList names = QDir(folder()).entryList(QDir::Files | QDir::Hidden);
    return names.filter(QStringLiteral("_exiftool_tmp")) + names.filter(QStringLiteral("_original"));
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray smallPhoto()
{
    static const QByteArray photo = samples::jpegPhoto(samples::plainPhoto(QSize(640, 480)));
    return photo;
}

qsizetype activationsIn(const QByteArray& store)
{
    JsonFault fault;
    const std::optional<QList<Shoot>> shoots = decodeShoots(store, fault);
    return shoots && shoots->size() == 1 ? shoots->constFirst().activationLog.size() : -1;
}

const SetData* setOfTags(const QJsonObject& tags, const QList<SetData>& sets)
{
    const Shoot shoot = samples::shootNamed(shootName);
    const auto set = std::ranges::find_if(sets, [&](const SetData& candidate) {
        return driver::tagFaults(tags, {candidate, shoot}).isEmpty();
    });
    return set == sets.cend() ? nullptr : &*set;
}

QByteArray rawStrip(const QString& path)
{
    QProcess tool;
    tool.start(QStringLiteral("exiftool"),
               {QStringLiteral("-j"), QStringLiteral("-n"), QStringLiteral("-a"), QStringLiteral("-G4"),
                QStringLiteral("-StripOffsets"), QStringLiteral("-StripByteCounts"), path});
    tool.waitForFinished(30'000);
    const QJsonObject tags = QJsonDocument::fromJson(tool.readAllStandardOutput()).array().first().toObject();
    qint64 offset = 0;
    qint64 length = 0;
    for (auto tag = tags.begin(); tag != tags.end(); ++tag) {
        if (tag.key().endsWith(u"StripByteCounts") && tag->toInteger() > length) {
            length = tag->toInteger();
            offset = tags.value(QString(tag.key()).replace(QStringLiteral("ByteCounts"),
                                                           QStringLiteral("Offsets")))
                         .toInteger();
        }
    }
    QFile file(path);
    if (length == 0 || !file.open(QIODevice::ReadOnly) || !file.seek(offset))
        return {};
    return file.read(length);
}

}  // namespace morvak::test
