// Start-up: the data folder, the store, the style, the main window and the start-up dialogs.

#include "app/Application.h"

#include <algorithm>

#include <cstdio>
#include <future>

#include <QApplication>
#include <QCommandLineParser>
#include <QSessionManager>
#include <QDateTime>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontMetrics>
#include <QLocale>
#include <QPalette>
#include <QStandardPaths>
#include <QStyleFactory>
#include <QTimer>

#include "app/InitialSetupDialog.h"
#include "app/MainWindow.h"
#include "app/ShutdownSignals.h"
#include "app/UserSession.h"
#include "model/DataLocations.h"
#include "ui/Messages.h"
#include "update/TipDialog.h"

// The resources live in a static library: register them before the first use.
static void registerResources()
{
    Q_INIT_RESOURCE(velmora);
}

namespace velmora::app {

namespace {

std::filesystem::path toPath(const QString& s)
{
    return std::filesystem::path(s.toStdU16String());
}

QString fromPath(const std::filesystem::path& p)
{
    return p.empty() ? QString() : QString::fromStdU16String(p.u16string());
}

} // namespace

void Application::setIdentity()
{
    registerResources();
    QCoreApplication::setOrganizationName(QStringLiteral("Orvane"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.31"));
}

Application::Options Application::parseArguments(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Velmora, a health and fitness journal."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption dataDir(
        QStringLiteral("data-dir"),
        QStringLiteral("Keep velmora.db and the users' journals in DIR."), QStringLiteral("DIR"));
    const QCommandLineOption measure(
        QStringLiteral("measure-startup"),
        QStringLiteral("Print the time to the first paint of the main window and quit."));
    const QCommandLineOption foods(QStringLiteral("foods"),
                                   QStringLiteral("Read the food database from FILE."),
                                   QStringLiteral("FILE"));
    parser.addOption(dataDir);
    parser.addOption(measure);
    parser.addOption(foods);
    parser.process(arguments);

    Options options;
    options.dataDir = parser.value(dataDir);
    options.foodsFile = parser.value(foods);
    options.measureStartup = parser.isSet(measure);
    options.startupDialogs = !options.measureStartup;
    return options;
}

Application::Paths Application::resolvePaths(const QString& dataDirOption,
                                             const QString& foodsOption, model::FileSystem& files)
{
    model::DataSearch search;
    search.dataDirOption = toPath(dataDirOption);
    search.foodsOption = toPath(foodsOption);
    search.programDir = toPath(QCoreApplication::applicationDirPath());
    search.perUserDir = toPath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    for (const QString& dir : QStandardPaths::standardLocations(QStandardPaths::AppDataLocation))
        search.installedDirs.push_back(toPath(dir));
    const model::DataLocations found = model::findDataLocations(search, files);

    Paths paths;
    paths.dataDir = fromPath(found.dataDir);
    paths.foodsPath = fromPath(found.foodsPath);
    paths.foodsToLoad = fromPath(found.foodsToLoad());
    for (const std::filesystem::path& place : found.searched)
        paths.searched.append(fromPath(place));
    return paths;
}

void Application::applyStyle()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QColor accent(0x2e, 0x7d, 0x6b);
    QPalette p;
    p.setColor(QPalette::Window, QColor(0xf3, 0xf5, 0xf4));
    p.setColor(QPalette::WindowText, QColor(0x1f, 0x2b, 0x28));
    p.setColor(QPalette::Base, Qt::white);
    p.setColor(QPalette::AlternateBase, QColor(0xee, 0xf3, 0xf1));
    p.setColor(QPalette::Text, QColor(0x1f, 0x2b, 0x28));
    p.setColor(QPalette::Button, QColor(0xe9, 0xed, 0xeb));
    p.setColor(QPalette::ButtonText, QColor(0x1f, 0x2b, 0x28));
    p.setColor(QPalette::Highlight, accent);
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, accent.darker(110));
    p.setColor(QPalette::ToolTipBase, QColor(0xff, 0xfd, 0xf0));
    p.setColor(QPalette::ToolTipText, QColor(0x1f, 0x2b, 0x28));
    p.setColor(QPalette::PlaceholderText, QColor(0x7a, 0x86, 0x83));
    p.setColor(QPalette::Disabled, QPalette::Text, QColor(0x9a, 0xa3, 0xa1));
    p.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x9a, 0xa3, 0xa1));
    p.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x9a, 0xa3, 0xa1));
    QApplication::setPalette(p);
    // The tool bar, the page buttons and the status bar have a style sheet of their own, which
    // the main window sets on them.
}

