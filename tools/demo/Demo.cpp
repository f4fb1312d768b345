#include "demo/Demo.h"

#include "demo/Report.h"
#include "demo/Tether.h"
#include "demo/TextTable.h"
#include "driver/PhotoCheck.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocale>

#include <algorithm>
#include <array>
#include <csignal>

namespace morvak::demo {

namespace {

using namespace std::chrono_literals;
using driver::PhotoTags;

constexpr auto quitLimit = 5s;
constexpr auto cableTime = 480ms;  // a photo on its way
constexpr auto betweenPhotos = 350ms;

// Who acts, in one width.
const QString camera = QStringLiteral("camera");
const QString morvakItself = QStringLiteral("Morvak");
const QString stage = QStringLiteral("demo  ");

QString megabytes(const QByteArray& bytes)
{
    return QLocale(QLocale::Dutch).toString(static_cast<double>(bytes.size()) / 1e6, 'f', 1) +
           QStringLiteral(" MB");
}

/// How the lines for developers begin; every other line is the user's log.
bool isDiagnostic(const QString& line)
{
    static const std::array<QString, 8> beginnings{
        QStringLiteral("📁"),          QStringLiteral("🏷️"),    QStringLiteral("🖼️"),
        QStringLiteral("🔧"),          QStringLiteral("⏱️"),     QStringLiteral("✅ Tagged:"),
        QStringLiteral("✅ ExifTool"), QStringLiteral("❌ Failed to")};
    return std::ranges::any_of(beginnings, [&line](const QString& text) { return line.startsWith(text); });
}

bool isRefusal(const QString& line)
{
    return line.endsWith(QStringLiteral(" overgeslagen")) ||
           line.startsWith(QStringLiteral("❌ Tagging mislukt: "));
}

}  // namespace

Demo::Demo(QString program, driver::Pacer& pacer)
    : m_pacer(pacer), m_sets(samples::sampleSets()), m_program(std::move(program))
{
    QObject::connect(&m_program, &driver::MorvakProcess::said, &m_program, [](const QString& line) {
        if (!isDiagnostic(line))
            report::event(morvakItself, line);
    });
}

bool Demo::run()
{
    return prepare() && startProgram() && shoot() && stopProgram() && judge();
}

bool Demo::prepare()
{
    report::heading(QStringLiteral("Morvak – demonstratie"));
    report::plain(QStringLiteral(
        "Een kleine shoot met twee sets, in een tijdelijke map. Elke set begint met de foto van\n"
        "zijn kaart; de foto's daarna krijgen de gegevens van die set.\n"));
    if (!m_program.profile().isValid())
        return giveUp(QStringLiteral("Er kan geen tijdelijke map worden gemaakt."));
    report::event(stage, QStringLiteral("Foto's en setkaarten worden getekend …"));
    m_photos = samples::sampleShoot(m_sets);
    m_shoot = m_program.profile().makeShoot(QStringLiteral("Voorjaar – lookbook"), QStringLiteral("Den Haag"),
                                            QStringLiteral("Noord"));
    return true;
}

bool Demo::startProgram()
{
    report::event(stage, QStringLiteral("Morvak wordt gestart …"));
    if (!m_program.start(m_pacer))
        return giveUp(QStringLiteral("Morvak is niet begonnen met kijken naar de map. ") +
                      m_program.complaint());
    return true;
}

bool Demo::shoot()
{
    for (qsizetype i = 0; i < m_photos.size(); ++i) {
        // Between two sets the model changes clothes; all photos of the first are in by then.
        if (m_photos.at(i).isCard && !waitForTags(i))
            return false;
        if (!shootOne(i))
            return false;
    }
    return waitForTags(m_photos.size());
}

bool Demo::shootOne(qsizetype index)
{
    const samples::SamplePhoto& photo = m_photos.at(index);
    // The first photo after the second card comes at once, while the card is still being read.
    const bool hurried = index > 1 && m_photos.at(index - 1).isCard;
    if (!hurried && !m_pacer.pause(betweenPhotos))
        return giveUp(QStringLiteral("De demonstratie is onderbroken."));
    report::event(camera,
                  QStringLiteral("%1, %2%3%4")
                      .arg(photo.name, megabytes(photo.bytes),
                           photo.isCard ? QStringLiteral(" – de kaart van ") + m_sets.at(photo.set).headline()
                                        : QString(),
                           hurried ? QStringLiteral(" – direct na de kaart") : QString()));
    const Delivery delivery = index % 3 == 2 ? Delivery::Renamed : Delivery::Direct;
    const QString path = m_program.folder() + u'/' + photo.name;
    if (!deliver(photo.bytes, path, delivery, hurried ? 0ms : cableTime, m_pacer))
        return giveUp(QStringLiteral("De foto %1 kon niet worden weggeschreven.").arg(photo.name));
    return true;
}

bool Demo::waitForTags(qsizetype count)
{
    const auto allTagged = [&] {
        return std::all_of(
            m_photos.cbegin(), m_photos.cbegin() + count,
            [&](const samples::SamplePhoto& photo) { return m_program.hasTagged(photo.name); });
    };
    const auto settled = [&] { return allTagged() || m_program.hasEnded() || !refusal().isEmpty(); };
    if (!m_pacer.waitUntil(settled) || !allTagged()) {
        if (!refusal().isEmpty())
            return giveUp(refusal());
        QStringList missing;
        for (const samples::SamplePhoto& photo : m_photos.first(count)) {
            if (!m_program.hasTagged(photo.name))
                missing.append(photo.name);
        }
        const QString cause =
            m_program.hasEnded() ? QStringLiteral("Morvak is onverwacht gestopt. ") : QString();
        return giveUp(cause + QStringLiteral("Niet getagd: ") + missing.join(QStringLiteral(", ")) + u'.');
    }
    return true;
}

bool Demo::stopProgram()
{
    m_program.signal(SIGTERM);
    if (!m_pacer.waitUntil([this] { return m_program.hasEnded(); }, quitLimit) || !m_program.endedWell())
        return giveUp(QStringLiteral("Morvak is niet netjes gestopt. ") + m_program.complaint());
    report::event(stage, QStringLiteral("Morvak is gestopt."));
    return true;
}

bool Demo::judge()
{
    QStringList names;
    for (const samples::SamplePhoto& photo : m_photos)
        names.append(photo.name);
    const auto photos = driver::readTags(m_program.folder(), names, m_program.profile().environment());
    if (!photos)
        return giveUp(QStringLiteral("De gegevens in de foto's konden niet worden teruggelezen."));

    QStringList faults = leftOvers();
    QList<QStringList> rows;
    for (const samples::SamplePhoto& photo : m_photos) {
        const PhotoTags tags = photos->value(photo.name);
        const auto value = [&tags](const char* tag) {
            return driver::tagValues(tags, QLatin1String(tag)).value(0);
        };
        const QStringList found = faultsOf(photo, tags);
        rows.append({found.isEmpty() ? QStringLiteral("✓") : QStringLiteral("✗"), photo.name,
                     value("XMP:Headline"), value("XMP:Subject"), value("XMP:Creator"), value("XMP:City")});
        for (const QString& fault : found)
            faults.append(photo.name + QStringLiteral(": ") + fault);
    }
    report::heading(QStringLiteral("Wat er nu in de foto's staat, teruggelezen met exiftool"));
    report::plain(textTable({QString(), QStringLiteral("Foto"), QStringLiteral("Kop"),
                             QStringLiteral("Trefwoorden"), QStringLiteral("Model"), QStringLiteral("Stad")},
                            rows));
    for (const QString& fault : faults)
        report::plain(QStringLiteral("✗ ") + fault);
    if (faults.isEmpty())
        report::plain(
            QStringLiteral(
                "Alle %1 foto's dragen hun set, in XMP en IPTC; aan de beelden zelf is niets veranderd.")
                .arg(m_photos.size()));
    return faults.isEmpty();
}

QStringList Demo::faultsOf(const samples::SamplePhoto& photo, const PhotoTags& tags) const
{
    QStringList faults = driver::tagFaults(tags, {m_sets.at(photo.set), m_shoot});
    QFile file(m_program.folder() + u'/' + photo.name);
    if (!file.open(QIODevice::ReadOnly) || !driver::hasSamePicture(photo.bytes, file.readAll()))
        faults.append(QStringLiteral("het beeld is niet meer wat het was"));
    return faults;
}

QStringList Demo::leftOvers() const
{
    QStringList names =
        QDir(m_program.folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const samples::SamplePhoto& photo : m_photos)
        names.removeAll(photo.name);
    for (QString& name : names)
        name.prepend(QStringLiteral("Achtergebleven in de map: "));
    return names;
}

QString Demo::refusal() const
{
    const QStringList& lines = m_program.lines();
    const auto found = std::ranges::find_if(lines, isRefusal);
    return found == lines.cend() ? QString() : *found;
}

bool Demo::giveUp(const QString& reason) const
{
    if (m_pacer.wasStopped())
        report::plain(QStringLiteral("\n✗ De demonstratie is afgebroken."));
    else if (m_pacer.isTimeUp())
        report::plain(QStringLiteral("\n✗ De demonstratie duurde te lang. ") + reason);
    else
        report::plain(QStringLiteral("\n✗ ") + reason);
    return false;
}

}  // namespace morvak::demo
