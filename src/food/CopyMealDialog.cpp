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
                               QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setWindowTitle(tr("Copy Meal From"));
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
    m_empty = new QLabel(tr("This meal holds no foods."), this);
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);

    auto* form = new QFormLayout;
    form->addRow(tr("&Date:"), m_date);
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
    const QDate d = m_date->date();
    return {d.year(), d.month(), d.day()};
}

int CopyMealDialog::sourceKind() const
{
    return std::max(0, m_meals->currentIndex());
}

void CopyMealDialog::showSource()
{
    const model::Store& store = m_context.store();
    const model::JournalDay* day = model::findDay(store.journal, sourceDate());
    const model::Meal* meal = day ? day->findMeal(sourceKind()) : nullptr;
    m_preview->clear();
    if (meal)
        for (const MealRow& row : mealRows(store, *meal))
            m_preview->addItem(ui::toQt(row.text));
    const bool any = m_preview->count() > 0;
    m_empty->setVisible(!any);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(any);
}

} // namespace velmora::food
