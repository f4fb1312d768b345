#include "support/WatcherFixture.h"

#include "platform/FileName.h"

#include <QBuffer>
#include <QFile>
#include <QTimer>

namespace morvak::test {

namespace {

constexpr int codelessHeight = 4;

/// The preview of a photo whose card is the `n`th of the script; the height tells which.
QByteArray previewOfHeight(int height)
{
    QImage image(1600, height, QImage::Format_RGB32);
    image.fill(Qt::gray);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "jpg");
    return bytes;
}

}  // namespace

class WatcherFixture::ScriptedFolder final : public FolderEventSource {
public:
    explicit ScriptedFolder(WatcherFixture& fixture) : m_fixture(fixture) {}
    ~ScriptedFolder() override { m_fixture.m_handler = nullptr; }
    Q_DISABLE_COPY_MOVE(ScriptedFolder)
    void drain() override
    {
        if (const auto script = std::exchange(m_fixture.onDrain, nullptr))
            script();
    }

private:
    WatcherFixture& m_fixture;
};

WatcherFixture::WatcherFixture(LookTimes times)
    : store(data.filePath(QStringLiteral("shoots.json"))), m_looks(times)
{
    watcher.emplace(services());
    watcher->setShootManager(&store);
}

class WatcherFixture::ScriptedFollower final : public FolderFollower {
public:
    explicit ScriptedFollower(WatcherFixture& fixture) : m_fixture(fixture) {}
    ~ScriptedFollower() override { m_fixture.m_placeHandler = nullptr; }
    Q_DISABLE_COPY_MOVE(ScriptedFollower)
    void look() override
    {
        ++m_fixture.looks;
        QTimer::singleShot(0, &m_alive, [this] { m_fixture.tellPlace(); });
    }

private:
    WatcherFixture& m_fixture;
    QObject m_alive;
};

FolderSources WatcherFixture::folderSources()
{
    FolderSources sources;
    sources.openEvents = [this](const QString&,
                                FolderEventHandler handler) -> std::unique_ptr<FolderEventSource> {
        ++foldersOpened;
        if (!folderCanBeOpened)
            return nullptr;
        m_handler = std::move(handler);
        return std::make_unique<ScriptedFolder>(*this);
    };
    sources.find = [this](const QString&) { return place; };
    sources.follow = [this](const QString&, FolderPlaceHandler handler) {
        m_placeHandler = std::move(handler);
        return std::make_unique<ScriptedFollower>(*this);
    };
    return sources;
}

WatcherServices WatcherFixture::services()
{
    WatcherServices result;
    result.folder = folderSources();
    result.eyes.tool.exists = [] { return true; };
    result.eyes.tool.read = [this](const QStringList& options, const QString& file) {
        return answer(options, file);
    };
    result.eyes.detectQRText = [this](const QImage& image, const std::stop_token&) -> std::optional<QString> {
        const QMutexLocker lock(&m_mutex);
        for (auto card = m_cards.cbegin(); card != m_cards.cend(); ++card) {
            if (image.height() == codelessHeight + int(qHash(card.key()) % 500) + 1)
                return card.value();
        }
        return std::nullopt;
    };
    result.readHeadline = [this](const QString& file) { return headlineOf(file); };
    result.writeMetadata = [this](const QString& to, const Tagging& tagging, auto completion) {
        writes.append({lastPathComponent(to), tagging.set.headline(), tagging.shootName(), completion});
        if (answersByItself)
            QMetaObject::invokeMethod(
                &store, [this] { answerWrite(); }, Qt::QueuedConnection);
    };
    result.moveToTrash = [this](const QString& file) {
        const QMutexLocker lock(&m_mutex);
        trashed.append(lastPathComponent(file));
        return trashWorks && QFile::remove(file);
    };
    result.playSound = [this] { ++sounds; };
    result.files.state = [](const QString& file) {
        std::optional<FileState> state = regularFileState(file);
        if (state && lastPathComponent(file).startsWith(QStringLiteral("ancient")))
            state->changedNs = 0;
        return state;
    };
    result.files.held = [this](const QStringList& paths) {
        const QMutexLocker lock(&m_mutex);
        return QSet<QString>(paths.begin(), paths.end()).intersect(m_held);
    };
    result.waitLimits.interval = std::chrono::milliseconds(2);
    result.times.eventLatency = std::chrono::milliseconds(20);
    result.times.bannerTime = std::chrono::milliseconds(50);
    result.times.lookInterval = std::chrono::milliseconds(2);
    result.times.looks = m_looks;
    return result;
}

