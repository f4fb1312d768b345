#include "update/UpdateChecker.h"

#include "platform/Diagnostics.h"
#include "platform/UserFolders.h"

#include <QCoreApplication>

#include <algorithm>

namespace morvak {

namespace {

UpdateConfig publishersConfig()
{
    const QString version = QCoreApplication::applicationVersion();
    UpdateConfig config;
    config.endpoint = QUrl(QStringLiteral("https://" MORVAK_UPDATE_HOST "/wp-json/morvak/v1/version"));
    config.keyPrefix = QStringLiteral("morvak.updateChecker");
    config.currentVersion = version.isEmpty() ? QStringLiteral("0") : version;
    config.preferencesPath = preferencesFile();
    return config;
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Stricter than Qt, which skips blanks.
std::optional<qint64> wholeNumber(QStringView piece)
{
    const bool hasSign = piece.startsWith(u'+') || piece.startsWith(u'-');
    const QStringView digits = piece.sliced(hasSign ? 1 : 0);
    if (!std::all_of(digits.begin(), digits.end(), isDigit))
        return std::nullopt;
    bool fits = false;
    const qint64 number = piece.toLongLong(&fits);
    return fits ? std::optional(number) : std::nullopt;
}

QList<qint64> versionNumbers(QStringView version)
{
    QList<qint64> numbers;
    for (const QStringView piece : version.tokenize(u'.', Qt::SkipEmptyParts)) {
        if (const std::optional<qint64> number = wholeNumber(piece))
            numbers.append(*number);
    }
    return numbers;
}

}  // namespace

UpdateChecker& UpdateChecker::shared()
{
    static UpdateChecker instance(publishersConfig());
    return instance;
}

UpdateChecker::UpdateChecker(UpdateConfig config, QObject* parent)
    : QObject(parent), m_config(std::move(config)), m_memory(m_config.preferencesPath, m_config.keyPrefix)
{
    const std::optional<PublishedVersion> known = m_memory.lastKnown();
    if (known && isVersion(known->version, m_config.currentVersion))
        publish(known);
    connect(&m_timer, &QTimer::timeout, this, &UpdateChecker::checkForUpdate);
    // The shared one outlives the application, its network objects and timer must not.
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &UpdateChecker::stop);
}

void UpdateChecker::start()
{
    checkForUpdate();
    m_timer.start(m_config.minCheckInterval);
}

void UpdateChecker::checkForUpdate()
{
    if (m_request || isTooSoon())
        return;
    m_request = std::make_unique<UpdateRequest>(m_config.endpoint, m_config.limits);
    connect(m_request.get(), &UpdateRequest::finished, this, &UpdateChecker::takeAnswer);
}

bool UpdateChecker::isTooSoon() const
{
    const std::optional<QDateTime> last = m_memory.lastCheck();
    return last && last->msecsTo(m_config.clock()) < m_config.minCheckInterval.count();
}

void UpdateChecker::takeAnswer(const std::optional<QByteArray>& body, const QString& problem)
{
    m_request.release()->deleteLater();  // it is the one that calls
    JsonFault fault;
    const std::optional<PublishedVersion> published = body ? parseUpdateAnswer(*body, fault) : std::nullopt;
    if (!published) {
        m_memory.storeCheck(m_config.clock());
        diagnostic(QStringLiteral("⚠️ Niet nagegaan of er een nieuwe versie is: %1")
                       .arg(body ? fault.message() : problem));
        return;
    }
    const bool isNewer = isVersion(published->version, m_config.currentVersion);
    const std::optional<PublishedVersion> newer = isNewer ? published : std::nullopt;
    m_memory.storeCheckAndResult(m_config.clock(), newer);
    publish(newer);
}

void UpdateChecker::publish(const std::optional<PublishedVersion>& newer)
{
    m_availableVersion = newer ? std::optional(newer->version) : std::nullopt;
    m_downloadURL = newer ? webAddress(newer->downloadUrl) : std::nullopt;
    Q_EMIT availableVersionChanged();
    Q_EMIT downloadURLChanged();
}

void UpdateChecker::stop()
{
    m_timer.stop();
    m_request.reset();
}

bool UpdateChecker::isVersion(QStringView version, QStringView newerThan)
{
    const QList<qint64> ours = versionNumbers(version);
    const QList<qint64> theirs = versionNumbers(newerThan);
    for (qsizetype i = 0; i < std::max(ours.size(), theirs.size()); ++i) {
        if (ours.value(i) != theirs.value(i))
            return ours.value(i) > theirs.value(i);
    }
    return false;
}

}  // namespace morvak
