#pragma once

#include "store/ShootManager.h"
#include "watch/FolderWatcher.h"

#include <QMutex>
#include <QSemaphore>
#include <QTemporaryDir>

#include <atomic>
#include <optional>

namespace morvak::test {

/// A watcher on a real folder whose events are scripted, with short times, a tool that answers from tables
/// and a writer that waits for its cue.
class WatcherFixture {
public:
    struct Write {
        QString name;
        QString headline;
        QString shootName;
        std::function<void(bool)> completion;
    };

    explicit WatcherFixture(LookTimes times = {});
    ~WatcherFixture() { watcher.reset(); }  // its threads ask this fixture until they have ended
    Q_DISABLE_COPY_MOVE(WatcherFixture)

    /// Puts a photo into the folder; the next one under the same name is a new file. One that is called
    /// ancient... looks as if nothing had changed it for years.
    QString put(const QString& name, const QByteArray& content = "photo");
    [[nodiscard]] QString path(const QString& name) const { return folder.path() + u'/' + name; }

    void tell(FolderEvent::Kind kind, const QString& name = {}, quint32 renameId = 0);
    void arrive(const QString& name, const QByteArray& content = "photo");

    /// The kernel tells where the path leads now.
    void tellPlace();
    void vanish();

    /// The photo shows this set card when it is looked at.
    void showCard(const QString& name, const QString& text);

    /// Looking into the photo, or for its headline, waits until `allowReading`.
    void holdReading(const QString& name);
    void allowReading(const QString& name);

    /// The tool leaves every question about this photo, or about each one, unanswered.
    void setUnanswered(const QString& name, bool unanswered = true);
    void setReaderAway(bool away) { m_readerIsAway = away; }

    /// How often the tool was asked about the photo.
    [[nodiscard]] qsizetype questions(const QString& name) const;

    void setHeld(const QString& name, bool held);

    /// The tool does the oldest write that waits: the file changes, its events come, the answer is `ok`.
    void answerWrite(bool ok = true);

    /// Lines of the log, oldest first.
    [[nodiscard]] QStringList logLines() const;
    [[nodiscard]] QStringList writtenNames() const;

    QTemporaryDir folder;
    QTemporaryDir data;
    ShootManager store;
    QList<Write> writes;
    int writesAnswered = 0;
    bool answersByItself = true;
    QStringList trashed;
    bool trashWorks = true;
    int sounds = 0;
    int foldersOpened = 0;
    bool folderCanBeOpened = true;
    std::function<void()> onDrain;
    std::optional<FolderPlace> place = FolderPlace{1, 7, "/drive/shoot", "/drive"};  ///< what looking finds
    int looks = 0;
    std::optional<FolderWatcher> watcher;

private:
    class ScriptedFolder;
    class ScriptedFollower;

    FolderSources folderSources();
    WatcherServices services();
    ToolAnswer answer(const QStringList& options, const QString& path);
    std::optional<QString> headlineOf(const QString& path);
    void passGate(const QString& name);
    void replaceAsTheToolDoes(const QString& name);

    const LookTimes m_looks;
    std::atomic<bool> m_readerIsAway = false;
    FolderEventHandler m_handler;
    FolderPlaceHandler m_placeHandler;
    quint32 m_lastRename = 0;
    mutable QMutex m_mutex;  // guards what the pool and the waiting room ask for
    QSet<QString> m_held;
    QSet<QString> m_unanswered;
    QStringList m_questions;  // the photo of each
    QHash<QString, QString> m_cards;
    QHash<QString, std::shared_ptr<QSemaphore>> m_gates;
};

}  // namespace morvak::test
