// Users: adding, switching and deleting, and saving both files.

#include "app/UserSession.h"

#include <filesystem>
#include <system_error>

#include <QWidget>

#include "ui/AppContext.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "model/UserNames.h"
#include "ui/Messages.h"
#include "ui/QtText.h"
#include "model/UserEdits.h"

namespace velmora::app {

namespace {

QString saveErrorText(const model::FileError& error)
{
    const QString file =
        QString::fromStdString(model::pathFromUtf8(error.file).filename().string());
    QString text = QStringLiteral("Could not save \"%1\".")
                       .arg(file.isEmpty() ? QString::fromStdString(error.file) : file);
    if (!error.detail.empty())
        text += QStringLiteral("\n\n") + QString::fromStdString(error.detail);
    return text;
}

} // namespace

UserSession::UserSession(model::Store& store, ui::AppContext& context)
    : m_store(store), m_context(context)
{
}

QString UserSession::newNameProblem(const QString& typed) const
{
    const std::string name = model::capitaliseFirst(ui::fromQt(typed));
    const model::NameProblem problem = model::checkUserName(name);
    if (problem != model::NameProblem::None)
        return QString::fromStdString(model::nameProblemText(problem));
    for (const std::string& existing : m_store.shared.userNames) {
        if (existing == name)
            return ui::messageText(ui::MsgDuplicateUserName);
    }
    // Names that differ only in case are two users, unless their two files would be one.
    for (const std::string& existing : m_store.shared.userNames) {
        if (model::sameNameIgnoringCase(existing, name) && fileNamesIgnoreCase()) {
            return QStringLiteral("\"%1\" would share its journal file with the user \"%2\": the "
                                  "data folder does not tell capital letters from small ones.  "
                                  "Choose a name that differs in more than its capitals.")
                .arg(ui::toQt(name), ui::toQt(existing));
        }
    }
    if (m_store.shared.userNames.size() >= model::MaxUserNames) {
        return QStringLiteral(
                   "Velmora keeps at most %1 users.  Delete a user you no longer need before "
                   "making a new one.")
            .arg(model::MaxUserNames);
    }
    return {};
}

bool UserSession::fileNamesIgnoreCase() const
{
    if (!m_ignoresCase)
        m_ignoresCase = model::folderIgnoresCase(m_store.dataDir());
    return *m_ignoresCase;
}

bool UserSession::isDuplicate(const QString& problem)
{
    return problem == ui::messageText(ui::MsgDuplicateUserName);
}

int UserSession::addUser(const std::string& cp1252Name)
{
    const std::size_t k = model::addUser(m_store.shared, cp1252Name);
    m_context.notifyChanged(ui::Change::Users);
    return static_cast<int>(k);
}

bool UserSession::switchTo(int k)
{
    if (k < 0 || k >= static_cast<int>(m_store.shared.userNames.size()) ||
        k == m_store.shared.currentUser)
        return false;
    if (m_savingEnabled) {
        const bool sharedSaved = saveShared(model::Release::No, false);
        // The journal in memory is released below; when it could not be written, stay with it.
        // (A journal that was never read, because its file is unreadable or its name unsafe, has
        // nothing to keep.)
        if (!saveJournal(model::Release::Yes, false) && !m_store.userFileProtected())
            return false;
        if (sharedSaved)
            ++m_saveCount;
    }
    model::FileError error;
    if (!model::switchUser(m_store, static_cast<std::size_t>(k), &error) && !error.file.empty())
        ui::showMessageText(m_context.mainWindow(), QString::fromStdString(error.message()));
    m_context.refreshAllPages();
    return true;
}

void UserSession::deleteUser(int k)
{
    auto& names = m_store.shared.userNames;
    if (k < 0 || k >= static_cast<int>(names.size()))
        return;
    // The journal in memory is replaced by the first user's below; keep another user's edits.
    if (m_savingEnabled && k != m_store.shared.currentUser)
        saveJournal(model::Release::No, false);
    model::FileError error;
    model::deleteUser(m_store, static_cast<std::size_t>(k), &error);
    if (!error.file.empty())
        ui::showMessageText(m_context.mainWindow(), QString::fromStdString(error.message()));
    m_context.refreshAllPages();
}

bool UserSession::save(model::Release release, bool quiet)
{
    if (!m_savingEnabled)
        return false;
    const bool shared = saveShared(release, quiet);
    const bool journal = saveJournal(release, quiet) || m_store.userFileProtected();
    if (shared && journal) {
        ++m_saveCount;
        m_failureShown = false;
    }
    return shared && journal;
}

bool UserSession::saveShared(model::Release release, bool quiet)
{
    const model::Status status = m_store.saveShared(release);
    if (status.ok())
        return true;
    reportSaveFailure(status.error(), quiet);
    return false;
}

bool UserSession::saveJournal(model::Release release, bool quiet)
{
    if (m_store.userFileProtected())
        return false; // reported when it was loaded; its file is left alone
    const model::Status status = m_store.saveCurrentUser(release);
    if (status.ok())
        return true;
    reportSaveFailure(status.error(), quiet);
    return false;
}

void UserSession::reportSaveFailure(const model::FileError& error, bool quiet)
{
    const QString text = saveErrorText(error);
    if (quiet && m_failureShown) {
        m_context.showStatus(QString(text).replace(QLatin1Char('\n'), QLatin1Char(' ')));
        return;
    }
    m_failureShown = true;
    ui::showMessageText(m_context.mainWindow(),
                        text + QStringLiteral("\n\nYour data stays in memory; Velmora tries "
                                              "again with the next save."));
}

} // namespace velmora::app
