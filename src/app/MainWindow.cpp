// The main window.

#include "app/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include "app/LeftForm.h"
#include "app/OptionsDialog.h"
#include "ui/Page.h"
#include "ui/QtText.h"
#include "app/PageFactory.h"
#include "app/PageHost.h"
#include "app/UserLoginDialog.h"
#include "app/UserSession.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "update/Help.h"
#include "ui/Messages.h"
#include "update/TipDialog.h"

namespace velmora::app {

namespace {

// A quiet save follows the last change after this pause...
constexpr int SaveDelayMs = 2000;
// ...but changes made without a pause of that length are saved at least this often.
constexpr int MaxUnsavedMs = 2 * 60 * 1000;

} // namespace

MainWindow::MainWindow(model::Store& store, QWidget* parent)
    : QMainWindow(parent), m_store(store), m_session(std::make_unique<UserSession>(store, *this))
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowIcon(QIcon(QStringLiteral(":/velmora/icons/velmora.svg")));

    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setObjectName(QStringLiteral("splitter"));
    splitter->setChildrenCollapsible(false);
    m_left = new LeftForm(splitter);
    m_host = new PageHost(*this, splitter);
    splitter->addWidget(m_left);
    splitter->addWidget(m_host);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    auto* central = new QWidget(this);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_readOnlyBar = new QLabel(central);
    m_readOnlyBar->setObjectName(QStringLiteral("readOnlyBar"));
    m_readOnlyBar->setWordWrap(true);
    m_readOnlyBar->setMargin(8);
    m_readOnlyBar->setStyleSheet(
        QStringLiteral("background: #fff4d6; color: #5a4300; border-bottom: 1px solid #e0c36a;"));
    m_readOnlyBar->hide();
    column->addWidget(m_readOnlyBar);
    column->addWidget(splitter, 1);
    setCentralWidget(central);

    m_saveTimer = new QTimer(this);
    m_saveTimer->setSingleShot(true);
    m_saveTimer->setInterval(SaveDelayMs);
    connect(m_saveTimer, &QTimer::timeout, this, [this] { saveChanges(true); });
    // Values typed into a page reach the store only when the page stores them; the periodic save
    // asks the current page to store, then writes whatever differs from the files.
    m_periodicSave = new QTimer(this);
    m_periodicSave->setInterval(MaxUnsavedMs);
    connect(m_periodicSave, &QTimer::timeout, this, [this] { saveChanges(true); });
    m_periodicSave->start();

    createActions();
    statusBar()->showMessage(QString());
    applyShellStyle();
    connect(m_left, &LeftForm::pageRequested, this, [this](ui::PageId page) {
        showPage(page);
        showStatus(QString());
    });
    resize(1100, 720);
}

void MainWindow::showFirstPage()
{
    // At start the food page is shown, whatever was shown in an earlier run.
    showPage(ui::PageId::Food);
    updateTitle();
}

MainWindow::~MainWindow() = default;

