#include "fitness/FitnessLogPage.h"

#include <algorithm>

#include <QCursor>
#include <QDateTime>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "fitness/DefineExercisesDialog.h"
#include "fitness/DefineFieldsDialog.h"
#include "fitness/DefineRoutinesDialog.h"
#include "fitness/DefinitionNames.h"
#include "fitness/DoRoutineDialog.h"
#include "fitness/FitnessText.h"
#include "fitness/logic/WorkoutSets.h"
#include "food/ChooseColumnsDialog.h"
#include "model/Store.h"

namespace velmora::fitness {

namespace {

constexpr int DayRole = Qt::UserRole;
constexpr int WorkoutRole = Qt::UserRole + 1;
constexpr int SetRole = Qt::UserRole + 2;

model::TimeT now()
{
    return static_cast<model::TimeT>(QDateTime::currentSecsSinceEpoch());
}

} // namespace

FitnessLogPage::FitnessLogPage(ui::AppContext& context, QWidget* parent) : ui::Page(context, parent)
{
    m_tree = new QTreeWidget(this);
    m_tree->setObjectName(QStringLiteral("fitnessLog"));
    m_tree->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tree->setUniformRowHeights(true);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionsMovable(false);

    m_doRoutine = new QPushButton(QStringLiteral("Do &Routine..."), this);
    m_edit = new QPushButton(QStringLiteral("&Edit..."), this);
    m_delete = new QPushButton(QStringLiteral("&Delete"), this);
    auto* columns = new QPushButton(QStringLiteral("&Columns..."), this);
    auto* fields = new QPushButton(QStringLiteral("Define F&ields..."), this);
    auto* exercises = new QPushButton(QStringLiteral("Define E&xercises..."), this);
    auto* routines = new QPushButton(QStringLiteral("Define R&outines..."), this);

    // Two rows of buttons, so that they fit beside each other at the window's smallest width.
    auto* firstRow = new QHBoxLayout;
    for (QPushButton* b : {m_doRoutine, m_edit, m_delete, columns})
        firstRow->addWidget(b);
    firstRow->addStretch();
    auto* secondRow = new QHBoxLayout;
    for (QPushButton* b : {fields, exercises, routines})
        secondRow->addWidget(b);
    secondRow->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tree, 1);
    layout->addLayout(firstRow);
    layout->addLayout(secondRow);

    connect(m_doRoutine, &QPushButton::clicked, this, &FitnessLogPage::onDoRoutine);
    connect(m_edit, &QPushButton::clicked, this, &FitnessLogPage::onEdit);
    connect(m_delete, &QPushButton::clicked, this, &FitnessLogPage::onDelete);
    connect(columns, &QPushButton::clicked, this, &FitnessLogPage::onColumns);
    connect(fields, &QPushButton::clicked, this, &FitnessLogPage::onDefineFields);
    connect(exercises, &QPushButton::clicked, this, &FitnessLogPage::onDefineExercises);
    connect(routines, &QPushButton::clicked, this, &FitnessLogPage::onDefineRoutines);
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &FitnessLogPage::updateButtons);
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (selectedWorkout())
            onEdit();
    });
    connect(m_tree->header(), &QHeaderView::sectionResized, this,
            &FitnessLogPage::onSectionResized);
    auto* deleteKey =
        new QShortcut(QKeySequence::Delete, m_tree, nullptr, nullptr, Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, &FitnessLogPage::onDelete);

    rebuild();
}

QString FitnessLogPage::pageTitle() const
{
    return QStringLiteral("Fitness Log");
}

void FitnessLogPage::refreshPage()
{
    rebuild();
}

void FitnessLogPage::showEvent(QShowEvent* event)
{
    ui::Page::showEvent(event);
    rebuild();
}

void FitnessLogPage::storePage()
{
    // Workouts and column choices are written into the store as they happen.
}

void FitnessLogPage::setUpColumns()
{
    const model::Store& store = context().store();
    const model::User& user = store.journal.user;
    QStringList headers{QStringLiteral("Date")};
    for (std::int32_t field : fitnessColumns(user)) {
        const auto* f = definitionWithId(store.shared.fields, field);
        headers << (f ? ui::toQt(f->name) : QString());
    }
    m_tree->setColumnCount(static_cast<int>(headers.size()));
    m_tree->setHeaderLabels(headers);
    const QFontMetrics metrics(m_tree->header()->font());
    m_tree->setColumnWidth(0, dateColumnWidth(user));
    for (int c = 1; c < headers.size(); ++c)
        m_tree->setColumnWidth(
            c, fieldColumnWidth(user, c - 1, metrics.horizontalAdvance(headers[c])));
}

void FitnessLogPage::rebuild()
{
    m_building = true;
    const auto previous = selectedRef();
    m_tree->clear();
    setUpColumns();
    const model::Store& store = context().store();
    QTreeWidgetItem* day = nullptr;
    QTreeWidgetItem* workout = nullptr;
    QTreeWidgetItem* reselect = nullptr;
    for (const FitnessRow& row : fitnessLogRows(store.shared, store.journal, now())) {
        QTreeWidgetItem* item = nullptr;
        switch (row.ref.kind()) {
        case FitnessRowKind::Day:
            item = day = new QTreeWidgetItem(m_tree);
            break;
        case FitnessRowKind::Workout:
            item = workout = new QTreeWidgetItem(day);
            break;
        case FitnessRowKind::Set:
            item = new QTreeWidgetItem(workout);
            break;
        }
        item->setText(0, QString::fromUtf8(row.label));
        for (std::size_t c = 0; c < row.cells.size(); ++c)
            item->setText(static_cast<int>(c) + 1, QString::fromUtf8(row.cells[c]));
        item->setData(0, DayRole, static_cast<qulonglong>(row.ref.day));
        item->setData(0, WorkoutRole, row.ref.workout);
        item->setData(0, SetRole, row.ref.set);
        if (previous && *previous == row.ref)
            reselect = item;
    }
    m_tree->expandAll();
    // Without a saved width the date column is at least wide enough for its rows.
    if (context().store().journal.user.fitnessColumnWidths[0] <= 0) {
        m_tree->resizeColumnToContents(0);
        m_tree->setColumnWidth(
            0, std::max(dateColumnWidth(context().store().journal.user), m_tree->columnWidth(0)));
    }
    if (reselect)
        m_tree->setCurrentItem(reselect);
    m_building = false;
    updateButtons();
}

