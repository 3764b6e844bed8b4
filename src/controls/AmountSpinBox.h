#pragma once

#include <QDoubleSpinBox>

namespace velmora::controls {

// A spin box for amounts that refuses text and out-of-range numbers as they are typed and says
// why through inputRefused(), so that the owner can show the hint next to it. Spinning below the
// floor leaves the floor.
class AmountSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    AmountSpinBox(double floor, double maximum, double step, QWidget* parent = nullptr);

    QValidator::State validate(QString& input, int& pos) const override;
    // The text shown to the user when a typed amount is refused.
    QString hintText() const;

signals:
    void inputRefused(const QString& hint) const;
    void inputAccepted() const;

private:
    double m_floor;
};

} // namespace velmora::controls