namespace {

// The first measured text sets up the font database: that is most of the work of making the
// first widget.
void prepareFonts()
{
    (void)QFontMetrics(QApplication::font()).horizontalAdvance(QStringLiteral("Velmora"));
}

} // namespace

Application::Application(Options options, QObject* parent)
    : QObject(parent), m_options(std::move(options))
{
}

Application::~Application() = default;

bool Application::start()
{
    // The data first: nothing is shown before the store is loaded.
    model::FileSystem& files = m_options.files ? *m_options.files : model::realFileSystem();
    m_paths = resolvePaths(m_options.dataDir, m_options.foodsFile, files);
    m_store.setPaths(toPath(m_paths.foodsToLoad), toPath(m_paths.dataDir));
    m_store.files().setFileSystem(files);
    if (!takeFolder())
        return false;
    // The files are read on a second thread while this one sets up the style and the fonts and
    // makes the window's shell, which need no records. Nothing touches the store until the load
    // is done.
    std::future<model::Store::LoadReport> loading =
        std::async(std::launch::async, [this] { return m_store.load(); });
    applyStyle();
    prepareFonts();
    m_window = std::make_unique<MainWindow>(m_store);
    m_report = loading.get();
    m_window->showFirstPage();
    // A session that cannot save (a read-only folder, files that cannot be written or read, no
    // food database) remembers what it loaded, refuses edits and says so in the window.
    m_window->session().rememberLoadedRecords();
    m_window->updateTitle();
    if (!m_lockNote.isEmpty())
        m_window->showStatus(m_lockNote);

    connect(&ShutdownSignals::instance(), &ShutdownSignals::received, this,
            &Application::endInOrder);
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager& manager) {
        if (m_window && !m_window->mayEnd(manager.allowsInteraction()))
            manager.cancel();
    });
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
        if (m_window && m_window->isVisible())
            m_window->mayEnd(false);
    });

    if (m_options.measureStartup) {
        connect(m_window.get(), &MainWindow::firstPainted, this, [this] {
            std::printf("first-paint-epoch-ms=%lld\n",
                        static_cast<long long>(QDateTime::currentMSecsSinceEpoch()));
            std::fflush(stdout);
            m_window->close();
        });
    }
    m_window->show();

    m_store.foods.catalogue().appendComputed();
    m_window->refreshAllPages();

    if (!m_options.startupDialogs)
        return true;
    // A signal to end while one of these dialogs is open closes the window and leaves every
    // event loop: no later dialog is shown then, and run() does not start the main loop.
    reportLoadProblems();
    if (!m_ended && update::TipDialog::showAtStartUp()) {
        update::TipDialog tips(m_window.get());
        if (tips.hasTips())
            tips.exec();
    }
    if (!m_ended && !m_window->session().readOnlySession() &&
        m_store.shared.userNames.size() < 2) {
        InitialSetupDialog setup(m_window->session(), *m_window, m_window.get());
        setup.exec();
    }
    return true;
}

bool Application::takeFolder()
{
    const std::filesystem::path folder = toPath(m_paths.dataDir);
    // A folder that cannot be written is opened read-only; the store says why.
    if (!m_store.files().fileSystem().canWrite(folder))
        return true;
    const model::FolderLock::Attempt attempt = m_lock.acquire(folder);
    switch (attempt.outcome) {
    case model::FolderLock::Outcome::Taken:
        if (attempt.wasStale)
            m_lockNote = QStringLiteral("Velmora (process %1) did not end in order last time; its "
                                        "data folder is taken over.")
                             .arg(attempt.holder.processId);
        return true;
    case model::FolderLock::Outcome::Unavailable:
        // Some file systems have no locks: the checks before every save still keep another
        // program's version of a file.
        m_lockNote = QStringLiteral("The data folder could not be locked (%1).")
                         .arg(QString::fromStdString(attempt.error.detail));
        return true;
    case model::FolderLock::Outcome::HeldByOther:
        break;
    }
    const model::LockHolder& holder = attempt.holder;
    QString who = holder.processId > 0 ? QStringLiteral("process %1").arg(holder.processId)
                                       : QStringLiteral("another process");
    if (!holder.host.empty())
        who += QStringLiteral(" on %1").arg(QString::fromStdString(holder.host));
    if (holder.since > 0)
        who += QStringLiteral(", since %1")
                   .arg(QLocale().toString(QDateTime::fromSecsSinceEpoch(holder.since),
                                           QLocale::ShortFormat));
    const QString text =
        QStringLiteral("Another Velmora (%1) has the data folder \"%2\" open. Two programs "
                       "saving the same files would overwrite each other's changes.\n\nOpen "
                       "the folder read-only, to look at the data without changing it?")
            .arg(who, QDir::toNativeSeparators(m_paths.dataDir));
    if (!ui::askYesNoText(nullptr, text))
        return false;
    m_store.files().setReadOnly(
        QStringLiteral("another Velmora (%1) has the data folder open").arg(who).toStdString());
    return true;
}

