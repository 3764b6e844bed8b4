// The floor for the start-up measurement: a bare Qt Widgets window with a menu, a tool bar, a
// list and a painted disc, started and measured the same way as the program (--measure-startup
// prints the time of the first paint and quits).

#include <QApplication>
#include <QDateTime>
#include <QHBoxLayout>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QTimer>
#include <QToolBar>

#include <cstdio>

namespace {

class Disc : public QWidget
{
public:
    explicit Disc(QWidget* parent) : QWidget(parent) { setMinimumSize(200, 200); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        p.setBrush(QColor(0x2e, 0x7d, 0x6b));
        const int side = std::min(width(), height()) - 20;
        p.drawEllipse(10, 10, side, side);
    }
};

class Window : public QMainWindow
{
public:
    explicit Window(bool measure) : m_measure(measure)
    {
        menuBar()
            ->addMenu(QStringLiteral("&File"))
            ->addAction(QStringLiteral("E&xit"), this, &QWidget::close);
        addToolBar(QStringLiteral("Tools"))->addAction(QStringLiteral("Food"));
        auto* central = new QWidget(this);
        auto* layout = new QHBoxLayout(central);
        auto* list = new QListWidget(central);
        for (int i = 0; i < 50; ++i)
            list->addItem(QStringLiteral("Item %1").arg(i));
        layout->addWidget(list);
        layout->addWidget(new Disc(central));
        setCentralWidget(central);
        resize(1100, 720);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QMainWindow::paintEvent(event);
        if (m_measure && !m_painted) {
            m_painted = true;
            QTimer::singleShot(0, this, [this] {
                std::printf("first-paint-epoch-ms=%lld\n",
                            static_cast<long long>(QDateTime::currentMSecsSinceEpoch()));
                std::fflush(stdout);
                close();
            });
        }
    }

private:
    bool m_measure;
    bool m_painted = false;
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    const bool measure =
        QCoreApplication::arguments().contains(QStringLiteral("--measure-startup"));
    Window window(measure);
    window.show();
    return QApplication::exec();
}
