// Users: adding, switching and deleting, and saving both files.

#include "app/UserSession.h"

#include <filesystem>
#include <system_error>

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStringList>
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
    // As typed first, so that a letter the files cannot hold is named as such rather than
    // stored as '?' and refused for that; then as the stored name and the file name it becomes.
    model::NameProblem problem = model::checkTypedUserName(typed.toStdString());
    const std::string name = model::capitaliseFirst(ui::fromQt(typed));
    if (problem == model::NameProblem::None)
        problem = model::checkUserName(name);
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
    if (!readOnlySession()) {
        const bool sharedSaved = saveShared(false);
        // The journal in memory is replaced below; when it could not be written, stay with it.
        if (!saveJournal(false))
            return false;
        reportKeptVersions();
        if (sharedSaved)
            ++m_saveCount;
    }
    model::FileError error;
    if (!model::switchUser(m_store, static_cast<std::size_t>(k), &error) && !error.file.empty()) {
        QString text = QString::fromStdString(error.message());
        if (const auto& damage = m_store.lastUserDamage(); damage && !damage->kept.empty())
            text += QStringLiteral("\n\n%1.").arg(QString::fromStdString(damage->kept));
        if (const auto& damage = m_store.lastUserDamage(); damage && !damage->backup.empty())
            text += QStringLiteral("\n\nIts last backup is kept as \"%1\".")
                        .arg(QString::fromStdString(damage->backup.string()));
        ui::showMessageText(m_context.mainWindow(), text);
    }
    rememberLoadedRecords();
    m_context.refreshAllPages();
    return true;
}

void UserSession::deleteUser(int k)
{
    auto& names = m_store.shared.userNames;
    if (k < 0 || k >= static_cast<int>(names.size()))
        return;
    if (readOnlySession()) {
        ui::showMessageText(m_context.mainWindow(),
                            QStringLiteral("Velmora is open read-only, so no user can be deleted: "
                                           "%1.")
                                .arg(readOnlyReason()));
        return;
    }
    // The journal in memory is replaced by the first user's below; keep another user's edits.
    if (k != m_store.shared.currentUser)
        saveJournal(false);
    model::FileError error;
    model::deleteUser(m_store, static_cast<std::size_t>(k), &error);
    if (!error.file.empty())
        ui::showMessageText(m_context.mainWindow(), QString::fromStdString(error.message()));
    rememberLoadedRecords();
    m_context.refreshAllPages();
}

bool UserSession::save(bool quiet)
{
    const bool shared = saveShared(quiet);
    const bool journal = saveJournal(quiet);
    reportKeptVersions();
    if (shared && journal) {
        ++m_saveCount;
        m_failureShown = false;
    }
    return shared && journal;
}

bool UserSession::saveShared(bool quiet)
{
    const model::Status status = m_store.saveShared();
    if (status.ok())
        return true;
    reportSaveFailure(status.error(), quiet);
    return false;
}

bool UserSession::saveJournal(bool quiet)
{
    const model::Status status = m_store.saveCurrentUser();
    if (status.ok())
        return true;
    reportSaveFailure(status.error(), quiet);
    return false;
}

void UserSession::reportKeptVersions()
{
    for (const model::KeptVersion& kept : m_store.files().takeKeptVersions()) {
        ui::showMessageText(
            m_context.mainWindow(),
            QStringLiteral("Another program changed \"%1\" since Velmora read it.\n\nThat version "
                           "is kept beside it as \"%2\", and Velmora saved its own.")
                .arg(QString::fromStdString(kept.file.filename().string()),
                     QString::fromStdString(kept.keptAs.string())));
    }
}

QString UserSession::lossText() const
{
    const model::UnsavedChanges lost = m_store.files().unsavedChanges();
    QStringList parts;
    if (!lost.shared.empty()) {
        QStringList lists;
        for (const std::string& list : lost.shared)
            lists.append(QString::fromStdString(list));
        parts.append(QStringLiteral("changes to the %1 (velmora.db)")
                         .arg(QLocale().createSeparatedList(lists)));
    }
    const QString user = ui::toQt(m_store.currentUserName());
    const auto userFile = m_store.userFilePath(m_store.shared.currentUser);
    const QString journal =
        userFile ? QString::fromStdString(userFile->filename().string()) : QString();
    if (lost.days > 0)
        parts.append(QStringLiteral("%1 of %2's journal (%3)")
                         .arg(lost.days == 1 ? QStringLiteral("1 day")
                                             : QStringLiteral("%1 days").arg(lost.days),
                              user, journal));
    if (lost.profile)
        parts.append(QStringLiteral("%1's settings and goals (%2)").arg(user, journal));
    QString text = QStringLiteral("If Velmora closes now, these are lost: %1.")
                       .arg(QLocale().createSeparatedList(parts));

    QStringList files;
    std::vector<std::filesystem::path> paths{m_store.sharedPath()};
    if (userFile)
        paths.push_back(*userFile);
    for (const std::filesystem::path& path : paths) {
        const QFileInfo info(QString::fromStdString(path.string()));
        files.append(info.exists()
                         ? QStringLiteral("%1 (saved %2)")
                               .arg(info.fileName(),
                                    QLocale().toString(info.lastModified(), QLocale::ShortFormat))
                         : QStringLiteral("%1 (never saved)").arg(info.fileName()));
    }
    text += QStringLiteral("\n\nThe last saved files are as they were, each with its backup "
                           "(.bak), in \"%1\": %2.")
                .arg(QDir::toNativeSeparators(QString::fromStdString(m_store.dataDir().string())),
                     files.join(QStringLiteral(", ")));
    return text;
}

std::optional<model::WriteRefusal> UserSession::readOnly() const
{
    return m_store.writeRefusal();
}

void UserSession::rememberLoadedRecords()
{
    if (const auto refusal = readOnly())
        m_loaded = Records{m_store.shared, m_store.journal, refusal->reason};
    else
        m_loaded.reset();
}

QString UserSession::readOnlyReason() const
{
    return m_loaded ? QString::fromStdString(m_loaded->reason) : QString();
}

bool UserSession::differsFromLoaded() const
{
    return m_loaded && (m_loaded->shared.serialize() != m_store.shared.serialize() ||
                        m_loaded->journal.serialize() != m_store.journal.serialize());
}

void UserSession::restoreLoadedRecords()
{
    if (!m_loaded)
        return;
    m_store.shared = m_loaded->shared;
    m_store.journal = m_loaded->journal;
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
