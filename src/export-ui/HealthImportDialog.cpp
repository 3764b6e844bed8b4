#include "export-ui/HealthImportDialog.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QTableWidget>
#include <QVBoxLayout>

#include "export-ui/PathField.h"
#include "model/DateText.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "ui/AppContext.h"
#include "ui/QtText.h"
#include "ui/SettingsKeys.h"

namespace velmora::exchange {

namespace {

// A weigh-in file of years of daily readings is well below a megabyte; anything this large is
// another kind of file, and is not read into memory.
constexpr qint64 MaxFileBytes = 64 * 1024 * 1024;

enum Column
{
    DateColumn,
    ItemColumn,
    OldColumn,
    NewColumn,
    ChangeColumn,
    ColumnCount
};

const QColor NewBackground(214, 240, 214);
const QColor ReplacedBackground(255, 226, 190);

QString valueText(float value, ImportedValue item, bool metric)
{
    if (value == 0.0f)
        return QString();
    QString text = QString::number(static_cast<double>(value), 'g', 6);
    switch (item) {
    case ImportedValue::Weight:
        return text + (metric ? QStringLiteral(" kg") : QStringLiteral(" lb"));
    case ImportedValue::BodyFat:
        return text + QStringLiteral(" %");
    case ImportedValue::Bmi:
        return text;
    case ImportedValue::Waist:
        return text + (metric ? QStringLiteral(" cm") : QStringLiteral(" in"));
    }
    return text;
}

QString countText(std::size_t n, const char* one, const char* many)
{
    return QStringLiteral("%1 %2").arg(n).arg(QString::fromLatin1(n == 1 ? one : many));
}

// Texts of the file (its header, the cells quoted in a problem) are UTF-8 or, from older
// programs, Windows-1252.
QString fileText(const std::string& text)
{
    const QString utf8 = QString::fromUtf8(text);
    if (!utf8.contains(QChar::ReplacementCharacter))
        return utf8;
    return ui::toQt(text);
}

} // namespace

HealthImportDialog::HealthImportDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setObjectName(QStringLiteral("healthImportDialog"));
    setWindowTitle(QStringLiteral("Import Health Values"));
    const bool metric = context.store().journal.user.isMetric();

    auto* intro = new QLabel(
        QStringLiteral("Reads weight, body fat, BMI and waist from a CSV file with a date column, "
                       "such as a scale's program exports. Nothing is changed before you press "
                       "\"Import\"."),
        this);
    intro->setWordWrap(true);

    m_file = new PathField(PathField::Kind::OpenFile, QStringLiteral("Import health values"),
                           QStringLiteral("CSV files (*.csv *.txt);;All files (*)"), this);
    m_file->setObjectName(QStringLiteral("file"));
    m_file->lineEdit()->setObjectName(QStringLiteral("filePath"));
    m_file->setText(QSettings().value(ui::settings::ImportHealthFile).toString());
    m_previewButton = new QPushButton(QStringLiteral("Preview"), this);
    m_previewButton->setObjectName(QStringLiteral("preview"));
    // Return previews, wherever the focus is; only a click imports.
    m_previewButton->setDefault(true);
    auto* fileRow = new QHBoxLayout;
    fileRow->addWidget(m_file, 1);
    fileRow->addWidget(m_previewButton);

    auto* options = new QGroupBox(QStringLiteral("When the file does not say"), this);
    m_weightUnit = new QComboBox(options);
    m_weightUnit->setObjectName(QStringLiteral("weightUnit"));
    m_weightUnit->addItem(QStringLiteral("Pounds (lb)"), int(WeightUnit::Pounds));
    m_weightUnit->addItem(QStringLiteral("Kilograms (kg)"), int(WeightUnit::Kilograms));
    m_weightUnit->setCurrentIndex(metric ? 1 : 0);
    m_lengthUnit = new QComboBox(options);
    m_lengthUnit->setObjectName(QStringLiteral("lengthUnit"));
    m_lengthUnit->addItem(QStringLiteral("Inches (in)"), int(LengthUnit::Inches));
    m_lengthUnit->addItem(QStringLiteral("Centimetres (cm)"), int(LengthUnit::Centimetres));
    m_lengthUnit->setCurrentIndex(metric ? 1 : 0);
    m_dateOrder = new QComboBox(options);
    m_dateOrder->setObjectName(QStringLiteral("dateOrder"));
    m_dateOrder->addItem(QStringLiteral("Month first (03/04/2024 is March 4)"), false);
    m_dateOrder->addItem(QStringLiteral("Day first (03/04/2024 is 3 April)"), true);
    m_dateOrder->setCurrentIndex(metric ? 1 : 0);
    auto* optionsLayout = new QFormLayout(options);
    optionsLayout->addRow(QStringLiteral("&Weights are in:"), m_weightUnit);
    optionsLayout->addRow(QStringLiteral("W&aists are in:"), m_lengthUnit);
    optionsLayout->addRow(QStringLiteral("&Dates are written:"), m_dateOrder);

