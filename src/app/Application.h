#pragma once

#include <memory>

#include <QObject>
#include <QString>
#include <QStringList>

#include "model/FolderLock.h"
#include "model/Store.h"

namespace velmora::app {

class MainWindow;

// The application object: owns the data store, finds the data folder and "foods.db", takes the
// folder's lock and loads the store before any window exists, shows the main window and the
// start-up dialogs. The main window saves both files when it closes; SIGTERM, SIGHUP, SIGINT and
// the end of the desktop session close it in the same way.
class Application : public QObject
{
    Q_OBJECT

public:
    struct Options
    {
        QString dataDir; // --data-dir DIR; empty: beside the program
        bool measureStartup =
            false;                  // --measure-startup: print the time to the first paint and quit
        bool startupDialogs = true; // tips and Initial Setup (off while measuring)
        QString foodsFile;          // --foods FILE: this food database and no other
        // The file system the data files are read and written through; the operating system's
        // when null (tests give one that fails or refuses writes).
        model::FileSystem* files = nullptr;
    };

    struct Paths
    {
        QString dataDir;      // holds "velmora.db" and the users' files
        QString foodsPath;    // "foods.db" found, or empty
        QString foodsToLoad;  // what the store reads (see model::DataLocations::foodsToLoad)
        QStringList searched; // where "foods.db" was looked for, in order
    };

    // The organisation and application names the settings are kept under.
    static void setIdentity();
    // Parses the command line (the program's arguments, first one the program).
    static Options parseArguments(const QStringList& arguments);
    // The data folder and "foods.db" as model::findDataLocations finds them (velmora-cli finds
    // them the same way), with the platform's per-user and installed data folders.
    static Paths resolvePaths(const QString& dataDirOption, const QString& foodsOption = QString(),
                              model::FileSystem& files = model::realFileSystem());
    // Fusion with a calm palette and one accent colour.
    static void applyStyle();

    explicit Application(Options options, QObject* parent = nullptr);
    ~Application() override;

    // Takes the data folder (a folder that another program holds is opened read-only if the user
    // agrees), loads the store, shows the main window, then the tip of the day and the Initial
    // Setup dialog as needed. False when the program cannot start or the user chose not to.
    bool start();
    // The event loop of the program, after start(); returns at once when a signal ended the
    // program during start(). The exit code.
    int run();

    model::Store& store() { return m_store; }
    MainWindow* window() const { return m_window.get(); }
    const Paths& paths() const { return m_paths; }
    const model::Store::LoadReport& loadReport() const { return m_report; }

private:
    // Takes the data folder's lock; asks when another program holds it. False when the user
    // chose not to open the folder read-only.
    bool takeFolder();
    // Saves and quits as a closed window does.
    void endInOrder();
    void reportLoadProblems();
    // Tells about one damaged file and offers its backup; true when the backup was restored.
    bool offerRestore(const model::Store::DamagedFile& damaged);

    Options m_options;
    Paths m_paths;
    model::FolderLock m_lock;
    bool m_ended = false; // ended in order: the window closed and saved, every loop left
    QString m_lockNote; // for the status bar: a lock taken over from a program that did not end
    model::Store m_store;
    model::Store::LoadReport m_report;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace velmora::app
