#pragma once

#include "metadata/ToolConfig.h"

#include <QStringList>
#include <QTemporaryDir>

namespace morvak::test {

/// A folder of photos beside a fake exiftool whose launches behave as told, the last word for all further
/// ones.
class FakeTool {
public:
    explicit FakeTool(const QByteArray& behaviours);
    ~FakeTool();

    /// Uses the fake, with limits short enough to wait for.
    [[nodiscard]] ExifToolConfig config() const;

    /// Makes a file in the folder.
    [[nodiscard]] QString photo(const QString& name, const QByteArray& contents = "a photo") const;
    void control(const QString& name, const QByteArray& contents = {}) const { (void)photo(name, contents); }

    /// What the fake has noted so far.
    [[nodiscard]] QStringList log() const;
    [[nodiscard]] qsizetype count(const QString& start) const;

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

/// Processes that this one has started and that are not reaped yet.
[[nodiscard]] QList<int> childProcesses();

}  // namespace morvak::test