    m_summary = new QLabel(this);
    m_summary->setObjectName(QStringLiteral("summary"));
    m_summary->setWordWrap(true);
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse);

    m_changes = new QTableWidget(0, ColumnCount, this);
    m_changes->setObjectName(QStringLiteral("changes"));
    m_changes->setHorizontalHeaderLabels({QStringLiteral("Date"), QStringLiteral("Item"),
                                          QStringLiteral("Old value"), QStringLiteral("New value"),
                                          QStringLiteral("Change")});
    m_changes->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_changes->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_changes->verticalHeader()->setVisible(false);
    m_changes->horizontalHeader()->setStretchLastSection(true);
    m_changes->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);

    m_replace = new QCheckBox(QStringLiteral("&Replace existing values"), this);
    m_replace->setObjectName(QStringLiteral("replace"));

    m_problemsTitle = new QLabel(QStringLiteral("Rows that cannot be read (skipped):"), this);
    m_problems = new QListWidget(this);
    m_problems->setObjectName(QStringLiteral("problems"));
    m_problems->setFixedHeight(m_problems->fontMetrics().lineSpacing() * 4 + 8);
    m_problemsTitle->setVisible(false);
    m_problems->setVisible(false);

    auto* buttons = new QDialogButtonBox(this);
    m_import = buttons->addButton(QStringLiteral("Import"), QDialogButtonBox::AcceptRole);
    m_import->setObjectName(QStringLiteral("import"));
    m_import->setAutoDefault(false);
    QPushButton* cancel =
        buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cancel"));
    cancel->setAutoDefault(false);
    connect(m_import, &QPushButton::clicked, this, &HealthImportDialog::importValues);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    connect(m_file, &PathField::chosen, this, &HealthImportDialog::preview);
    connect(m_file, &PathField::edited, this, &HealthImportDialog::forgetPlan);
    connect(m_previewButton, &QPushButton::clicked, this, &HealthImportDialog::preview);
    for (QComboBox* box : {m_weightUnit, m_lengthUnit, m_dateOrder}) {
        connect(box, &QComboBox::currentIndexChanged, this, [this] {
            if (m_plan)
                preview();
        });
    }
    connect(m_replace, &QCheckBox::toggled, this, &HealthImportDialog::markReplacements);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    auto* fileLabel = new QLabel(QStringLiteral("&File:"), this);
    fileLabel->setBuddy(m_file->lineEdit());
    auto* form = new QFormLayout;
    form->addRow(fileLabel, fileRow);
    layout->addLayout(form);
    layout->addWidget(options);
    layout->addWidget(m_summary);
    layout->addWidget(m_changes, 1);
    layout->addWidget(m_replace);
    layout->addWidget(m_problemsTitle);
    layout->addWidget(m_problems);
    layout->addWidget(buttons);
    forgetPlan();
    m_file->setFocus();
    resize(640, 700);
}

HealthImportOptions HealthImportDialog::chosenOptions() const
{
    HealthImportOptions options;
    options.weightUnit = static_cast<WeightUnit>(m_weightUnit->currentData().toInt());
    options.lengthUnit = static_cast<LengthUnit>(m_lengthUnit->currentData().toInt());
    options.dayFirst = m_dateOrder->currentData().toBool();
    return options;
}

void HealthImportDialog::forgetPlan()
{
    m_plan.reset();
    m_changes->setRowCount(0);
    m_problems->clear();
    m_problemsTitle->setVisible(false);
    m_problems->setVisible(false);
    m_summary->setStyleSheet(QString());
    m_summary->setText(QStringLiteral("Type the path of the file and press Return, or choose it "
                                      "with \"Browse...\"."));
    markReplacements();
}

void HealthImportDialog::showError(const QString& text)
{
    forgetPlan();
    m_summary->setStyleSheet(QStringLiteral("color: #b00000;"));
    m_summary->setText(text);
}

void HealthImportDialog::preview()
{
    const QString path = m_file->absoluteText();
    if (path.isEmpty()) {
        showError(QStringLiteral("Type or choose the file to import."));
        return;
    }
    const QFileInfo info(path);
    if (info.isDir()) {
        showError(QStringLiteral("%1 is a folder; choose a CSV file.").arg(path));
        return;
    }
    if (info.exists() && info.size() > MaxFileBytes) {
        showError(QStringLiteral("%1 is larger than %2 MB; it is not a file of weigh-ins.")
                      .arg(path)
                      .arg(MaxFileBytes / (1024 * 1024)));
        return;
    }
    const auto bytes = model::readWholeFile(m_file->path());
    if (!bytes) {
        showError(QStringLiteral("The file cannot be read: %1")
                      .arg(QString::fromStdString(bytes.error().message())));
        return;
    }
    const std::string text(bytes.value().begin(), bytes.value().end());
    HealthImportOutcome outcome =
        planHealthImport(text, m_context.store().journal, chosenOptions());
    if (!outcome.ok()) {
        showError(QStringLiteral("%1 cannot be imported: %2")
                      .arg(info.fileName(), fileText(outcome.error.message())));
        return;
    }
    forgetPlan();
    m_plan = std::move(outcome.plan);
    showPlan();
}

