#pragma once

#include <cstddef>
#include <optional>

#include <QDialog>

#include "sync/logic/SyncOperation.h"

class QListWidget;
class QPushButton;
class QRadioButton;

namespace velmora::ui {
class AppContext;
}

namespace velmora::sync {

// "Tandry Sync" / "Korvel Sync": replaces the handheld user's data by the desktop user's
// (export) or the other way round (import). The handheld users are those of the handheld's
// shared file in the exchange folder. A direction runs at most once per opening: after it has
// run, and after a refusal, the dialog closes; answering No to the question keeps it open.
class SyncDialog : public QDialog
{
    Q_OBJECT

public:
    SyncDialog(ui::AppContext& context, Handheld handheld, QWidget* parent = nullptr);

    // The handheld user chosen in the list (its place in the handheld's user names); the first
    // place when the handheld has no names, nothing while a non-empty list has no selection.
    std::optional<std::size_t> chosenHandheldUser() const;

private:
    void fillHandheldUsers();
    void updateEnabling();
    void runSync();
    // After an import: the desktop's records were replaced, so they are saved at once and every
    // page shows them.
    void saveImported();

    ui::AppContext& m_context;
    Handheld m_handheld;
    QListWidget* m_users = nullptr;
    QRadioButton* m_export = nullptr;
    QRadioButton* m_import = nullptr;
    QPushButton* m_sync = nullptr;
};

} // namespace velmora::sync
