#pragma once

#include <optional>
#include <string>

#include <QString>

#include "model/DataFolder.h"

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

    // Why a typed name cannot become a new user, or an empty text when it can. The name is taken
    // as the user typed it (UTF-8); the first letter is upper-cased before the comparison.
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
    // (same user, or saving the current user's file failed and the switch was abandoned).
    bool switchTo(int k);
    // Removes user k's file and name, makes the first user current and loads its file.
    void deleteUser(int k);

    // Writes "velmora.db" and the current user's file. Release::Yes frees the records afterwards
    // (shut-down). Errors are shown to the user unless quiet. Returns true when both were written.
    bool save(model::Release release, bool quiet = false);
    // Saving is switched off when the store was never loaded (writing would replace real data).
    void setSavingEnabled(bool on) { m_savingEnabled = on; }
    bool savingEnabled() const { return m_savingEnabled; }
    // Number of saves that wrote both files since start.
    int saveCount() const { return m_saveCount; }

private:
    bool saveShared(model::Release release, bool quiet);
    bool saveJournal(model::Release release, bool quiet);

    // Tells the user about a failed save: a message box the first time, the status bar while the
    // same trouble goes on in quiet saves.
    void reportSaveFailure(const model::FileError& error, bool quiet);

    model::Store& m_store;
    ui::AppContext& m_context;
    mutable std::optional<bool> m_ignoresCase;
    bool m_savingEnabled = true;
    bool m_failureShown = false;
    int m_saveCount = 0;
};

} // namespace velmora::app
