#pragma once

#include "metadata/FolderReader.h"
#include "metadata/PhotoReader.h"
#include "metadata/PhotoWriter.h"
#include "platform/MainThread.h"

namespace morvak {

/// The one bridge to exiftool: tags photos and reads what is in them, through one stay-open tool each; whole
/// folders are read by runs of their own.
///
/// Made and destroyed on the main thread. Nothing runs any more, and nothing is called back, once it is gone;
/// threads that are inside one of the reads at that moment get their empty answer first.
class ExifToolService {
public:
    using Completion = PhotoWriter::Completion;

    /// The instance of the application, made on first use. No tool runs before `start` or the first request.
    static ExifToolService& shared();

    explicit ExifToolService(ExifToolConfig config = {});

    /// Does what `terminateForAppQuit` does unless that was done.
    ~ExifToolService();
    ExifToolService(const ExifToolService&) = delete;
    ExifToolService& operator=(const ExifToolService&) = delete;

    /// Launches both tools; returns at once. Any thread.
    void start();

    /// Ends both tools after the requests that were made before; returns at once. A later request launches
    /// them again. Any thread.
    void stop();

    /// Ends everything for good: requests that wait are discarded, reads return, a running write gets one
    /// second and is then broken off with its temporary file removed. Blocks for at most about 1.5 seconds;
    /// afterwards no tool runs. Main thread.
    void terminateForAppQuit();

    /// Writes the tags into the photo at absolute path `to`. Returns at once; `completion` is called
    /// exactly once, on the main thread, in the order of the calls, with whether the photo is tagged. Any
    /// thread.
    void writeMetadata(const QString& to, const Tagging& tagging, const Completion& completion);

    /// Removes the temporary files that a killed exiftool has left beside the photos directly in a folder.
    /// Returns at once; it is done before any write that is asked for later. Any thread.
    void clearUp(const QString& folder) { m_writer.clearUp(folder); }

    /// What exiftool prints for these options and this photo. Blocks for at most about five seconds once it
    /// is its turn; any thread but the main one.
    [[nodiscard]] ToolAnswer read(const QStringList& options, const QString& filePath);

    /// The XMP photoshop Headline, which tagging writes, without white space and line breaks at both ends.
    /// None when the photo has none but white space, when it is no UTF-8, and on any failure of `read`, as
    /// which it blocks.
    [[nodiscard]] std::optional<QString> readHeadline(const QString& at);

    /// The file name, XMP Subject and capture time of the photos directly in a folder (absolute, of any name)
    /// whose lower-cased extension, without its dot, is among `extensions`. Symbolic links are left out;
    /// files that the tool would print under another name, and those that it told nothing of, are counted.
    /// Runs of its own, which may go on while photos are tagged. Blocks for at most about 30 seconds for each
    /// 256 photos; any thread but the main one.
    [[nodiscard]] FolderMetadata readSubjectsAndDates(const QString& in, const QSet<QString>& extensions,
                                                      const ReadingControl& control = {});

    /// The path of the tool to use; there may be nothing at it. Any thread.
    [[nodiscard]] QString findExifTool() const { return m_findTool(); }

private:
    std::function<QString()> m_findTool;
    MainThread m_mainThread;
    Interrupt m_quit;
    PhotoWriter m_writer;
    PhotoReader m_reader;
    FolderReader m_folderReader;
};

}  // namespace morvak
