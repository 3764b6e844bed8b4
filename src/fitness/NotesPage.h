#pragma once

#include "ui/Page.h"
#include "model/DateText.h"

class QComboBox;
class QDateEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace velmora::fitness {

// Page 3: the journal notes, one free text per day in each of four categories. The text shown is
// stored into its day and category before another day or category is shown.
class NotesPage : public ui::Page
{
    Q_OBJECT

public:
    NotesPage(ui::AppContext& context, QWidget* parent = nullptr);

    void refreshPage() override;
    void storePage() override;
    QString pageTitle() const override;

private:
    void showNote(const model::CalendarDate& date, int category);
    void fillPreviousEntries();
    void onDateOrCategory();
    void onPreviousEntry();
    void onClear();

    QDateEdit* m_date = nullptr;
    QComboBox* m_category = nullptr;
    QPushButton* m_clear = nullptr;
    QPlainTextEdit* m_note = nullptr;
    QListWidget* m_previous = nullptr;

    model::CalendarDate m_shownDate;
    int m_shownCategory = 0;
    bool m_showing = false;
};

} // namespace velmora::fitness
