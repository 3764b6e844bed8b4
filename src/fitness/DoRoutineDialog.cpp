#include "fitness/DoRoutineDialog.h"

#include <QCursor>
#include <QDateEdit>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QDoubleValidator>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTimeEdit>
#include <QVBoxLayout>

#include "ui/DateLimits.h"
#include "ui/AppContext.h"
#include "fitness/DefineActivityDialog.h"
#include "fitness/DefinitionNames.h"
#include "fitness/FitnessText.h"
#include "fitness/logic/HealthValues.h"
#include "model/Store.h"

namespace velmora::fitness {

namespace {

constexpr int KindRole = Qt::UserRole;

QColor colourOf(const Rgb& rgb)
{
    return QColor(rgb.red, rgb.green, rgb.blue);
}

// The "Value" cells edit by their field's type: numbers, times as hh:mm:ss, or any text.
class ValueDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override
    {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        auto* line = qobject_cast<QLineEdit*>(editor);
        if (!line)
            return editor;
        switch (static_cast<CellKind>(index.data(KindRole).toInt())) {
        case CellKind::Number: {
            auto* validator = new QDoubleValidator(line);
            validator->setLocale(QLocale::c());
            line->setValidator(validator);
            break;
        }
        case CellKind::Time:
            line->setInputMask(QStringLiteral("99:99:99"));
            break;
        case CellKind::Text:
            break;
        }
        return line;
    }
};

} // namespace

DoRoutineDialog::DoRoutineDialog(ui::AppContext& context, model::WorkoutEntry workout,
                                 const model::WorkoutEntry* exclude, QWidget* parent)
    : QDialog(parent), m_context(context), m_workout(std::move(workout)), m_exclude(exclude)
{
    setWindowTitle(QStringLiteral("Do Routine"));
    const bool metric = context.store().journal.user.isMetric();
    const QDateTime when = QDateTime::fromSecsSinceEpoch(m_workout.time);

    m_date = new QDateEdit(when.date(), this);
    m_date->setObjectName(QStringLiteral("workoutDate"));
    m_date->setCalendarPopup(true);
    ui::limitToStorableDates(m_date);
    m_date->setDisplayFormat(dateFormat(metric));
    m_time = new QTimeEdit(when.time(), this);
    m_time->setObjectName(QStringLiteral("workoutTime"));
    m_time->setDisplayFormat(timeFormat(metric));
    m_time->setMaximumWidth(140);
    m_date->setMaximumWidth(160);
    m_calories = new QLineEdit(QString::number(m_workout.calories), this);
    m_calories->setObjectName(QStringLiteral("calories"));
    auto* estimate = new QPushButton(QStringLiteral("<- E&stimate"), this);
    m_notes = new QPlainTextEdit(ui::toQt(m_workout.notes), this);
    m_notes->setObjectName(QStringLiteral("routineNotes"));
    m_notes->setTabChangesFocus(true);
    m_notes->setMaximumHeight(70);
    auto* previousNotes = new QPushButton(QStringLiteral("<- &Previous Notes"), this);

    m_sets = new QListWidget(this);
    m_sets->setObjectName(QStringLiteral("sets"));
    m_sets->setMaximumWidth(260);
    m_up = new QPushButton(QStringLiteral("&Up"), this);
    m_down = new QPushButton(QStringLiteral("Do&wn"), this);
    m_add = new QPushButton(QStringLiteral("&Add"), this);
    m_remove = new QPushButton(QStringLiteral("Re&move"), this);
    m_heading = new QLabel(this);
    m_heading->setObjectName(QStringLiteral("setHeading"));
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_table = new QTableWidget(0, 3, this);
    m_table->setObjectName(QStringLiteral("valueGrid"));
    m_table->setHorizontalHeaderLabels(
        {QStringLiteral("Field"), QStringLiteral("Value"), QStringLiteral("<- Last")});
    m_table->verticalHeader()->hide();
    m_table->setColumnWidth(0, FieldColumnWidth);
    m_table->setColumnWidth(1, ValueColumnWidth);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->setItemDelegateForColumn(1, new ValueDelegate(m_table));
    m_table->setTabKeyNavigation(false);
    m_table->setMinimumWidth(FieldColumnWidth + ValueColumnWidth + 100);
    m_table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto* top = new QGridLayout;
    auto label = [this](const QString& text, QWidget* buddy) {
        auto* l = new QLabel(text, this);
        l->setBuddy(buddy);
        return l;
    };
    top->addWidget(label(QStringLiteral("&Date:"), m_date), 0, 0);
    top->addWidget(m_date, 0, 1);
    top->addWidget(label(QStringLiteral("T&ime:"), m_time), 0, 2);
    top->addWidget(m_time, 0, 3);
    top->addWidget(label(QStringLiteral("&Calories:"), m_calories), 1, 0);
    top->addWidget(m_calories, 1, 1);
    top->addWidget(estimate, 1, 2);
    top->addWidget(label(QStringLiteral("Routine &Notes:"), m_notes), 2, 0);
    top->addWidget(m_notes, 2, 1, 1, 3);
    top->addWidget(previousNotes, 2, 4, Qt::AlignTop);
    top->setColumnStretch(3, 1);

    auto* setButtons = new QHBoxLayout;
    for (QPushButton* b : {m_up, m_down, m_add, m_remove})
        setButtons->addWidget(b);
    auto* left = new QVBoxLayout;
    left->addWidget(label(QStringLiteral("&Exercises in order of completion:"), m_sets));
    left->addWidget(m_sets, 1);
    left->addLayout(setButtons);
    auto* right = new QVBoxLayout;
    right->addWidget(m_heading);
    right->addWidget(m_table, 1);
    auto* middle = new QHBoxLayout;
    middle->addLayout(left, 1);
    middle->addLayout(right, 2);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(middle, 1);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &DoRoutineDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &DoRoutineDialog::reject);
    connect(estimate, &QPushButton::clicked, this, &DoRoutineDialog::onEstimate);
    connect(previousNotes, &QPushButton::clicked, this, &DoRoutineDialog::onPreviousNotes);
    connect(m_sets, &QListWidget::itemSelectionChanged, this, &DoRoutineDialog::onSelectionChanged);
    connect(m_up, &QPushButton::clicked, this, &DoRoutineDialog::onUp);
    connect(m_down, &QPushButton::clicked, this, &DoRoutineDialog::onDown);
    connect(m_add, &QPushButton::clicked, this, &DoRoutineDialog::onAdd);
    connect(m_remove, &QPushButton::clicked, this, &DoRoutineDialog::onRemove);

    fillSets();
    selectSet(m_workout.exercises.empty() ? std::nullopt : std::optional<std::size_t>(0));
    resize(640, 460);
}