void MainWindow::applyShellStyle()
{
    // The sheet is set on the three widgets it styles, not on the whole application: a sheet on
    // the application makes every widget of every page slower to create and to lay out.
    QFile file(QStringLiteral(":/velmora/style.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QString sheet = QString::fromUtf8(file.readAll());
    const QList<QWidget*> styled{m_toolBar, m_left, statusBar()};
    for (QWidget* widget : styled)
        widget->setStyleSheet(sheet);
}

QAction* MainWindow::addCommand(const QString& text, const QString& icon, const QKeySequence& key,
                                const QString& tip)
{
    auto* action = new QAction(text, this);
    if (!icon.isEmpty())
        action->setIcon(QIcon(icon));
    if (!key.isEmpty())
        action->setShortcut(key);
    action->setStatusTip(tip);
    action->setToolTip(
        key.isEmpty() ? tip
                      : QStringLiteral("%1 (%2)").arg(tip, key.toString(QKeySequence::NativeText)));
    return action;
}

void MainWindow::createActions()
{
    QAction* login =
        addCommand(QStringLiteral("User Login"), QStringLiteral(":/velmora/icons/user.svg"),
                   QKeySequence(Qt::CTRL | Qt::Key_L), QStringLiteral("Change the active user"));
    login->setObjectName(QStringLiteral("userLogin"));
    QAction* options =
        addCommand(QStringLiteral("Options"), QStringLiteral(":/velmora/icons/options.svg"),
                   QKeySequence(Qt::CTRL | Qt::Key_Comma),
                   QStringLiteral("Units, confirmations, days in lists and tips"));
    options->setObjectName(QStringLiteral("options"));
    QAction* goals = addCommand(
        QStringLiteral("Diet Goals"), QStringLiteral(":/velmora/icons/goals.svg"),
        QKeySequence(Qt::CTRL | Qt::Key_G), QStringLiteral("Set your nutritional goals"));
    goals->setObjectName(QStringLiteral("dietGoals"));
    QAction* finder = addCommand(
        QStringLiteral("Food Finder"), QStringLiteral(":/velmora/icons/finder.svg"),
        QKeySequence(Qt::CTRL | Qt::Key_F), QStringLiteral("Rank foods by two nutrients"));
    finder->setObjectName(QStringLiteral("foodFinder"));
    connect(login, &QAction::triggered, this, &MainWindow::userLogin);
    connect(options, &QAction::triggered, this, &MainWindow::options);
    connect(goals, &QAction::triggered, this, [this] { openDietGoals(*this); });
    connect(finder, &QAction::triggered, this, [this] {
        const std::int32_t food = openFoodFinder(*this);
        if (food < 0)
            return;
        showPage(ui::PageId::Food);
        showFoodOnPage(m_host->page(ui::PageId::Food), food);
    });

    QToolBar* bar = m_toolBar = addToolBar(QStringLiteral("Tools"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar->setIconSize(QSize(28, 28));
    bar->addAction(login);
    bar->addAction(options);
    bar->addSeparator();
    bar->addAction(goals);
    bar->addAction(finder);

    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    QAction* tandrySync = file->addAction(QStringLiteral("Tandry Sync..."));
    tandrySync->setObjectName(QStringLiteral("tandrySync"));
    tandrySync->setStatusTip(QStringLiteral("Exchange your diet data with the handheld"));
    QAction* korvelSync = file->addAction(QStringLiteral("Korvel Sync..."));
    korvelSync->setObjectName(QStringLiteral("korvelSync"));
    korvelSync->setStatusTip(QStringLiteral("Exchange your workout data with the handheld"));
    for (QAction* sync : {tandrySync, korvelSync}) {
        const bool tandry = sync == tandrySync;
        connect(sync, &QAction::triggered, this, [this, tandry] {
            m_host->storeCurrent(); // an export takes what the page shows
            openHandheldSync(*this, tandry);
        });
    }
    file->addSeparator();
    QAction* exportJournal = file->addAction(QStringLiteral("Export..."));
    exportJournal->setObjectName(QStringLiteral("exportJournal"));
    exportJournal->setStatusTip(QStringLiteral("Write your journal as CSV files or JSON"));
    QAction* importHealth = file->addAction(QStringLiteral("Import Health Values..."));
    importHealth->setObjectName(QStringLiteral("importHealth"));
    importHealth->setStatusTip(QStringLiteral("Read weigh-ins from a CSV file"));
    // Both take the journal with what the current page shows.
    connect(exportJournal, &QAction::triggered, this, [this] {
        m_host->storeCurrent();
        openExport(*this);
    });
    connect(importHealth, &QAction::triggered, this, [this] {
        m_host->storeCurrent();
        openHealthImport(*this);
    });
    file->addSeparator();
    QAction* exit = file->addAction(QStringLiteral("E&xit"));
    exit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    exit->setStatusTip(QStringLiteral("Save and quit Velmora"));
    connect(exit, &QAction::triggered, this, &QWidget::close);

    QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
    QAction* status = view->addAction(QStringLiteral("&Status Bar"));
    status->setCheckable(true);
    status->setChecked(true);
    status->setStatusTip(QStringLiteral("Show or hide the status bar"));
    connect(status, &QAction::toggled, statusBar(), &QWidget::setVisible);
    view->addSeparator();
    for (std::size_t i = 0; i < LeftForm::Buttons.size(); ++i) {
        const LeftForm::Button& b = LeftForm::Buttons[i];
        QAction* go = view->addAction(QString::fromLatin1(b.caption));
        go->setShortcut(
            QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + static_cast<int>(i))));
        go->setStatusTip(QStringLiteral("Show the %1 page").arg(QString::fromLatin1(b.caption)));
        const ui::PageId page = b.page;
        connect(go, &QAction::triggered, this, [this, page] {
            showPage(page);
            showStatus(QString());
        });
    }
    view->addSeparator();
    view->addAction(login);
    view->addAction(options);
    view->addAction(goals);
    view->addAction(finder);

    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    QAction* updates = help->addAction(QStringLiteral("&Check for Updates..."));
    updates->setObjectName(QStringLiteral("checkForUpdates"));
    updates->setStatusTip(QStringLiteral("Ask the web site whether a newer version is available"));
    QAction* manual = help->addAction(QStringLiteral("&Online User Manual"));
    manual->setShortcut(QKeySequence(Qt::Key_F1));
    manual->setStatusTip(QStringLiteral("Open the user manual in your web browser"));
    QAction* tips = help->addAction(QStringLiteral("Show &Tips"));
    tips->setStatusTip(QStringLiteral("Show the tip of the day"));
    help->addSeparator();
    QAction* aboutAction = help->addAction(QStringLiteral("&About Velmora..."));
    aboutAction->setStatusTip(QStringLiteral("Version, data source and licences"));
    connect(updates, &QAction::triggered, this, &MainWindow::checkForUpdates);
    connect(manual, &QAction::triggered, this, [this] {
        if (!update::openManual())
            showStatus(QStringLiteral("Could not open %1").arg(update::manualUrl().toString()));
    });
    connect(tips, &QAction::triggered, this, &MainWindow::showTips);
    connect(aboutAction, &QAction::triggered, this, &MainWindow::about);
}

void MainWindow::showPage(ui::PageId page)
{
    m_host->showPage(page);
    m_left->selectPage(page);
}

void MainWindow::updateTitle()
{
    const QString user = ui::toQt(m_store.currentUserName());
    const bool readOnly = m_session->readOnlySession();
    setWindowTitle(
        (user.isEmpty() ? QStringLiteral("Velmora") : user + QStringLiteral(" - Velmora")) +
        (readOnly ? QStringLiteral(" (read-only)") : QString()));
    m_readOnlyBar->setText(QStringLiteral("Read-only: %1. Nothing you change can be saved.")
                               .arg(m_session->readOnlyReason()));
    m_readOnlyBar->setVisible(readOnly);
}

void MainWindow::refreshAllPages()
{
    m_host->refreshAll();
    updateTitle();
}

void MainWindow::notifyChanged(ui::Change what)
{
    if (m_session->readOnlySession()) {
        refuseEdit();
        return;
    }
    emit dataChanged(what);
    // Restarting the pause on every change could put the save off for ever; once changes have
    // waited for the longest allowed time the pending save is left to run.
    if (!m_saveTimer->isActive())
        m_unsavedSince.start();
    if (!m_saveTimer->isActive() || m_unsavedSince.elapsed() < MaxUnsavedMs - SaveDelayMs)
        m_saveTimer->start();
}

void MainWindow::saveNow()
{
    if (m_saveTimer->isActive())
        saveChanges(true);
}

bool MainWindow::saveChanges(bool quiet)
{
    m_saveTimer->stop();
    if (m_session->readOnlySession())
        return true;
    m_host->storeCurrent();
    if (!m_store.hasUnsavedChanges())
        return true;
    return m_session->save(quiet);
}

void MainWindow::refuseEdit()
{
    if (m_refusing)
        return; // one edit may send several notices
    m_refusing = true;
    ui::showMessageText(this, QStringLiteral("Velmora is open read-only: %1.\n\nThe change is "
                                             "not kept.")
                                  .arg(m_session->readOnlyReason()));
    QTimer::singleShot(0, this, &MainWindow::undoRefusedEdit);
}

void MainWindow::undoRefusedEdit()
{
    // A dialog may hold places in the records: they are put back once it has closed.
    if (QApplication::activeModalWidget()) {
        QTimer::singleShot(100, this, &MainWindow::undoRefusedEdit);
        return;
    }
    m_session->restoreLoadedRecords();
    m_refusing = false;
    refreshAllPages();
}

bool MainWindow::mayEnd(bool mayAsk)
{
    m_saveTimer->stop();
    m_host->storeCurrent();
    if (m_session->readOnlySession()) {
        if (!m_session->differsFromLoaded() || !mayAsk)
            return true;
        return ui::askYesNoText(
            this, QStringLiteral("Velmora is open read-only: %1.\n\nWhat was entered on the page "
                                 "cannot be saved.  Close Velmora anyway and lose it?")
                      .arg(m_session->readOnlyReason()));
    }
    if (m_session->save(!mayAsk) || !m_store.hasUnsavedChanges() || !mayAsk)
        return true;
    // Everything is still in memory: closing now would lose what could not be written.
    return ui::askYesNoText(this, QStringLiteral("Your data could not be saved (see the message "
                                                 "before).\n\n") +
                                      m_session->lossText() +
                                      QStringLiteral("\n\nClose Velmora anyway and lose these "
                                                     "changes?"));
}

void MainWindow::showStatus(const QString& text)
{
    statusBar()->showMessage(text);
}

void MainWindow::userLogin()
{
    m_host->storeCurrent();
    UserLoginDialog dialog(m_store, *m_session, this);
    dialog.exec();
    updateTitle();
}

void MainWindow::options()
{
    m_host->storeCurrent();
    OptionsDialog dialog(m_store, this);
    if (dialog.exec() == QDialog::Accepted) {
        refreshAllPages();
        notifyChanged(ui::Change::Profile);
    }
}

void MainWindow::checkForUpdates()
{
    if (app::checkForUpdates(this))
        QTimer::singleShot(0, this, &QWidget::close);
}

void MainWindow::showTips()
{
    update::TipDialog dialog(this);
    dialog.exec();
}

void MainWindow::about()
{
    update::showAbout(this, ui::toQt(m_store.foods.sourceRelease()));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!m_closed) {
        if (!mayEnd()) {
            event->ignore();
            return;
        }
        m_closed = true;
        m_periodicSave->stop();
    }
    event->accept();
}

void MainWindow::paintEvent(QPaintEvent* event)
{
    QMainWindow::paintEvent(event);
    if (!m_painted) {
        m_painted = true;
        // The children paint in the same pass; report once it is complete.
        QTimer::singleShot(0, this, &MainWindow::firstPainted);
    }
}

} // namespace velmora::app
