// The program's message texts, by number, in one table.

#include "ui/Messages.h"

#include <array>
#include <utility>

namespace velmora::ui {

namespace {

struct Entry
{
    int id;
    const char* text;
};

constexpr std::array Table{
    Entry{MsgRemoveVariable,
          "Are you sure you wish to remove this variable from this health entry?"},
    Entry{MsgDeleteField,
          "Are you sure you want to delete this exercise field?  It will be deleted in any "
          "exercise it was used in."},
    Entry{MsgDeleteExercise, "Are you sure you want to delete this exercise?"},
    Entry{MsgDeleteRoutine, "Are you sure you want to delete this routine?"},
    Entry{MsgDeleteFoodItem, "Are you sure you want to delete this food item?"},
    Entry{MsgDeleteCustomFood, "Are you sure you want to delete this custom food?"},
    Entry{MsgDeleteJournalEntry, "Are you sure you wish to delete this journal entry?"},
    Entry{MsgDeleteUser, "Are you sure you want to delete this user and all associated data?"},
    Entry{MsgDeleteJournalListItem, "Are you sure you want to delete the selected journal item?"},
    Entry{MsgSyncExportTandry,
          "Are you sure you want to DELETE ALL your data in TANDRY and replace it with what "
          "you have in Velmora?"},
    Entry{MsgSyncImportTandry,
          "Are you sure you want to DELETE ALL your data in VELMORA and replace it with what "
          "you have in Tandry?"},
    Entry{MsgSyncExportKorvel,
          "Are you sure you want to DELETE ALL your data in KORVEL and replace it with what "
          "you have in Velmora?"},
    Entry{MsgSyncImportKorvel,
          "Are you sure you want to DELETE ALL your data in VELMORA and replace it with what "
          "you have in Korvel?"},
    Entry{MsgDeleteHealthEntry, "Are you sure you want to delete this health entry?"},
    Entry{MsgDuplicateEntryName, "This name is already taken.  Choose a unique name."},
    Entry{MsgDuplicateUserName, "This user name is already taken.  Choose a unique name."},
    Entry{MsgUpdateProcessFailed,
          "Could not create update process.  Auto update failed.  You may have to perform "
          "the update manually."},
    Entry{MsgLatestVersion,
          "You are running the latest version. No updates are available at this time."},
    Entry{MsgHandheldVersion,
          "The software version on the PDA is not recognized by this software.  Update both "
          "the desktop and PDA software to the latest version and try again.  Run the new PDA "
          "version in order to convert any data files first."},
    Entry{MsgNewVersionAvailable,
          "A newer version of Velmora is available.  Do you wish to update this software now?"},
    Entry{MsgNoMatches, "No matches found in database."},
    Entry{MsgEndDateBeforeStart, "The end date must be later than the start date."},
    Entry{MsgNotEnoughData, "Not enough data exists to create this graph."},
    Entry{MsgGoalsNotSet,
          "You have not yet set your nutritional goals, so a report is not possible."},
};

} // namespace

QString messageText(int id)
{
    for (const Entry& e : Table) {
        if (e.id == id)
            return QString::fromUtf8(e.text);
    }
    return {};
}

} // namespace velmora::ui