void DoRoutineDialog::fillSets()
{
    const model::SharedData& shared = m_context.store().shared;
    m_updating = true;
    m_sets->clear();
    for (const model::ExerciseRecord& set : m_workout.exercises) {
        const auto* exercise = definitionWithId(shared.exercises, set.exercise);
        m_sets->addItem(exercise ? ui::toQt(exercise->name) : QString());
    }
    m_updating = false;
}

void DoRoutineDialog::selectSet(std::optional<std::size_t> set)
{
    m_updating = true;
    if (set)
        m_sets->setCurrentRow(static_cast<int>(*set));
    else
        m_sets->clearSelection();
    m_updating = false;
    m_shownSet = set;
    showGrid();
}

void DoRoutineDialog::storeGrid()
{
    if (!m_shownSet || *m_shownSet >= m_workout.exercises.size())
        return;
    // A value still in its editor counts too (a shortcut can end the dialog without moving the
    // focus out of the cell, which is what commits it otherwise).
    if (QWidget* editor = m_table->indexWidget(m_table->currentIndex()))
        QMetaObject::invokeMethod(m_table, "commitData", Qt::DirectConnection,
                                  Q_ARG(QWidget*, editor));
    for (int r = 0; r < m_table->rowCount() && r < static_cast<int>(m_grid.size()); ++r)
        m_grid[static_cast<std::size_t>(r)].value = m_table->item(r, 1)->text().toStdString();
    fitness::storeGrid(m_workout.exercises[*m_shownSet], m_grid);
}

