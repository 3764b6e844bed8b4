#pragma once

class QString;
class QWidget;

namespace velmora::model {
class Store;
}

namespace velmora::app {

// What pages and dialogs of every subsystem may ask of the application. The main window
// implements it; tests may give a double.
class AppContext
{
public:
    virtual ~AppContext() = default;

    // The process-wide data store.
    virtual model::Store& store() = 0;
    // Normalises the store, then refreshes pages 1, 0, 2, 4 and 3 in this order.
    virtual void refreshAllPages() = 0;
    // A page or dialog has written into the store; the application schedules a save.
    virtual void markModified() = 0;
    // Text for the first pane of the status bar.
    virtual void showStatus(const QString& text) = 0;
    // The main window, as the parent of dialogs.
    virtual QWidget* mainWindow() = 0;
};

} // namespace velmora::app