std::optional<FitnessRowRef> FitnessLogPage::selectedRef() const
{
    const auto items = m_tree->selectedItems();
    if (items.isEmpty())
        return std::nullopt;
    const QTreeWidgetItem* item = items.front();
    FitnessRowRef ref;
    ref.day = static_cast<std::size_t>(item->data(0, DayRole).toULongLong());
    ref.workout = item->data(0, WorkoutRole).toInt();
    ref.set = item->data(0, SetRole).toInt();
    return ref;
}

std::optional<model::WorkoutPlace> FitnessLogPage::selectedWorkout() const
{
    const auto ref = selectedRef();
    if (!workoutRowSelected(ref ? &*ref : nullptr))
        return std::nullopt;
    const model::UserJournal& journal = context().store().journal;
    const model::WorkoutPlace place{ref->day, static_cast<std::size_t>(ref->workout)};
    if (place.day >= journal.days.size() ||
        place.workout >= journal.days[place.day].workouts.size())
        return std::nullopt;
    return place;
}

void FitnessLogPage::updateButtons()
{
    if (m_building)
        return;
    const bool workout = selectedWorkout().has_value();
    m_edit->setEnabled(workout);
    m_delete->setEnabled(workout);
    const bool routines = !context().store().shared.routines.empty();
    m_doRoutine->setEnabled(routines);
    m_doRoutine->setToolTip(routines ? QString()
                                     : QStringLiteral("Define a routine first with \"Define "
                                                      "Routines...\""));
    const model::Store& store = context().store();
    const auto ref = selectedRef();
    context().showStatus(
        ref ? QString::fromUtf8(fitnessStatusText(store.shared, store.journal, *ref)) : QString());
}

void FitnessLogPage::onDoRoutine()
{
    const model::SharedData& shared = context().store().shared;
    QMenu menu(this);
    for (const model::Routine& r : shared.routines)
        menu.addAction(ui::toQt(r.name))->setData(r.id);
    // From the keyboard the menu opens at the button, from the mouse at the cursor.
    const QPoint at = m_doRoutine->underMouse()
                          ? QCursor::pos()
                          : m_doRoutine->mapToGlobal(QPoint(0, m_doRoutine->height()));
    QAction* chosen = menu.exec(at);
    if (!chosen)
        return;
    const auto* routine = definitionWithId(shared.routines, chosen->data().toInt());
    if (!routine)
        return;
    DoRoutineDialog dialog(context(), newWorkout(shared, *routine, now()), nullptr, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    model::commitWorkout(context().store().journal, dialog.workout(), std::nullopt);
    context().notifyChanged(ui::Change::Journal);
    rebuild();
}

void FitnessLogPage::onEdit()
{
    const auto place = selectedWorkout();
    if (!place)
        return;
    model::UserJournal& journal = context().store().journal;
    const model::WorkoutEntry& recorded = journal.days[place->day].workouts[place->workout];
    DoRoutineDialog dialog(context(), recorded, &recorded, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    model::commitWorkout(journal, dialog.workout(), place);
    context().notifyChanged(ui::Change::Journal);
    rebuild();
}

void FitnessLogPage::onDelete()
{
    const auto place = selectedWorkout();
    if (!place)
        return;
    if (model::deleteWorkout(context().store().journal, *place))
        context().notifyChanged(ui::Change::Journal);
    rebuild();
}

void FitnessLogPage::onColumns()
{
    const model::Store& store = context().store();
    std::vector<std::pair<QString, int>> items;
    for (const model::ExerciseField& f : store.shared.fields)
        items.emplace_back(ui::toQt(f.name), f.id);
    std::array<int, 10> chosen{};
    for (std::size_t i = 0; i < chosen.size(); ++i)
        chosen[i] = store.journal.user.fitnessColumns[i];
    food::ChooseColumnsDialog dialog(items, chosen, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    model::setFitnessColumns(context().store().journal.user, chosen);
    context().notifyChanged(ui::Change::Journal);
    rebuild();
}

void FitnessLogPage::onDefineFields()
{
    DefineFieldsDialog dialog(context(), this);
    dialog.exec();
    rebuild();
}

void FitnessLogPage::onDefineExercises()
{
    DefineExercisesDialog dialog(context(), this);
    dialog.exec();
    rebuild();
}

void FitnessLogPage::onDefineRoutines()
{
    DefineRoutinesDialog dialog(context(), this);
    dialog.exec();
    rebuild();
}

void FitnessLogPage::onSectionResized(int column, int, int newSize)
{
    if (m_building)
        return;
    model::setFitnessColumnWidth(context().store().journal.user, column, newSize);
    context().notifyChanged(ui::Change::Journal);
}

} // namespace velmora::fitness
