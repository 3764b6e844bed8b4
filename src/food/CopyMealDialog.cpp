#include "food/CopyMealDialog.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/DateLimits.h"
#include "ui/AppContext.h"
#include "ui/QtText.h"
#include "food/logic/MealEditing.h"
#include "model/Store.h"

namespace velmora::food {

CopyMealDialog::CopyMealDialog(ui::AppContext& context, const model::CalendarDate& date, int kind,
                               QWidget* parent, bool wholeDay)
    : QDialog(parent), m_context(context), m_wholeDay(wholeDay)
{
    setWindowTitle(wholeDay ? tr("Copy Day From") : tr("Copy Meal From"));
    m_date = new QDateEdit(QDate(date.year, date.month, date.day), this);
    m_date->setCalendarPopup(true);
    ui::limitToStorableDates(m_date);
    // The program's own date text, as on the food page: day first in metric mode.
    m_date->setDisplayFormat(context.store().journal.user.isMetric() ? QStringLiteral("d/M/yyyy")
                                                                     : QStringLiteral("M/d/yyyy"));
    m_meals = new QComboBox(this);
    for (int k = 0; k < model::MealKindCount; ++k)
        m_meals->addItem(QString::fromLatin1(model::MealNames[static_cast<std::size_t>(k)]), k);
    m_meals->setCurrentIndex(kind);
    m_preview = new QListWidget(this);
    m_preview->setSelectionMode(QAbstractItemView::NoSelection);
    m_empty = new QLabel(this);
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);

    auto* form = new QFormLayout;
    form->addRow(tr("&Date:"), m_date);
    if (wholeDay)
        m_meals->hide();
    else
        form->addRow(tr("&Meal:"), m_meals);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(new QLabel(tr("Foods that will be added:"), this));
    layout->addWidget(m_preview, 1);
    layout->addWidget(m_empty);
    layout->addWidget(m_buttons);
    resize(460, 340);

    connect(m_date, &QDateEdit::dateChanged, this, &CopyMealDialog::showSource);
    connect(m_meals, &QComboBox::currentIndexChanged, this, &CopyMealDialog::showSource);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    showSource();
}

model::CalendarDate CopyMealDialog::sourceDate() const
{
    return ui::fromQDate(m_date->date());
}

void CopyMealDialog::setTargetDate(const model::CalendarDate& date)
{
    m_target = date;
    showSource();
}

int CopyMealDialog::sourceKind() const
{
    return std::max(0, m_meals->currentIndex());
}

void CopyMealDialog::showSource()
{
    const model::Store& store = m_context.store();
    const model::JournalDay* day = model::findDay(store.journal, sourceDate());
    m_preview->clear();
    if (day && m_wholeDay) {
        // Each meal's name, then its foods indented under it.
        for (const model::Meal& meal : day->meals) {
            const std::vector<MealRow> rows = mealRows(store, meal);
            if (rows.empty() || meal.kind >= model::MealKindCount)
                continue;
            auto* name = new QListWidgetItem(QString::fromLatin1(model::MealNames[meal.kind]));
            QFont bold = name->font();
            bold.setBold(true);
            name->setFont(bold);
            m_preview->addItem(name);
            for (const MealRow& row : rows)
                m_preview->addItem(QStringLiteral("    ") + ui::toQt(row.text));
        }
    } else if (const model::Meal* meal = day ? day->findMeal(sourceKind()) : nullptr) {
        for (const MealRow& row : mealRows(store, *meal))
            m_preview->addItem(ui::toQt(row.text));
    }
    const bool itself = m_wholeDay && m_target == sourceDate();
    if (itself)
        m_preview->clear();
    const bool any = m_preview->count() > 0;
    m_empty->setText(itself       ? tr("This is the day the foods would be added to.")
                     : m_wholeDay ? tr("This day holds no foods.")
                                  : tr("This meal holds no foods."));
    m_empty->setVisible(!any);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(any);
}

} // namespace velmora::food
