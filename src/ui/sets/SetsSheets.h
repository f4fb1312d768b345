#pragma once

#include "ui/base/blocks/NoticeLine.h"

#include <QObject>
#include <QUuid>

namespace morvak {

class SheetFrame;
struct UiServices;

/// The sheets and questions of the Sets tab: each is opened over the tab's window, one at a time, and what
/// the user decides there is done.
class SetsSheets final : public QObject {
    Q_OBJECT

public:
    SetsSheets(UiServices& services, QWidget& tab);

    void newShoot();
    void deleteShoot();
    void clients();
    /// With the text of the file, if any.
    void import(const QString& file = {});
    void bulkExport();
    void catalog();

    void newSet();
    void editSet(QUuid id);
    void showQR(QUuid id);
    void deleteSet(QUuid id);

Q_SIGNALS:
    /// The last sheet or question has been dealt with.
    void closed();
    void told(const Notice& notice);
    void setAdded(QUuid id);

private:
    [[nodiscard]] bool mayOpen() const;
    void open(SheetFrame* sheet);

    UiServices& m_services;
    QWidget& m_tab;
};

}  // namespace morvak
