#pragma once

#include "metadata/PhotoReader.h"
#include "metadata/PhotoWriter.h"
#include "platform/MainThread.h"

namespace morvak {

/// The one bridge to exiftool: tags photos and reads what is in them, through one stay-open tool each.
///
/// Made and destroyed on the main thread. Nothing runs any more, and nothing is called back, once it is gone;
/// threads that are inside `read` at that moment get their empty answer first.
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

    /// Writes the set's tags into the photo at absolute path `to`. Returns at once; `completion` is called
    /// exactly once, on the main thread, in the order of the calls, with whether the photo is tagged. Any
    /// thread.
    void writeMetadata(const QString& to, const SetData& setData, const QString& shootName,
                       const Completion& completion);

    /// What exiftool prints for these options and this photo; empty on any failure. Blocks for at most about
    /// five seconds once it is its turn; any thread but the main one.
    [[nodiscard]] QByteArray read(const QStringList& options, const QString& filePath);

    /// The path of the tool to use; there may be nothing at it. Any thread.
    [[nodiscard]] QString findExifTool() const { return m_findTool(); }

private:
    std::function<QString()> m_findTool;
    MainThread m_mainThread;
    Interrupt m_quit;
    PhotoWriter m_writer;
    PhotoReader m_reader;
};

}  // namespace morvak
