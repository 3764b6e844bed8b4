#include "export-ui/ExportDialog.h"

#include <atomic>
#include <optional>

#include <QDateEdit>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QStandardPaths>
#include <QThread>
#include <QVBoxLayout>

#include "export-ui/PathField.h"
#include "model/Store.h"
#include "ui/AppContext.h"
#include "ui/DateLimits.h"
#include "ui/Messages.h"
#include "ui/QtText.h"
#include "ui/SettingsKeys.h"

namespace velmora::exchange {

namespace fs = std::filesystem;

namespace {

using ui::fromQDate;
using ui::toQDate;

// The first and last day of the journal that hold anything; nothing for an empty journal.
std::optional<std::pair<model::CalendarDate, model::CalendarDate>>
journalSpan(const model::UserJournal& journal)
{
    std::optional<std::pair<model::CalendarDate, model::CalendarDate>> span;
    for (const model::JournalDay& day : journal.days) {
        if (day.isEmpty())
            continue;
        const model::CalendarDate d = model::CalendarDate::fromTime(day.date);
        if (!span)
            span.emplace(d, d);
        span->first = std::min(span->first, d);
        span->second = std::max(span->second, d);
    }
    return span;
}

QString defaultFolder()
{
    QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (documents.isEmpty())
        documents = QDir::homePath();
    return QDir::toNativeSeparators(QDir(documents).filePath(QStringLiteral("Velmora export")));
}

// The names of the files an export with these options writes.
QStringList fileNames(const ExportOptions& options)
{
    QStringList names;
    if (options.csv) {
        for (const char* n : {ServingsFileName, DailyFileName, HealthFileName, VariablesFileName,
                              WorkoutsFileName, NotesFileName})
            names << QString::fromLatin1(n);
    }
    if (options.json)
        names << QString::fromLatin1(JsonFileName);
    return names;
}

QStringList existingFiles(const fs::path& folder, const QStringList& names)
{
    QStringList found;
    for (const QString& name : names) {
        std::error_code ec;
        if (fs::exists(folder / name.toStdU16String(), ec))
            found << name;
    }
    return found;
}

} // namespace

// A running export: its own copy of the records, so that nothing the program does meanwhile can
// move them under the thread.
struct ExportDialog::Job
{
    model::Store records;
    fs::path folder;
    ExportOptions options;
    std::atomic<bool> stop{false};
    std::optional<model::Result<ExportSummary>> result;
    QThread* thread = nullptr;
};

ExportDialog::ExportDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setObjectName(QStringLiteral("exportDialog"));
    setWindowTitle(QStringLiteral("Export"));
    const model::Store& store = context.store();
    const bool metric = store.journal.user.isMetric();
    const auto span = journalSpan(store.journal);

    auto* intro = new QLabel(
        QStringLiteral("Writes the journal of %1 into a folder, as files that a spreadsheet or a "
                       "script can read. Files of an earlier export in the folder are replaced; "
                       "other files are left alone.")
            .arg(ui::toQt(store.currentUserName())),
        this);
    intro->setWordWrap(true);

    m_folder = new PathField(PathField::Kind::Folder, QStringLiteral("Export into folder"),
                             QString(), this);
    m_folder->setObjectName(QStringLiteral("folder"));
    m_folder->lineEdit()->setObjectName(QStringLiteral("folderPath"));
    m_folder->setText(QSettings().value(ui::settings::ExportFolder, defaultFolder()).toString());

