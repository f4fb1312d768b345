#pragma once

#include "watch/FolderWatcher.h"

#include <QWidget>

namespace morvak {

class Theme;

/// Photos side by side with their file names under them, newest first; smaller together where there is not
/// room for all that may come.
class ThumbnailStrip final : public QWidget {
    Q_OBJECT

public:
    explicit ThumbnailStrip(const Theme& theme, QWidget* parent = nullptr);

    void setThumbnails(const QList<FolderWatcher::NamedThumbnail>& thumbnails);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] QRectF imageRect(qsizetype place) const;
    void paintThumbnail(QPainter& painter, qsizetype place) const;

    const Theme& m_theme;
    QList<FolderWatcher::NamedThumbnail> m_thumbnails;
};

}  // namespace morvak
