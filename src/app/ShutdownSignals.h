#pragma once

#include <QObject>

class QSocketNotifier;

namespace velmora::app {

// The signals that end a program from outside (SIGTERM, SIGHUP as at logout, SIGINT), delivered
// as a Qt signal in the main thread so that the program can save and quit in order. The handler
// only writes the signal's number to a pipe, which a socket notifier reads in the event loop.
// Platforms without these signals never emit received().
class ShutdownSignals : public QObject
{
    Q_OBJECT

public:
    // The one instance, owned by the application object; the handlers are installed when it is
    // first asked for.
    static ShutdownSignals& instance();
    ~ShutdownSignals() override;

signals:
    void received(int signal);

private:
    explicit ShutdownSignals(QObject* parent);
    void readPipe();

    QSocketNotifier* m_notifier = nullptr;
};

} // namespace velmora::app
