#include "controls/AmountSpinBox.h"

namespace velmora::controls {

AmountSpinBox::AmountSpinBox(double floor, double maximum, double step, QWidget* parent)
    : QDoubleSpinBox(parent), m_floor(floor)
{
    setDecimals(2);
    setRange(0.0, maximum);
    setSingleStep(step);
    setKeyboardTracking(false); // the floor applies to a finished number, not to each keystroke
    setAccelerated(true);
    connect(this, &QDoubleSpinBox::valueChanged, this, [this](double v) {
        if (v < m_floor)
            setValue(m_floor);
    });
}

QString AmountSpinBox::hintText() const
{
    return tr("Type an amount from %1 to %2, e.g. 1.5")
        .arg(locale().toString(m_floor, 'f', 2), locale().toString(maximum(), 'f', 0));
}

QValidator::State AmountSpinBox::validate(QString& input, int& pos) const
{
    const QValidator::State state = QDoubleSpinBox::validate(input, pos);
    if (state == QValidator::Invalid)
        emit inputRefused(hintText());
    else
        emit inputAccepted();
    return state;
}

} // namespace velmora::controls
