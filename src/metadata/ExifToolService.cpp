#include "metadata/ExifToolService.h"

#include "metadata/ToolLookup.h"

namespace morvak {

namespace {

std::function<QString()> toolLookup(const ExifToolConfig& config)
{
    if (config.findTool)
        return config.findTool;
    return [directory = config.resourceDirectory] { return findExifTool(directory); };
}

}  // namespace

ExifToolService& ExifToolService::shared()
{
    static ExifToolService instance;
    return instance;
}

ExifToolService::ExifToolService(ExifToolConfig config)
    : m_findTool(toolLookup(config)),
      m_writer(config.writer, m_findTool, m_quit),
      m_reader(config.reader, m_findTool, m_quit),
      m_folderReader(config.folder, m_findTool, m_quit)
{
}

ExifToolService::~ExifToolService()
{
    terminateForAppQuit();
    m_mainThread.close();
}

void ExifToolService::start()
{
    m_writer.start();
    m_reader.start();
}

void ExifToolService::stop()
{
    m_writer.stop();
    m_reader.stop();
}

void ExifToolService::terminateForAppQuit()
{
    m_quit.raise();
    m_writer.close();
    m_reader.close();
    m_writer.wait();
    m_reader.wait();
    m_folderReader.wait();
}

void ExifToolService::writeMetadata(const QString& to, const Tagging& tagging, const Completion& completion)
{
    m_writer.write(to, tagging, [main = m_mainThread, completion](bool tagged) {
        main.post([completion, tagged] { completion(tagged); });
    });
}

ToolAnswer ExifToolService::read(const QStringList& options, const QString& filePath)
{
    return m_reader.read(options, filePath);
}

std::optional<QString> ExifToolService::readHeadline(const QString& at)
{
    const QByteArray answer =
        read({QStringLiteral("-s3"), QStringLiteral("-XMP-photoshop:Headline")}, at).printed;
    const QString headline = answer.isValidUtf8() ? QString::fromUtf8(answer).trimmed() : QString();
    return headline.isEmpty() ? std::nullopt : std::optional(headline);
}

FolderMetadata ExifToolService::readSubjectsAndDates(const QString& in, const QSet<QString>& extensions,
                                                     const ReadingControl& control)
{
    return m_folderReader.read(in, extensions, control);
}

}  // namespace morvak
