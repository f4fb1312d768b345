#include "watch/PhotoReading.h"

#include "watch/Thumbnail.h"

#include <algorithm>

namespace morvak {

namespace {

constexpr int readableLongSide = 1600;  // pixels; a code on a smaller preview may be too small to read

bool isSmall(const QImage& image)
{
    return std::max(image.width(), image.height()) < readableLongSide;
}

using Kind = ToolAnswer::Kind;

/// The tool as one photo asks it: the answer about the orientation is kept, for preview and own picture are
/// turned alike, and after an answer that did not come in time there are no more questions.
class PatientTool {
public:
    explicit PatientTool(const PreviewTool& tool) : m_tool(tool) {}

    [[nodiscard]] ToolAnswer read(const QStringList& options, const QString& path)
    {
        if (options != orientationOptions())
            return ask(options, path);
        if (!m_orientation)
            m_orientation = ask(options, path);
        return *m_orientation;
    }

    /// Late once it was late; else whether it has printed anything.
    [[nodiscard]] Kind kind() const { return m_kind; }

private:
    [[nodiscard]] ToolAnswer ask(const QStringList& options, const QString& path)
    {
        if (m_kind == Kind::Late)
            return Kind::Late;
        ToolAnswer answer = m_tool.read(options, path);
        if (answer.kind != Kind::Unasked)
            m_kind = answer.kind;
        return answer;
    }

    const PreviewTool& m_tool;
    std::optional<ToolAnswer> m_orientation;
    Kind m_kind = Kind::Unasked;
};

}  // namespace

PhotoReading readPhoto(const QString& path, bool detectCode, const PhotoEyes& eyes,
                       const std::stop_token& stop)
{
    PatientTool patient(eyes.tool);
    const PreviewTool tool = {eyes.tool.exists, [&patient](const QStringList& options, const QString& photo) {
                                  return patient.read(options, photo);
                              }};
    std::optional<QImage> image = PreviewImage::extractPreviewImageSync(path, tool);
    std::optional<QString> text;
    if (image && detectCode)
        text = eyes.detectQRText(*image, stop);
    if (detectCode && !text && (!image || isSmall(*image)) && !stop.stop_requested()) {
        const std::optional<QImage> own = PreviewImage::ownPicture(path, tool, stop);
        if (own)
            text = eyes.detectQRText(*own, stop);
        if (!image)
            image = own;
    }
    return {image ? makeThumbnail(*image) : QImage(), text, patient.kind()};
}

}  // namespace morvak
