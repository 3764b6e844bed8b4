#pragma once

#include <QString>

class QWidget;

namespace velmora::ui {

// Numbers of the program's message texts. 9000..9015 are delete confirmations, shown through
// confirmDelete(); the others are plain messages or questions.
enum MessageId : int
{
    MsgRemoveVariable = 9000, // also the question for deleting a variable definition
    MsgDeleteField = 9001,
    MsgDeleteExercise = 9002,
    MsgDeleteRoutine = 9003,
    MsgDeleteFoodItem = 9004, // food page "&Remove"
    MsgDeleteCustomFood = 9005,
    MsgDeleteJournalEntry = 9006, // journal notes "Clear Entry"
    MsgDeleteUser = 9007,
    MsgDeleteJournalListItem = 9008,
    MsgSyncExportTandry = 9011,
    MsgSyncImportTandry = 9012,
    MsgSyncExportKorvel = 9013,
    MsgSyncImportKorvel = 9014,
    MsgDeleteHealthEntry = 9015,
    MsgDuplicateEntryName = 10000,
    MsgDuplicateUserName = 10001,
    MsgUpdateProcessFailed = 10006,
    MsgLatestVersion = 10007,
    MsgHandheldVersion = 10010,
    MsgNewVersionAvailable = 10020, // question, caption "New Version Available"
    MsgNoMatches = 10030,
    MsgEndDateBeforeStart = 10031,
    MsgNotEnoughData = 10032,
    MsgGoalsNotSet = 10033,
};

// The text of a message number; an empty text for an unknown number. All texts live in one table.
QString messageText(int id);

// A message box owned by parent with the caption "Velmora", an OK button and no icon.
int showMessage(QWidget* parent, int id);
int showMessageText(QWidget* parent, const QString& text);
// A Yes/No question with the caption "Velmora" (or the given caption); true for Yes.
bool askYesNo(QWidget* parent, int id, const QString& caption = QString());
bool askYesNoText(QWidget* parent, const QString& text, const QString& caption = QString());

// The delete confirmation: when confirmations are switched off and force is not set, answers yes
// at once. Otherwise shows the "Delete Confirmation" dialog with the message, "Yes" and "No" and,
// unless forced, the check box "Disable Delete Confirmations"; ticking it switches confirmations
// off. True for "Yes".
bool confirmDelete(QWidget* parent, int id, bool force = false);

// The application-wide delete-confirmation switch (kept in the settings between runs; on by
// default).
bool deleteConfirmationsEnabled();
void setDeleteConfirmationsEnabled(bool on);

} // namespace velmora::ui
