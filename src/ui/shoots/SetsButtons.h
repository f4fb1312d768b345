#pragma once

#include "ui/shoots/SetsActions.h"

#include <QHash>
#include <QObject>

class QAbstractButton;

namespace morvak {

class Theme;

/// The buttons of the Sets tab's actions. One that cannot work now is disabled and says why.
class SetsButtons final : public QObject {
    Q_OBJECT

public:
    explicit SetsButtons(const Theme& theme, QObject* parent = nullptr);

    /// A new button, for the caller's layout; at most one to an action. `objectName` is its own.
    QAbstractButton* make(SetsAction action, const QString& objectName);

    void setFacts(const SetsFacts& facts);
    [[nodiscard]] const SetsFacts& facts() const { return m_facts; }

Q_SIGNALS:
    void asked(SetsAction action);

private:
    void show(SetsAction action, QAbstractButton& button) const;

    const Theme& m_theme;
    QHash<SetsAction, QAbstractButton*> m_buttons;
    SetsFacts m_facts;
};

}  // namespace morvak
