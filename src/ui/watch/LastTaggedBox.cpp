#include "ui/watch/LastTaggedBox.h"

#include "ui/base/UiServices.h"
#include "ui/base/blocks/Card.h"
#include "ui/base/blocks/ElidedLabel.h"
#include "ui/base/blocks/TextLook.h"
#include "ui/watch/ThumbnailStrip.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace morvak {

LastTaggedBox::LastTaggedBox(UiServices& services, QWidget* parent)
    : QWidget(parent),
      m_services(services),
      m_name(new ElidedLabel({}, nullptr, Qt::ElideMiddle)),
      m_thumbnails(new ThumbnailStrip(services.theme)),
      m_refresh([this] { refresh(); })
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* const card =
        new Card(services.theme, tr("Laatst getagd"), u"checkmark.circle.fill"_s, nullptr, Role::success);
    column->addWidget(card);
    m_name->setObjectName(u"lastTaggedFile"_s);
    m_thumbnails->setObjectName(u"recentThumbnails"_s);
    card->content()->addWidget(m_name);
    card->content()->addWidget(m_thumbnails);
    connect(&services.watcher, &FolderWatcher::lastTaggedFileChanged, &m_refresh, &CoalescedCall::ask);
    connect(&services.watcher, &FolderWatcher::recentThumbnailsChanged, &m_refresh, &CoalescedCall::ask);
    refresh();
}

void LastTaggedBox::refresh()
{
    const FolderWatcher& watcher = m_services.watcher;
    const bool none = watcher.lastTaggedFile().isEmpty();
    setTextLook(*m_name, TextStyle::body, none ? Role::secondary : Role::text);
    m_name->setText(none ? tr("Nog geen foto getagd") : watcher.lastTaggedFile());
    m_thumbnails->setThumbnails(watcher.recentThumbnails());
    m_thumbnails->setVisible(!watcher.recentThumbnails().isEmpty());
}

}  // namespace morvak
