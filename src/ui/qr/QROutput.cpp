#include "ui/qr/QROutput.h"

#include "qr/QRGenerator.h"
#include "qr/QRImageFile.h"
#include "ui/base/Dialogs.h"
#include "ui/base/blocks/NoticeLine.h"
#include "ui/qr/QRTexts.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr std::chrono::hours untilTheNext(24);

}  // namespace

void copyQR(const QString& text, int side, NoticeLine& notice)
{
    const std::optional<QImage> image = QRGenerator::generate(text, side);
    if (!image)
        return notice.showNotice(QRTexts::problem(text), Role::warning, untilTheNext);
    QGuiApplication::clipboard()->setImage(*image);
    notice.showNotice(QRTexts::tr("QR-code gekopieerd"), Role::success);
}

void saveQRAs(const SetData& set, Dialogs& dialogs, NoticeLine& notice)
{
    if (const QString problem = QRTexts::problem(set.toQRText()); !problem.isEmpty())
        return notice.showNotice(problem, Role::warning, untilTheNext);
    const QString path = dialogs.saveFile(&notice, QRTexts::tr("QR-code bewaren"), proposedQRFileName(set),
                                          QRTexts::tr("PNG-afbeelding (*.png)"), u"png"_s);
    if (path.isEmpty())
        return;
    const QString name = QFileInfo(path).fileName();
    if (saveQR(set, path))
        notice.showNotice(QRTexts::tr("Bewaard: %1").arg(name), Role::success);
    else
        notice.showNotice(QRTexts::tr("“%1” kon niet bewaard worden. Kies een andere plaats.").arg(name),
                          Role::danger, untilTheNext);
}

}  // namespace morvak