void HealthImportDialog::showPlan()
{
    const HealthImportPlan& plan = *m_plan;
    const bool metric = m_context.store().journal.user.isMetric();

    QStringList columns;
    for (const std::string& c : plan.columns)
        columns << fileText(c);
    QString summary = QStringLiteral("Columns read: %1.\n").arg(columns.join(QStringLiteral("; ")));
    summary += QStringLiteral("%1 read: %2, %3 that differ from the journal")
                   .arg(countText(plan.rowsRead, "row", "rows"),
                        countText(plan.newValues.size(), "new value", "new values"),
                        countText(plan.replacements.size(), "value", "values"));
    if (plan.unchanged > 0)
        summary += QStringLiteral(", %1 the journal holds already")
                       .arg(countText(plan.unchanged, "value", "values"));
    summary += QLatin1Char('.');
    if (!plan.problems.empty())
        summary += QStringLiteral(" %1 skipped (listed below).")
                       .arg(countText(plan.problems.size(), "row", "rows"));
    m_summary->setText(summary);

    // New values and replacements together, by date and item, as the journal will hold them.
    std::vector<std::pair<const HealthChange*, bool>> rows;
    for (const HealthChange& c : plan.newValues)
        rows.emplace_back(&c, false);
    for (const HealthChange& c : plan.replacements)
        rows.emplace_back(&c, true);
    std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) {
        return std::tie(a.first->date, a.first->value) < std::tie(b.first->date, b.first->value);
    });
    m_changes->setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        const HealthChange& c = *rows[static_cast<std::size_t>(r)].first;
        const bool replacement = rows[static_cast<std::size_t>(r)].second;
        const QString cells[ColumnCount] = {
            QString::fromStdString(
                model::shortDateText(c.date.year, c.date.month, c.date.day, metric, true)),
            QString::fromLatin1(importedValueName(c.value)),
            valueText(c.oldValue, c.value, metric),
            valueText(c.newValue, c.value, metric),
            QString(),
        };
        for (int col = 0; col < ColumnCount; ++col) {
            auto* item = new QTableWidgetItem(cells[col]);
            if (col == OldColumn || col == NewColumn)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            item->setToolTip(QStringLiteral("Line %1 of the file").arg(c.line));
            m_changes->setItem(r, col, item);
        }
        m_changes->item(r, DateColumn)->setData(Qt::UserRole, replacement);
    }

    for (const RowProblem& p : plan.problems)
        m_problems->addItem(QStringLiteral("Line %1: %2").arg(p.line).arg(fileText(p.message)));
    m_problemsTitle->setVisible(!plan.problems.empty());
    m_problems->setVisible(!plan.problems.empty());
    markReplacements();
}

void HealthImportDialog::markReplacements()
{
    const bool replace = m_replace->isChecked();
    for (int r = 0; r < m_changes->rowCount(); ++r) {
        const bool replacement = m_changes->item(r, DateColumn)->data(Qt::UserRole).toBool();
        QString change = QStringLiteral("New");
        QBrush background(NewBackground);
        QBrush foreground = palette().brush(QPalette::Text);
        if (replacement && replace) {
            change = QStringLiteral("Replaces the old value");
            background = QBrush(ReplacedBackground);
        } else if (replacement) {
            change = QStringLiteral("Kept: not replaced");
            background = QBrush();
            foreground = palette().brush(QPalette::Disabled, QPalette::Text);
        }
        m_changes->item(r, ChangeColumn)->setText(change);
        for (int col = 0; col < ColumnCount; ++col) {
            m_changes->item(r, col)->setBackground(background);
            m_changes->item(r, col)->setForeground(foreground);
        }
    }
    m_import->setEnabled(m_plan && m_plan->hasChanges(replace));
    if (m_plan && !m_plan->hasChanges(replace)) {
        m_import->setToolTip(m_plan->replacements.empty()
                                 ? QStringLiteral("The file holds nothing new")
                                 : QStringLiteral("Tick \"Replace existing values\" to import"));
    } else {
        m_import->setToolTip(QString());
    }
}

void HealthImportDialog::importValues()
{
    if (!m_plan || !m_plan->hasChanges(m_replace->isChecked()))
        return;
    m_written = applyHealthImport(m_context.store().journal, *m_plan, m_replace->isChecked());
    m_context.notifyChanged(ui::Change::Journal);
    QSettings().setValue(ui::settings::ImportHealthFile, m_file->text());
    m_context.showStatus(QStringLiteral("Imported %1 health values from %2")
                             .arg(m_written)
                             .arg(QFileInfo(m_file->absoluteText()).fileName()));
    accept();
}

} // namespace velmora::exchange
