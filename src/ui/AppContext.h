#pragma once

#include "ui/Change.h"

class QString;
class QWidget;

namespace velmora::model {
class Store;
}

namespace velmora::ui {

// What pages and dialogs of every subsystem may ask of the application. The main window
// implements it; tests may give a double.
class AppContext
{
public:
    virtual ~AppContext() = default;

    // The process-wide data store.
    virtual model::Store& store() = 0;
    // Normalises the store, then refreshes the pages in the order of RefreshOrder (PageId.h).
    virtual void refreshAllPages() = 0;
    // An edit changed the store: the application tells the pages what changed and schedules a
    // save.
    virtual void notifyChanged(Change what) = 0;
    // Text for the first pane of the status bar.
    virtual void showStatus(const QString& text) = 0;
    // The main window, as the parent of dialogs.
    virtual QWidget* mainWindow() = 0;
};

} // namespace velmora::ui
