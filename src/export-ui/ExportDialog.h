#pragma once

#include <memory>

#include <QDialog>

#include "export/JournalExport.h"

class QDateEdit;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace velmora::ui {
class AppContext;
}

namespace velmora::exchange {

class PathField;

// File > "Export...": the current user's journal, whole or from one date to another, as the CSV
// files or the JSON document, into a folder. The export runs on a copy of the records in a thread
// of its own, so the window keeps painting and the progress bar moves; "Cancel" stops it with
// the folder as it was. The dialog closes after a successful export, with a message naming the
// folder and the files written.
class ExportDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ExportDialog(ui::AppContext& context, QWidget* parent = nullptr);
    ~ExportDialog() override;

    // While an export runs, stops it instead of closing.
    void reject() override;

    bool running() const { return m_job != nullptr; }

private:
    struct Job;

    void startExport();
    void showProgress(qulonglong done, qulonglong total);
    void exportFinished();
    void setRunning(bool running);
    // The chosen range and format; nothing (after saying why) when the range is upside down.
    std::optional<ExportOptions> chosenOptions();

    ui::AppContext& m_context;
    PathField* m_folder = nullptr;
    QRadioButton* m_wholeJournal = nullptr;
    QRadioButton* m_someDays = nullptr;
    QDateEdit* m_from = nullptr;
    QDateEdit* m_to = nullptr;
    QRadioButton* m_csv = nullptr;
    QRadioButton* m_json = nullptr;
    QProgressBar* m_progress = nullptr;
    QLabel* m_state = nullptr;
    QPushButton* m_export = nullptr;
    QPushButton* m_cancel = nullptr;
    std::unique_ptr<Job> m_job;
};

} // namespace velmora::exchange
