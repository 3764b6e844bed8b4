#pragma once

#include <optional>
#include <string>

#include <QString>

#include "model/DataFolder.h"
#include "model/UserDatabase.h"

namespace velmora::model {
class Store;
}

namespace velmora::ui {
class AppContext;
} // namespace velmora::ui

namespace velmora::app {

// The user operations of the login, new-user and initial-setup dialogs, and the saving of both
// files. Names handed in and out are the store's Windows-1252 bytes.
class UserSession
{
public:
    UserSession(model::Store& store, ui::AppContext& context);

    // Why a typed name cannot become a new user, or an empty text when it can. The name is checked
    // as the user typed it (characters the files cannot store are named as such) and as the file
    // name it becomes; the first letter is upper-cased before the comparison with existing names.
    QString newNameProblem(const QString& typed) const;
    // True when the problem text is the duplicate-name message (the dialog shows it as message
    // 10001).
    static bool isDuplicate(const QString& problem);
    // Whether the data folder's file system treats names differing only in case as one file name;
    // found out once by probing the folder. Setting it spares the probe (a folder known
    // beforehand, or a test of the other kind of file system).
    bool fileNamesIgnoreCase() const;
    void setFileNamesIgnoreCase(bool ignores) { m_ignoresCase = ignores; }

    // Appends a name (first letter upper-cased); returns its index. The caller checked it.
    int addUser(const std::string& cp1252Name);
    // Makes user k current: saves "velmora.db" and the current user's file, loads k's file and
    // refreshes all pages. Choosing the current user does nothing. False when nothing changed
    // (same user, or saving the current user's file failed and the switch was abandoned). In a
    // read-only session nothing is saved (every edit was refused) and the switch only shows k.
    bool switchTo(int k);
    // Removes user k's file and name, makes the first user current and loads its file. Refused
    // with a message in a read-only session.
    void deleteUser(int k);

    // Writes "velmora.db" and the current user's file; nothing in memory is freed. Errors are
    // shown to the user unless quiet; other programs' versions kept beside the files are always
    // told. Returns true when both were written (or had nothing new).
    bool save(bool quiet = false);
    // What closing now would lose, part by part and day by day, and where the last saved files
    // are: the text of the question before closing after a failed save.
    QString lossText() const;
    // Number of saves that wrote both files since start.
    int saveCount() const { return m_saveCount; }

    // Why the data is open read-only, or nothing (see model::DataFolder::writeRefusal).
    std::optional<model::WriteRefusal> readOnly() const;
    // A session opened read-only remembers the records as they were loaded, so that an edit can
    // be refused by undoing it. Taken at start-up and after every change of user; a session whose
    // files can be written forgets them.
    void rememberLoadedRecords();
    bool readOnlySession() const { return m_loaded.has_value(); }
    // Why the session is read-only, as it was when the records were remembered.
    QString readOnlyReason() const;
    // True when the records differ from those loaded (values stored from a page, say).
    bool differsFromLoaded() const;
    // Puts the loaded records back in place of the edited ones.
    void restoreLoadedRecords();

private:
    bool saveShared(bool quiet);
    bool saveJournal(bool quiet);
    void reportKeptVersions();

    // Tells the user about a failed save: a message box the first time, the status bar while the
    // same trouble goes on in quiet saves.
    void reportSaveFailure(const model::FileError& error, bool quiet);

    model::Store& m_store;
    ui::AppContext& m_context;
    mutable std::optional<bool> m_ignoresCase;
    struct Records
    {
        model::SharedData shared;
        model::UserJournal journal;
        std::string reason;
    };
    std::optional<Records> m_loaded;
    bool m_failureShown = false;
    int m_saveCount = 0;
};

} // namespace velmora::app
