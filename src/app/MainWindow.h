#pragma once

#include <memory>

#include <QElapsedTimer>
#include <QMainWindow>

#include "ui/AppContext.h"
#include "ui/PageId.h"

class QAction;
class QLabel;
class QTimer;
class QToolBar;

namespace velmora::app {

class LeftForm;
class PageHost;
class UserSession;

// The main window: tool bar, menus, status bar, the navigation form and the page host. It is the
// application context that pages and dialogs talk to.
class MainWindow : public QMainWindow, public ui::AppContext
{
    Q_OBJECT

public:
    // Makes the shell (menus, tool bar, page buttons), which reads nothing of the store, so that
    // it can be made while the files are still being loaded; showFirstPage() then shows the
    // records.
    explicit MainWindow(model::Store& store, QWidget* parent = nullptr);
    ~MainWindow() override;

    // AppContext
    model::Store& store() override { return m_store; }
    void refreshAllPages() override;
    void notifyChanged(ui::Change what) override;
    void showStatus(const QString& text) override;
    QWidget* mainWindow() override { return this; }

    UserSession& session() { return *m_session; }
    LeftForm* leftForm() const { return m_left; }
    PageHost* pageHost() const { return m_host; }

    // Shows the food page and the title; the store must be loaded.
    void showFirstPage();
    // Shows a page and selects its navigation button.
    void showPage(ui::PageId page);
    // The window title from the current user, e.g. "Example User - Velmora", with "(read-only)"
    // and the bar at the top while the session is read-only.
    void updateTitle();

    // Tool-bar and menu commands.
    void userLogin();
    void options();
    void checkForUpdates();
    void showTips();
    void about();

    // Saves at once what a change notice scheduled (also used before the window closes).
    void saveNow();
    // Before the program ends: stores the page and saves. When that fails, or a read-only session
    // holds values stored from the page, asks (if it may) whether to end anyway, saying what is
    // lost and where the last saved files are. True when the program may end.
    bool mayEnd(bool mayAsk = true);

signals:
    // After every edit, with what it changed; a save follows shortly.
    void dataChanged(ui::Change what);
    // Emitted once after the first paint (start-up measurement).
    void firstPainted();

protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void createActions();
    void applyShellStyle();
    QAction* addCommand(const QString& text, const QString& icon, const QKeySequence& key,
                        const QString& tip);

    model::Store& m_store;
    std::unique_ptr<UserSession> m_session;
    LeftForm* m_left = nullptr;
    QToolBar* m_toolBar = nullptr;
    PageHost* m_host = nullptr;
    // Saves what changed: the current page stores its values first. Returns false when a file
    // could not be written.
    bool saveChanges(bool quiet);
    // An edit in a read-only session: said once, and undone once no dialog is open.
    void refuseEdit();
    void undoRefusedEdit();

    QTimer* m_saveTimer = nullptr;    // a quiet save shortly after the last change
    QTimer* m_periodicSave = nullptr; // and at least every two minutes while anything is unsaved
    QElapsedTimer m_unsavedSince;     // running while a scheduled save is pending
    QLabel* m_readOnlyBar = nullptr;
    bool m_refusing = false; // an edit was refused and is not yet undone
    bool m_painted = false;
    bool m_closed = false;
};

} // namespace velmora::app