void WatcherFixture::passGate(const QString& name)
{
    std::shared_ptr<QSemaphore> gate;
    {
        const QMutexLocker lock(&m_mutex);
        gate = m_gates.value(name);
    }
    if (gate)
        gate->acquire();
}

ToolAnswer WatcherFixture::answer(const QStringList& options, const QString& file)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_questions.append(lastPathComponent(file));
        if (m_readerIsAway || m_unanswered.contains(lastPathComponent(file)))
            return ToolAnswer::Kind::Late;
    }
    if (options.constLast() != QStringLiteral("-PreviewImage"))
        return QByteArray();
    const QString name = lastPathComponent(file);
    int height = codelessHeight;
    {
        const QMutexLocker lock(&m_mutex);
        if (m_cards.contains(name))
            height += int(qHash(name) % 500) + 1;
    }
    passGate(name);
    return previewOfHeight(height);
}

/// What `replaceAsTheToolDoes` leaves in a photo.
std::optional<QString> WatcherFixture::headlineOf(const QString& file)
{
    passGate(lastPathComponent(file));
    QFile photo(file);
    if (photo.open(QIODevice::ReadOnly) && photo.readAll().contains("+tags"))
        return QStringLiteral("Set");
    return std::nullopt;
}

QString WatcherFixture::put(const QString& name, const QByteArray& content)
{
    QFile::remove(path(name));
    QFile file(path(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
    return path(name);
}

void WatcherFixture::tell(FolderEvent::Kind kind, const QString& name, quint32 renameId)
{
    if (const FolderEventHandler handler = m_handler)
        handler({{kind, name, renameId}});
}

void WatcherFixture::tellPlace()
{
    if (const FolderPlaceHandler handler = m_placeHandler)
        handler(place);
}

void WatcherFixture::vanish()
{
    place.reset();
    tell(FolderEvent::Kind::FolderGone);
}

void WatcherFixture::arrive(const QString& name, const QByteArray& content)
{
    put(name, content);
    tell(FolderEvent::Kind::Created, name);
    tell(FolderEvent::Kind::Written, name);
}

void WatcherFixture::showCard(const QString& name, const QString& text)
{
    const QMutexLocker lock(&m_mutex);
    m_cards.insert(name, text);
}

void WatcherFixture::holdReading(const QString& name)
{
    const QMutexLocker lock(&m_mutex);
    m_gates.insert(name, std::make_shared<QSemaphore>());
}

void WatcherFixture::allowReading(const QString& name)
{
    const QMutexLocker lock(&m_mutex);
    m_gates.take(name)->release(100);
}

void WatcherFixture::setUnanswered(const QString& name, bool unanswered)
{
    const QMutexLocker lock(&m_mutex);
    if (unanswered)
        m_unanswered.insert(name);
    else
        m_unanswered.remove(name);
}

qsizetype WatcherFixture::questions(const QString& name) const
{
    const QMutexLocker lock(&m_mutex);
    return m_questions.count(name);
}

void WatcherFixture::setHeld(const QString& name, bool held)
{
    const QMutexLocker lock(&m_mutex);
    if (held)
        m_held.insert(path(name));
    else
        m_held.remove(path(name));
}

void WatcherFixture::replaceAsTheToolDoes(const QString& name)
{
    QFile photo(path(name));
    if (!photo.open(QIODevice::ReadOnly))
        return;
    const QByteArray tagged = photo.readAll() + "+tags";
    const QString temporary = name + QStringLiteral("_exiftool_tmp");
    put(name, tagged);
    ++m_lastRename;
    tell(FolderEvent::Kind::Created, temporary);
    tell(FolderEvent::Kind::Written, temporary);
    tell(FolderEvent::Kind::MovedAway, temporary, m_lastRename);
    tell(FolderEvent::Kind::MovedHere, name, m_lastRename);
}

void WatcherFixture::answerWrite(bool ok)
{
    const Write write = writes.at(writesAnswered++);
    if (ok)
        replaceAsTheToolDoes(write.name);
    write.completion(ok);
}

QStringList WatcherFixture::logLines() const
{
    QStringList lines;
    for (const LogEntry& entry : watcher->log())
        lines.prepend(entry.message);
    return lines;
}

QStringList WatcherFixture::writtenNames() const
{
    QStringList names;
    for (const Write& write : writes)
        names.append(write.name);
    return names;
}

}  // namespace morvak::test
