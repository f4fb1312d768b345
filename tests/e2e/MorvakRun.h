#pragma once

#include "driver/MorvakProcess.h"
#include "driver/ReadBack.h"

#include <csignal>

namespace morvak::test {

/// The real program with one shoot, whose folder is watched, and what came of the photos.
class MorvakRun : public driver::MorvakProcess {
public:
    MorvakRun();
    ~MorvakRun() override;

    /// Starts the program and waits until it watches.
    void start();
    void scan(const SetData& set);

    /// Asks for the end with this signal and waits; the milliseconds it took, or -1 when it does not end
    /// well.
    qint64 quit(int number);

    [[nodiscard]] QString path(const QString& name) const { return folder() + u'/' + name; }
    [[nodiscard]] QString storeFile() const { return profile().storeFile(); }
    [[nodiscard]] QString elsewhere(const QString& name) const { return profile().elsewhere(name); }

    /// Writes a photo under its final name, as fast as it goes.
    void drop(const QString& name, const QByteArray& bytes) const;

    /// All lines of standard output so far.
    [[nodiscard]] const QStringList& lines();
    [[nodiscard]] qsizetype count(const QString& textInLine) { return lines().filter(textInLine).size(); }

    /// Tags of the photos in the folder, by file name.
    [[nodiscard]] QHash<QString, driver::PhotoTags> readBack() const;

    /// Names in the folder that are neither photos nor anything the test put there.
    [[nodiscard]] QStringList leftovers() const;
};

/// The whole content of a file; empty when it cannot be read.
[[nodiscard]] QByteArray contentOf(const QString& path);

/// A JPEG of a few kilobytes, the same each time.
[[nodiscard]] QByteArray smallPhoto();

/// How many activations this content of a store file holds; -1 when it is no whole store of one shoot.
[[nodiscard]] qsizetype activationsIn(const QByteArray& store);

/// The set whose tags these are, all of them and unharmed; null when they are none's.
[[nodiscard]] const SetData* setOfTags(const QJsonObject& tags, const QList<SetData>& sets);

/// The bytes of a RAW container's largest strip, where the camera put the picture.
[[nodiscard]] QByteArray rawStrip(const QString& path);

}  // namespace morvak::test
