#include "MorvakRun.h"

#include "sampleshoot/PhotoEncoders.h"
#include "store/ShootManager.h"
#include "store/StoreFile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <sys/prctl.h>

namespace morvak::test {

namespace {

QByteArray runExifTool(const QStringList& arguments, const QString& folder)
{
    QProcess tool;
    tool.setWorkingDirectory(folder);
    tool.start(QStringLiteral("exiftool"), arguments);
    tool.waitForFinished(30'000);
    return tool.readAllStandardOutput();
}

}  // namespace

MorvakRun::MorvakRun()
{
    QDir(m_root.path()).mkdir(QStringLiteral("photos"));
    ShootManager store(storeFile());
    store.createShoot(QStringLiteral("Herfst ’26"), {}, {});
    store.setWatchFolder(folder(), *store.activeShootId());
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // A test that is killed leaves nothing running.
    m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

MorvakRun::~MorvakRun()
{
    kill();
    signalTools(SIGKILL);  // such as were stopped, and do not hear that the program has ended
}

QProcessEnvironment MorvakRun::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, sub] :
         {std::pair{"HOME", "home"}, {"XDG_DATA_HOME", "data"}, {"XDG_CONFIG_HOME", "config"}})
        environment.insert(QString::fromUtf8(name), m_root.filePath(QString::fromUtf8(sub)));
    environment.insert(QStringLiteral("MORVAK_TEST_RUN"), m_root.path());
    for (auto extra = m_extra.begin(); extra != m_extra.end(); ++extra)
        environment.insert(extra.key(), extra.value());
    return environment;
}

void MorvakRun::start()
{
    m_lines.clear();
    m_process.setProcessEnvironment(environment());
    m_process.start(QStringLiteral(MORVAK_PROGRAM), {QStringLiteral("--scan-stdin")});
    QTRY_VERIFY_WITH_TIMEOUT(count(QStringLiteral("Watching: ") + folder()) == 1, 20'000);
}

void MorvakRun::scan(const SetData& set)
{
    const qsizetype before = count(QStringLiteral("Actieve set: "));
    type(set);
    QTRY_VERIFY_WITH_TIMEOUT(count(QStringLiteral("Actieve set: ")) > before, 20'000);
}

void MorvakRun::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

void MorvakRun::signalTools(int number) const
{
    for (const qint64 tool : exifTools())
        ::kill(pid_t(tool), number);
}

qint64 MorvakRun::quit(int signal)
{
    QElapsedTimer timer;
    timer.start();
    ::kill(pid_t(m_process.processId()), signal);
    const bool ended = m_process.waitForFinished(20'000);
    return ended && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0
               ? timer.elapsed()
               : -1;
}

void MorvakRun::drop(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

const QStringList& MorvakRun::lines()
{
    m_process.waitForReadyRead(1);
    m_unfinished += m_process.readAllStandardOutput();
    for (qsizetype end = 0; (end = m_unfinished.indexOf('\n')) >= 0; m_unfinished.remove(0, end + 1))
        m_lines.append(QString::fromUtf8(m_unfinished.first(end)));
    return m_lines;
}

qsizetype MorvakRun::count(const QString& textInLine)
{
    return lines().filter(textInLine).size();
}

QHash<QString, QJsonObject> MorvakRun::readBack() const
{
    QStringList arguments = {QStringLiteral("-j"), QStringLiteral("-G")};
    for (const QString& name : QDir(folder()).entryList(QDir::Files))  // no pipes: the tool would wait there
        arguments.append(QStringLiteral("./") + name);
    const QByteArray json = runExifTool(arguments, folder());
    QHash<QString, QJsonObject> tags;
    for (const QJsonValue& photo : QJsonDocument::fromJson(json).array())
        tags.insert(photo[QStringLiteral("File:FileName")].toString(), photo.toObject());
    return tags;
}

QStringList MorvakRun::leftovers() const
{
    const QStringList names = QDir(folder()).entryList(QDir::Files | QDir::Hidden);
    return names.filter(QStringLiteral("_exiftool_tmp")) + names.filter(QStringLiteral("_original"));
}

QList<qint64> MorvakRun::exifTools() const
{
    QList<qint64> found;
    for (const QString& name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        const QString process = QStringLiteral("/proc/") + name;
        if (name.toLongLong() > 0 && contentOf(process + QStringLiteral("/cmdline")).contains("-stay_open") &&
            contentOf(process + QStringLiteral("/environ"))
                .contains("MORVAK_TEST_RUN=" + m_root.path().toUtf8()))
            found.append(name.toLongLong());
    }
    return found;
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
    const auto is = [&tags](const char* tag, const QString& value) {
        return tags.value(QLatin1String(tag)).toVariant().toString() == value;
    };
    for (const SetData& set : sets) {
        if (is("XMP:Headline", set.headline()) && is("XMP:Title", set.headline()) &&
            is("XMP:Description", set.description()) && is("XMP:Creator", set.model) &&
            is("XMP:Instructions", set.toQRText().replace(QStringLiteral("\n"), QStringLiteral(" | "))) &&
            is("IPTC:Headline", set.headline()) && is("IPTC:Caption-Abstract", set.description()))
            return &set;
    }
    return nullptr;
}

QByteArray rawStrip(const QString& path)
{
    const QByteArray json =
        runExifTool({QStringLiteral("-j"), QStringLiteral("-n"), QStringLiteral("-a"), QStringLiteral("-G4"),
                     QStringLiteral("-StripOffsets"), QStringLiteral("-StripByteCounts"), path},
                    QDir::tempPath());
    const QJsonObject tags = QJsonDocument::fromJson(json).array().first().toObject();
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
