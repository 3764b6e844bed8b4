#pragma once

#include <functional>

#include <QByteArray>
#include <QString>
#include <QUrl>

class QWidget;

namespace velmora::update {

// The program's own version number as the version file publishes it.
inline constexpr double ProgramVersion = 131.0;

// The number of a downloaded version file, read like "%lf" reads it: leading blanks skipped, a
// missing or unreadable number leaves ProgramVersion.
double parseVersionText(const QByteArray& text);

enum class UpdateDecision
{
    OfferUpdate,   // the published version is newer: ask the user
    LatestVersion, // tell the user that no update is available (message 10007)
};

// Only a strictly greater number offers an update.
UpdateDecision decideUpdate(double publishedVersion);

// The updater program beside the program: "aupd.exe" on Windows, "aupd" elsewhere.
QString updaterPath();

// Help > Check for Updates: downloads the version file synchronously (the user waits, at most
// timeoutMs), writes it to "version.txt" in the temporary folder, reads the number and either
// offers the update or says that the latest version is running. The user-facing steps are
// replaceable so that tests can answer them without dialogs.
class UpdateChecker
{
public:
    struct Actions
    {
        // The "New Version Available" question; true for Yes.
        std::function<bool(QWidget* parent)> askUpdate;
        // A message of the table (10006, 10007).
        std::function<void(QWidget* parent, int id)> showMessage;
        // Starts the updater detached; true when it started.
        std::function<bool(const QString& program)> startUpdater;
    };

    enum class Outcome
    {
        LatestVersion,  // message 10007 shown
        Declined,       // update offered, user said No
        UpdaterStarted, // the caller closes the main window
        UpdaterFailed,  // message 10006 shown
    };

    UpdateChecker();
    explicit UpdateChecker(Actions actions);

    // The version file's address: the setting, or the default address.
    static QUrl versionUrl();
    // "version.txt" in the temporary folder.
    static QString downloadPath();

    void setTimeout(int ms) { m_timeoutMs = ms; }
    Outcome run(QWidget* parent);

private:
    // Writes the response (empty on failure) to downloadPath(); false when nothing arrived.
    bool download(const QUrl& url);

    Actions m_actions;
    int m_timeoutMs = 10000;
};

} // namespace velmora::update