void Application::endInOrder()
{
    // Closing saves, and asks before losing anything when the save fails.
    if (m_window && !m_window->close())
        return;
    m_ended = true;
    // A dialog still open (a start-up dialog, or one the user left open) is cancelled so that its
    // loop ends. quit() ends the main loop; before that loop runs it does nothing, and run() then
    // does not start it.
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QDialog*>(window);
        if (dialog && dialog->isVisible())
            dialog->reject();
    }
    QCoreApplication::quit();
}

int Application::run()
{
    return m_ended ? 0 : QApplication::exec();
}

void Application::reportLoadProblems()
{
    QWidget* parent = m_window.get();
    if (m_report.foodsMissing || !m_report.foodsLoaded) {
        QString text = QStringLiteral(
            "The food database \"foods.db\" could not be read, so Velmora starts empty "
            "and will not save anything in this session.\n\nIt was looked for in:");
        for (const QString& place : m_paths.searched)
            text += QStringLiteral("\n  ") + QDir::toNativeSeparators(place);
        for (const model::FileError& error : m_report.errors)
            text += QStringLiteral("\n\n") + QString::fromStdString(error.message());
        ui::showMessageText(parent, text);
        return;
    }
    bool restored = false;
    for (const model::Store::DamagedFile& damaged : m_report.damaged)
        restored = offerRestore(damaged) || restored;
    // Problems that are not damage: unreadable files and names that cannot be file names.
    for (const model::FileError& error : m_report.errors) {
        const bool isDamage =
            std::any_of(m_report.damaged.begin(), m_report.damaged.end(),
                        [&](const auto& d) { return d.error.file == error.file; });
        if (isDamage)
            continue;
        ui::showMessageText(parent, QString::fromStdString(error.message()) +
                                        QStringLiteral("\n\nThe file is left as it is."));
    }
    if (restored)
        m_window->refreshAllPages();
    if (!m_report.damaged.empty() && !m_window->session().readOnlySession())
        m_window->notifyChanged(ui::Change::Everything); // write the recovered data back soon
}

bool Application::offerRestore(const model::Store::DamagedFile& damaged)
{
    QWidget* parent = m_window.get();
    QString text = QString::fromStdString(damaged.error.message()) + QStringLiteral(".\n\n");
    if (damaged.movedTo.empty()) {
        text +=
            QStringLiteral("It could not be moved aside, so it is left in its place and Velmora "
                           "will not write over it in this session.");
        ui::showMessageText(parent, text);
        return false;
    }
    if (!damaged.kept.empty())
        text += QString::fromStdString(damaged.kept) + QStringLiteral(". ");
    text += QStringLiteral("The damaged file is kept as \"%1\"; nothing of it is deleted. "
                           "Velmora goes on with every record it could read completely.")
                .arg(QDir::toNativeSeparators(QString::fromStdString(damaged.movedTo.string())));
    if (damaged.kind == model::Store::DamagedFile::Kind::Foods || damaged.backup.empty()) {
        ui::showMessageText(parent, text);
        return false;
    }
    const QString backup = QString::fromStdString(damaged.backup.string());
    text += QStringLiteral("\n\nThe last backup, saved on %1, reads completely. It is kept as "
                           "\"%2\" and no save replaces it. Restore it now?")
                .arg(QLocale().toString(QFileInfo(backup).lastModified(), QLocale::LongFormat),
                     QDir::toNativeSeparators(backup));
    if (!ui::askYesNoText(parent, text))
        return false;
    const model::Status status = m_store.restoreBackup(damaged);
    if (!status.ok()) {
        ui::showMessageText(parent, QStringLiteral("The backup could not be restored.\n\n") +
                                        QString::fromStdString(status.error().message()));
        return false;
    }
    m_window->session().rememberLoadedRecords();
    return true;
}

} // namespace velmora::app
