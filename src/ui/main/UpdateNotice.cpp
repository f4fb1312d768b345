#include "ui/main/UpdateNotice.h"

#include "ui/base/UiServices.h"
#include "ui/base/theme/Metrics.h"
#include "ui/base/theme/Theme.h"
#include "update/UpdateChecker.h"

namespace morvak {

UpdateNotice::UpdateNotice(UiServices& services, QWidget* parent) : QPushButton(parent), m_services(services)
{
    setObjectName(QStringLiteral("updateNotice"));
    setIcon(services.theme.icons().icon(QStringLiteral("arrow.down.circle.fill"), Role::accent));
    setIconSize(QSize(metrics::smallIcon, metrics::smallIcon));
    setToolTip(
        tr("Nieuwe versie van Morvak beschikbaar — klik om de downloadpagina te openen. "
           "Update gebeurt niet automatisch."));
    connect(&services.updates, &UpdateChecker::availableVersionChanged, this, &UpdateNotice::showVersion);
    connect(this, &QPushButton::clicked, this, [this] {
        if (const std::optional<QUrl>& page = m_services.updates.downloadURL())
            m_services.openInBrowser(*page);
    });
    showVersion();
}

void UpdateNotice::showVersion()
{
    const std::optional<QString>& version = m_services.updates.availableVersion();
    if (version)
        setText(tr("v%1 beschikbaar").arg(*version));
    setVisible(version.has_value());
}

}  // namespace morvak
