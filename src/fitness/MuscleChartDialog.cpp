#include "fitness/MuscleChartDialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QSvgRenderer>
#include <QVBoxLayout>

namespace velmora::fitness {

// The body picture, drawn from its vector image at whatever size the dialog gives it, with the
// image's proportions kept.
class BodyPicture : public QWidget
{
public:
    explicit BodyPicture(QWidget* parent) : QWidget(parent), m_renderer(this)
    {
        setMinimumSize(150, 310);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

    void load(BodyView view)
    {
        m_renderer.load(QStringLiteral(":/") + QString::fromLatin1(musclePicture(view)));
        update();
    }

    QSize sizeHint() const override { return {260, 540}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(rect(), Qt::white);
        const QSizeF image = m_renderer.viewBoxF().size();
        if (image.isEmpty())
            return;
        const QSizeF fitted = image.scaled(size(), Qt::KeepAspectRatio);
        const QRectF target(
            QPointF((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), fitted);
        m_renderer.render(&painter, target);
    }

private:
    QSvgRenderer m_renderer;
};

MuscleChartDialog::MuscleChartDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Muscle Chart"));
    m_picture = new BodyPicture(this);
    m_picture->setObjectName(QStringLiteral("bodyPicture"));
    auto* buttons = new QVBoxLayout;
    for (int b = 0; b < MuscleButtonCount; ++b) {
        auto* button = new QPushButton(this);
        button->setObjectName(QStringLiteral("muscle%1").arg(b + 1));
        button->setAutoDefault(false);
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, b] { onMuscle(b); });
        m_buttons[static_cast<std::size_t>(b)] = button;
    }
    buttons->addStretch();
    auto* rotate = new QPushButton(QStringLiteral("<< &Rotate Model >>"), this);
    rotate->setAutoDefault(false);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setDefault(true);
    buttons->addWidget(rotate);
    buttons->addWidget(ok);

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_picture, 1);
    layout->addLayout(buttons);

    connect(rotate, &QPushButton::clicked, this, [this] { showView(rotated(m_view)); });
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    showView(InitialBodyView);
}

void MuscleChartDialog::showView(BodyView view)
{
    m_view = view;
    m_picture->load(view);
    const auto& labels = muscleButtons(view);
    for (std::size_t b = 0; b < labels.size(); ++b) {
        m_buttons[b]->setText(QString::fromLatin1(labels[b].label));
        m_buttons[b]->setVisible(labels[b].visible);
    }
}

void MuscleChartDialog::onMuscle(int button)
{
    const MuscleButton& muscle = muscleButtons(m_view)[static_cast<std::size_t>(button)];
    QMessageBox::information(this, QString::fromLatin1(muscle.label),
                             QString::fromLatin1(muscle.exercises));
}

} // namespace velmora::fitness
