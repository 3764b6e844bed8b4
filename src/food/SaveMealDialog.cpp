#include "food/SaveMealDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "food/logic/CustomFoods.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "ui/QtText.h"

namespace velmora::food {

SaveMealDialog::SaveMealDialog(ui::AppContext& context, const model::Meal& meal, QWidget* parent)
    : QDialog(parent), m_context(context), m_meal(meal)
{
    setWindowTitle(QStringLiteral("Save Meal as Custom Food"));
    m_name = new QLineEdit(this);
    m_name->setMinimumWidth(260);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Name:"), m_name);

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &SaveMealDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SaveMealDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    m_name->setFocus();
}

void SaveMealDialog::accept()
{
    const std::string name = ui::fromQt(m_name->text());
    if (saveMealAsCustomFood(m_context.store(), m_meal, name) < 0)
        return; // nothing but blanks: stay open
    m_context.notifyChanged(ui::Change::Definitions);
    QDialog::accept();
}

} // namespace velmora::food
