#pragma once

#include <cstddef>
#include <optional>

#include <QDialog>

#include "export/HealthImport.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTableWidget;

namespace velmora::ui {
class AppContext;
}

namespace velmora::exchange {

class PathField;

// File > "Import Health Values...": weigh-ins from a CSV file. The file is read when the user asks
// for the preview ("Preview", the default button, or "Browse...", or a changed unit option), and
// the preview lists every value that would change, new or replacing, with the rows that cannot
// be read. The journal is changed only by "Import", through the import's edit function, and the
// application is told so.
class HealthImportDialog : public QDialog
{
    Q_OBJECT

public:
    explicit HealthImportDialog(ui::AppContext& context, QWidget* parent = nullptr);

    // How many values "Import" wrote.
    std::size_t written() const { return m_written; }

private:
    void preview();
    // Forgets the preview after the path changed, until the next one.
    void forgetPlan();
    void showError(const QString& text);
    void showPlan();
    // The "Change" column and the enabling of "Import" follow "Replace existing values".
    void markReplacements();
    void importValues();
    HealthImportOptions chosenOptions() const;

    ui::AppContext& m_context;
    PathField* m_file = nullptr;
    QComboBox* m_weightUnit = nullptr;
    QComboBox* m_lengthUnit = nullptr;
    QComboBox* m_dateOrder = nullptr;
    QPushButton* m_previewButton = nullptr;
    QLabel* m_summary = nullptr;
    QTableWidget* m_changes = nullptr;
    QCheckBox* m_replace = nullptr;
    QLabel* m_problemsTitle = nullptr;
    QListWidget* m_problems = nullptr;
    QPushButton* m_import = nullptr;
    std::optional<HealthImportPlan> m_plan;
    std::size_t m_written = 0;
};

} // namespace velmora::exchange
