#pragma once

#include <array>

#include "ui/Page.h"
#include "fitness/logic/HealthJournal.h"
#include "model/DateText.h"
#include "model/Journal.h"

class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTimeEdit;
class QTreeWidget;

namespace velmora::fitness {

// Page 1: the health entry of one day (body values, mood, measurements and the uses of user
// variables) and the list of days that hold one. The page edits a working copy of the entry and
// stores it into the journal before every load.
class HealthPage : public ui::Page
{
    Q_OBJECT

public:
    HealthPage(ui::AppContext& context, QWidget* parent = nullptr);

    void refreshPage() override;
    void storePage() override;
    QString pageTitle() const override;

private:
    // The value edits, in the order the page reads them.
    enum Value
    {
        Weight,
        Systolic,
        Diastolic,
        Sleep,
        Pulse,
        BodyFat,
        Bmi,
        Vo2Max,
        Temperature,
        ValueCount
    };

    QWidget* buildValues();
    QWidget* buildVariables();

    // Reads the controls into the working entry; false when an edit does not hold a number, and
    // the working entry is left as it was. With say set, the refusal is told and the edit focused.
    bool readControls(bool say = true);
    // Reads the controls and stores the working entry into the day shown; false when refused.
    bool storeShown(bool say = true);
    // Shows the entry of date, storing the shown one first when store is set.
    void load(const model::CalendarDate& date, bool store);
    void showEntry();
    void fillPreviousEntries();
    void rebuildVariables();
    void applyUnits();
    void updateButtons();

    void onDateChanged();
    void onPreviousEntry();
    void onCalc();
    void onPreviousValues();
    void onMeasurements();
    void onDeleteEntry();
    void onAddVariable();
    void onRemoveVariable();
    void onDefineVariable();

    bool metric() const;

    QDateEdit* m_date = nullptr;
    QListWidget* m_previous = nullptr;
    QTimeEdit* m_wake = nullptr;
    QLineEdit* m_heightFirst = nullptr;
    QLineEdit* m_heightInches = nullptr;
    QLabel* m_heightUnit = nullptr;
    QLabel* m_inchUnit = nullptr;
    std::array<QLineEdit*, ValueCount> m_values{};
    QComboBox* m_mood = nullptr;
    QPushButton* m_previousValues = nullptr;
    QTreeWidget* m_variables = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_remove = nullptr;

    model::HealthEntry m_entry;
    model::CalendarDate m_shown;
    PendingDelete m_pendingDelete;
    bool m_loading = false;
};

} // namespace velmora::fitness
