#include "fitness/MeasurementsDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QVBoxLayout>

#include "fitness/FitnessText.h"
#include "fitness/logic/HealthValues.h"

namespace velmora::fitness {

MeasurementsDialog::MeasurementsDialog(const model::User& user, const model::HealthEntry& entry,
                                       QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Measurements"));
    m_edits = measurementEdits(entry);
    auto* grid = new QGridLayout;
    for (int r = 0; r < MeasurementRowCount; ++r) {
        const MeasurementRow& row = MeasurementRows[static_cast<std::size_t>(r)];
        const auto& edit = m_edits[static_cast<std::size_t>(r)];
        auto* label = new QLabel(QString::fromLatin1(row.label), this);
        auto* left = new QLineEdit(QString::fromUtf8(valueEditText(edit.left)), this);
        left->setObjectName(QStringLiteral("measurement%1").arg(r));
        auto* goal =
            new QLineEdit(QString::fromUtf8(valueEditText(measurementGoal(user, row))), this);
        goal->setReadOnly(true);
        goal->setFocusPolicy(Qt::NoFocus);
        m_left[static_cast<std::size_t>(r)] = left;
        grid->addWidget(label, r, 0);
        if (row.pair) {
            auto* leftLabel = new QLabel(QStringLiteral("Left:"), this);
            leftLabel->setBuddy(left);
            grid->addWidget(leftLabel, r, 1);
        }
        label->setBuddy(left);
        grid->addWidget(left, r, 2);
        grid->addWidget(new QLabel(QStringLiteral("Goal:"), this), r, 3);
        grid->addWidget(goal, r, 4);
        if (row.pair) {
            auto* right = new QLineEdit(QString::fromUtf8(valueEditText(edit.right)), this);
            right->setObjectName(QStringLiteral("measurementRight%1").arg(r));
            auto* rightLabel = new QLabel(QStringLiteral("Right:"), this);
            rightLabel->setBuddy(right);
            grid->addWidget(rightLabel, r, 5);
            grid->addWidget(right, r, 6);
            m_right[static_cast<std::size_t>(r)] = right;
        }
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &MeasurementsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &MeasurementsDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(buttons);
}

void MeasurementsDialog::accept()
{
    MeasurementEdits edits{};
    for (std::size_t r = 0; r < m_left.size(); ++r) {
        for (QLineEdit* edit : {m_left[r], m_right[r]}) {
            if (!edit)
                continue;
            const auto number = parseNumber(edit->text().toStdString());
            if (!number) {
                QMessageBox::warning(this, QStringLiteral("Velmora"),
                                     QStringLiteral("Please enter a number."));
                edit->setFocus();
                edit->selectAll();
                return;
            }
            (edit == m_left[r] ? edits[r].left : edits[r].right) = static_cast<float>(*number);
        }
    }
    m_edits = edits;
    QDialog::accept();
}

void MeasurementsDialog::applyTo(model::HealthEntry& entry) const
{
    applyMeasurementEdits(entry, m_edits);
}

} // namespace velmora::fitness