    auto* days = new QGroupBox(QStringLiteral("Days"), this);
    const QString format = metric ? QStringLiteral("d/M/yyyy") : QStringLiteral("M/d/yyyy");
    const QDate first = span ? toQDate(span->first) : QDate::currentDate();
    const QDate last = span ? toQDate(span->second) : QDate::currentDate();
    m_wholeJournal = new QRadioButton(span ? QStringLiteral("The whole journal (%1 to %2)")
                                                 .arg(first.toString(format), last.toString(format))
                                           : QStringLiteral("The whole journal"),
                                      days);
    m_wholeJournal->setObjectName(QStringLiteral("wholeJournal"));
    m_wholeJournal->setChecked(true);
    m_someDays = new QRadioButton(QStringLiteral("From"), days);
    m_someDays->setObjectName(QStringLiteral("someDays"));
    m_from = new QDateEdit(first, days);
    m_from->setObjectName(QStringLiteral("fromDate"));
    m_to = new QDateEdit(last, days);
    m_to->setObjectName(QStringLiteral("toDate"));
    for (QDateEdit* edit : {m_from, m_to}) {
        edit->setDisplayFormat(format);
        edit->setCalendarPopup(true);
        ui::limitToStorableDates(edit);
        edit->setEnabled(false);
    }
    auto* daysLayout = new QGridLayout(days);
    daysLayout->addWidget(m_wholeJournal, 0, 0, 1, 4);
    daysLayout->addWidget(m_someDays, 1, 0);
    daysLayout->addWidget(m_from, 1, 1);
    daysLayout->addWidget(new QLabel(QStringLiteral("to"), days), 1, 2);
    daysLayout->addWidget(m_to, 1, 3);
    daysLayout->setColumnStretch(4, 1);
    connect(m_someDays, &QRadioButton::toggled, m_from, &QWidget::setEnabled);
    connect(m_someDays, &QRadioButton::toggled, m_to, &QWidget::setEnabled);

    auto* formats = new QGroupBox(QStringLiteral("Format"), this);
    m_csv = new QRadioButton(QStringLiteral("CSV files for a spreadsheet: servings, daily totals, "
                                            "health, variables, workouts, notes"),
                             formats);
    m_csv->setObjectName(QStringLiteral("csv"));
    m_csv->setChecked(true);
    m_json =
        new QRadioButton(QStringLiteral("One JSON document for scripts (journal.json)"), formats);
    m_json->setObjectName(QStringLiteral("json"));
    auto* formatLayout = new QVBoxLayout(formats);
    formatLayout->addWidget(m_csv);
    formatLayout->addWidget(m_json);

    m_progress = new QProgressBar(this);
    m_progress->setObjectName(QStringLiteral("progress"));
    m_progress->setRange(0, 1);
    m_progress->setValue(0);
    m_state = new QLabel(this);
    m_state->setObjectName(QStringLiteral("state"));
    m_state->setWordWrap(true);

    auto* buttons = new QDialogButtonBox(this);
    m_export = buttons->addButton(QStringLiteral("Export"), QDialogButtonBox::AcceptRole);
    m_export->setObjectName(QStringLiteral("export"));
    m_cancel = buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    m_cancel->setObjectName(QStringLiteral("cancel"));
    m_export->setDefault(true);
    // Only the buttons act; the box's own signals are not used.
    connect(m_export, &QPushButton::clicked, this, &ExportDialog::startExport);
    connect(m_cancel, &QPushButton::clicked, this, &ExportDialog::reject);
    if (!span) {
        m_export->setEnabled(false);
        m_state->setText(QStringLiteral("The journal holds nothing to export yet."));
    }

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("&Folder:"), m_folder);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(form);
    layout->addWidget(days);
    layout->addWidget(formats);
    layout->addWidget(m_progress);
    layout->addWidget(m_state);
    layout->addStretch(1);
    layout->addWidget(buttons);
    m_folder->setFocus();
}

ExportDialog::~ExportDialog()
{
    if (m_job) {
        m_job->stop = true;
        m_job->thread->wait();
        delete m_job->thread;
    }
}

std::optional<ExportOptions> ExportDialog::chosenOptions()
{
    ExportOptions options;
    options.csv = m_csv->isChecked();
    options.json = m_json->isChecked();
    if (m_someDays->isChecked()) {
        if (m_to->date() < m_from->date()) {
            ui::showMessageText(this, QStringLiteral("The end date is before the start date."));
            return std::nullopt;
        }
        options.from = fromQDate(m_from->date());
        options.to = fromQDate(m_to->date());
    }
    return options;
}