void DoRoutineDialog::showGrid()
{
    const model::Store& store = m_context.store();
    if (m_shownSet && *m_shownSet < m_workout.exercises.size()) {
        m_grid = valueGrid(store.shared, store.journal, m_workout, *m_shownSet, m_exclude);
        m_heading->setText(
            QString::fromUtf8(setHeading(store.shared, m_workout.exercises[*m_shownSet])));
    } else {
        m_grid.clear();
        m_heading->clear();
    }
    m_table->setRowCount(static_cast<int>(m_grid.size()));
    for (int r = 0; r < static_cast<int>(m_grid.size()); ++r) {
        const GridRow& row = m_grid[static_cast<std::size_t>(r)];
        auto* name = new QTableWidgetItem(QString::fromUtf8(row.name));
        name->setFlags(Qt::ItemIsEnabled);
        name->setBackground(colourOf(FieldCellColour));
        auto* value = new QTableWidgetItem(QString::fromUtf8(row.value));
        value->setData(KindRole, static_cast<int>(row.kind));
        auto* last = new QTableWidgetItem(QString::fromUtf8(row.last));
        last->setFlags(Qt::ItemIsEnabled);
        last->setBackground(colourOf(row.lastColour));
        m_table->setItem(r, 0, name);
        m_table->setItem(r, 1, value);
        m_table->setItem(r, 2, last);
    }
    if (!m_grid.empty())
        m_table->setCurrentCell(0, 1);
    updateButtons();
}

void DoRoutineDialog::updateButtons()
{
    const SetButtons enabled = setButtons(m_workout.exercises.size(), m_shownSet);
    m_up->setEnabled(enabled.up);
    m_down->setEnabled(enabled.down);
    m_remove->setEnabled(enabled.remove);
}

void DoRoutineDialog::onSelectionChanged()
{
    if (m_updating)
        return;
    storeGrid();
    const auto items = m_sets->selectedItems();
    m_shownSet =
        items.isEmpty() ? std::nullopt : std::optional<std::size_t>(m_sets->row(items.front()));
    showGrid();
}

void DoRoutineDialog::move(int direction)
{
    if (!m_shownSet)
        return;
    storeGrid();
    const auto moved = moveSet(m_workout.exercises, *m_shownSet, direction);
    if (!moved)
        return;
    fillSets();
    selectSet(moved);
}

void DoRoutineDialog::onUp()
{
    move(-1);
}

void DoRoutineDialog::onDown()
{
    move(+1);
}

void DoRoutineDialog::onAdd()
{
    const model::SharedData& shared = m_context.store().shared;
    QMenu menu(this);
    for (const model::Exercise& e : shared.exercises)
        menu.addAction(ui::toQt(e.name))->setData(e.id);
    const QPoint at =
        m_add->underMouse() ? QCursor::pos() : m_add->mapToGlobal(QPoint(0, m_add->height()));
    QAction* chosen = menu.exec(at);
    if (!chosen)
        return;
    storeGrid();
    appendSet(m_workout.exercises, newSet(shared, chosen->data().toInt()));
    fillSets();
    // The selection stays where it was; its set number may have changed.
    selectSet(m_shownSet);
}

void DoRoutineDialog::onRemove()
{
    if (!m_shownSet)
        return;
    removeSet(m_workout.exercises, *m_shownSet);
    fillSets();
    selectSet(std::nullopt);
}

void DoRoutineDialog::onEstimate()
{
    const int calories = parseWholeNumber(m_calories->text().toStdString()).value_or(0);
    DefineActivityDialog dialog(m_context.store().journal.user.weight, calories, this);
    if (dialog.exec() == QDialog::Accepted)
        m_calories->setText(QString::number(dialog.calories()));
}

void DoRoutineDialog::onPreviousNotes()
{
    m_notes->setPlainText(
        ui::toQt(previousNotes(m_context.store().journal, m_workout.routine, m_exclude)));
}

void DoRoutineDialog::accept()
{
    const auto calories = parseWholeNumber(m_calories->text().toStdString());
    if (!calories) {
        QMessageBox::warning(this, QStringLiteral("Velmora"),
                             QStringLiteral("Please enter an integer."));
        m_calories->setFocus();
        return;
    }
    storeGrid();
    const QTime time = m_time->time();
    m_workout.time =
        workoutTime(fromQDate(m_date->date()), time.hour(), time.minute(), time.second());
    m_workout.calories = *calories;
    m_workout.notes = ui::fromQt(m_notes->toPlainText());
    QDialog::accept();
}

} // namespace velmora::fitness
