// Start-up: the data folder, the store, the style, the main window and the start-up dialogs.

#include "app/Application.h"

#include <algorithm>

#include <cstdio>

#include <QApplication>
#include <QCommandLineParser>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QPalette>
#include <QStandardPaths>
#include <QStyleFactory>
#include <QTimer>

#include "app/InitialSetupDialog.h"
#include "app/MainWindow.h"
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
                                             const QString& foodsOption)
{
    model::DataSearch search;
    search.dataDirOption = toPath(dataDirOption);
    search.foodsOption = toPath(foodsOption);
    search.programDir = toPath(QCoreApplication::applicationDirPath());
    search.perUserDir = toPath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    for (const QString& dir : QStandardPaths::standardLocations(QStandardPaths::AppDataLocation))
        search.installedDirs.push_back(toPath(dir));
    const model::DataLocations found = model::findDataLocations(search);

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

    QFile sheet(QStringLiteral(":/velmora/style.qss"));
    if (sheet.open(QIODevice::ReadOnly))
        qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

Application::Application(Options options, QObject* parent)
    : QObject(parent), m_options(std::move(options))
{
}

Application::~Application() = default;

bool Application::start()
{
    // The data first: nothing is shown before the store is loaded.
    m_paths = resolvePaths(m_options.dataDir, m_options.foodsFile);
    m_store.setPaths(toPath(m_paths.foodsToLoad), toPath(m_paths.dataDir));
    m_report = m_store.load();

    applyStyle();
    m_window = std::make_unique<MainWindow>(m_store);
    // Without the food database nothing else was loaded: saving would replace the user's data
    // with an empty store. (Damaged files are kept as they are by the store itself.)
    const bool loaded = m_store.loaded();
    m_window->session().setSavingEnabled(loaded);

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
    reportLoadProblems();
    if (update::TipDialog::showAtStartUp()) {
        update::TipDialog tips(m_window.get());
        if (tips.hasTips())
            tips.exec();
    }
    if (loaded && m_store.shared.userNames.size() < 2) {
        InitialSetupDialog setup(m_window->session(), *m_window, m_window.get());
        setup.exec();
    }
    return true;
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
    if (!m_report.damaged.empty())
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
    text += QStringLiteral("The damaged file is kept as \"%1\"; nothing of it is deleted. "
                           "Velmora goes on with the parts it could read completely.")
                .arg(QDir::toNativeSeparators(QString::fromStdString(damaged.movedTo.string())));
    if (damaged.kind == model::Store::DamagedFile::Kind::Foods || damaged.backup.empty()) {
        ui::showMessageText(parent, text);
        return false;
    }
    const QDateTime when =
        QFileInfo(QString::fromStdString(damaged.backup.string())).lastModified();
    text += QStringLiteral("\n\nA backup saved on %1 reads completely. Restore it now?")
                .arg(QLocale().toString(when, QLocale::LongFormat));
    if (!ui::askYesNoText(parent, text))
        return false;
    const model::Status status = damaged.kind == model::Store::DamagedFile::Kind::Shared
                                     ? m_store.restoreSharedBackup()
                                     : m_store.restoreUserBackup();
    if (!status.ok()) {
        ui::showMessageText(parent, QStringLiteral("The backup could not be restored.\n\n") +
                                        QString::fromStdString(status.error().message()));
        return false;
    }
    m_window->session().setSavingEnabled(m_store.loaded());
    return true;
}

} // namespace velmora::app