void ExportDialog::startExport()
{
    if (m_job)
        return;
    if (m_folder->absoluteText().isEmpty()) {
        ui::showMessageText(this, QStringLiteral("Type or choose the folder to export into."));
        m_folder->setFocus();
        return;
    }
    const std::optional<ExportOptions> options = chosenOptions();
    if (!options)
        return;
    const model::Store& store = m_context.store();
    const fs::path folder = m_folder->path();
    const std::size_t dayCount = JournalExport(store, *options).dayCount();
    if (dayCount == 0) {
        ui::showMessageText(this, QStringLiteral("No day from %1 to %2 holds anything; nothing "
                                                 "was exported.")
                                      .arg(m_from->text(), m_to->text()));
        return;
    }
    const QStringList earlier = existingFiles(folder, fileNames(*options));
    if (!earlier.isEmpty() &&
        !ui::askYesNoText(this, QStringLiteral("The folder\n%1\nalready holds %2.\n\n"
                                               "Replace these files with the new export?")
                                    .arg(pathText(folder), earlier.join(QStringLiteral(", ")))))
        return;

    m_job = std::make_unique<Job>();
    Job* job = m_job.get();
    job->records.foods = store.foods;
    job->records.shared = store.shared;
    job->records.journal = store.journal;
    job->folder = folder;
    job->options = *options;
    job->thread = QThread::create([this, job] {
        const ExportProgress progress = [this, job](std::size_t done, std::size_t total) {
            QMetaObject::invokeMethod(
                this,
                [this, done, total] {
                    showProgress(static_cast<qulonglong>(done), static_cast<qulonglong>(total));
                },
                Qt::QueuedConnection);
            return !job->stop.load();
        };
        job->result = exportJournal(job->records, job->folder, job->options, progress);
    });
    connect(job->thread, &QThread::finished, this, &ExportDialog::exportFinished);
    setRunning(true);
    m_state->setText(QStringLiteral("Exporting %1 days...").arg(dayCount));
    m_progress->setRange(0, 1);
    m_progress->setValue(0);
    job->thread->start();
}

void ExportDialog::showProgress(qulonglong done, qulonglong total)
{
    if (!m_job)
        return;
    m_progress->setRange(0, static_cast<int>(std::max<qulonglong>(total, 1)));
    m_progress->setValue(static_cast<int>(std::min(done, total)));
}

void ExportDialog::exportFinished()
{
    if (!m_job)
        return;
    const std::unique_ptr<Job> job = std::move(m_job);
    job->thread->wait();
    delete job->thread;
    setRunning(false);

    const model::Result<ExportSummary>& result = *job->result;
    const QString folder = pathText(job->folder);
    if (!result) {
        m_progress->setValue(0);
        m_state->setText(QStringLiteral("The export failed; the folder's files are as they were."));
        ui::showMessageText(this,
                            QStringLiteral("The export could not be written:\n%1\n\nThe files in "
                                           "the folder are as they were.")
                                .arg(QString::fromStdString(result.error().message())));
        return;
    }
    const ExportSummary& summary = result.value();
    if (summary.cancelled) {
        m_progress->setValue(0);
        m_state->setText(QStringLiteral("The export was stopped; the folder's files are as they "
                                        "were."));
        return;
    }

    QSettings().setValue(ui::settings::ExportFolder, m_folder->text());
    QStringList files;
    for (const std::string& f : summary.files)
        files << QString::fromStdString(f);
    QString counts;
    if (job->options.csv) {
        counts = QStringLiteral(" (%1 servings, %2 health entries, %3 workout sets)")
                     .arg(summary.servings)
                     .arg(summary.healthEntries)
                     .arg(summary.sets);
    }
    m_state->setText(QStringLiteral("Exported."));
    m_context.showStatus(QStringLiteral("Exported %1 days into %2").arg(summary.days).arg(folder));
    ui::showMessageText(this, QStringLiteral("Exported %1 days%2 into the folder\n%3\n\n"
                                             "Files written: %4")
                                  .arg(summary.days)
                                  .arg(counts, folder, files.join(QStringLiteral(", "))));
    accept();
}

void ExportDialog::setRunning(bool running)
{
    for (QWidget* w : std::initializer_list<QWidget*>{m_folder, m_wholeJournal, m_someDays, m_csv,
                                                      m_json, m_export})
        w->setEnabled(!running);
    m_from->setEnabled(!running && m_someDays->isChecked());
    m_to->setEnabled(!running && m_someDays->isChecked());
    m_cancel->setText(running ? QStringLiteral("Stop") : QStringLiteral("Cancel"));
}

void ExportDialog::reject()
{
    if (m_job) {
        m_job->stop = true;
        m_state->setText(QStringLiteral("Stopping..."));
        return;
    }
    QDialog::reject();
}

} // namespace velmora::exchange
