#include "analysis/BodyGoalsDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "model/Store.h"
#include "ui/Messages.h"

namespace velmora::analysis {

BodyGoalsDialog::BodyGoalsDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setWindowTitle(QStringLiteral("Set Body Goals"));
    const auto texts = bodyGoalTexts(m_context.store().journal.user);

    auto* layout = new QVBoxLayout(this);
    for (const char* text : {BodyGoalsIntroText, BodyGoalsProgressText}) {
        auto* label = new QLabel(QString::fromUtf8(text), this);
        label->setWordWrap(true);
        layout->addWidget(label);
    }

    auto* columns = new QHBoxLayout;
    QFormLayout* form = nullptr;
    for (std::size_t i = 0; i < BodyGoalCount; ++i) {
        if (i == 0 || i == BodyGoalsLeftColumn) {
            auto* column = new QGroupBox(QString::fromUtf8(BodyGoalsColumnHeading), this);
            form = new QFormLayout(column);
            columns->addWidget(column, 0, Qt::AlignTop);
        }
        m_boxes[i] = new QLineEdit(QString::fromUtf8(texts[i]), this);
        m_boxes[i]->setObjectName(QStringLiteral("bodyGoal%1").arg(i));
        form->addRow(QString::fromUtf8(BodyGoalLabels[i]), m_boxes[i]);
    }
    layout->addLayout(columns);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    setMinimumWidth(460);
}

void BodyGoalsDialog::accept()
{
    std::array<std::string, BodyGoalCount> boxes;
    for (std::size_t i = 0; i < BodyGoalCount; ++i)
        boxes[i] = m_boxes[i]->text().toStdString();
    if (const auto bad = storeBodyGoals(m_context.store().journal.user, boxes)) {
        ui::showMessageText(this, QStringLiteral("Please enter a number."));
        m_boxes[*bad]->setFocus();
        m_boxes[*bad]->selectAll();
        return;
    }
    m_context.notifyChanged(ui::Change::Profile);
    QDialog::accept();
}

} // namespace velmora::analysis
