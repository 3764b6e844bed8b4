// Signals that end the program, turned into a Qt signal in the main thread.

#include "app/ShutdownSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include "app/platform/TerminationSignals.h"

namespace velmora::app {

namespace {

ShutdownSignals* theInstance = nullptr;

} // namespace

ShutdownSignals& ShutdownSignals::instance()
{
    if (!theInstance)
        theInstance = new ShutdownSignals(QCoreApplication::instance());
    return *theInstance;
}

ShutdownSignals::ShutdownSignals(QObject* parent) : QObject(parent)
{
    const int descriptor = platform::installTerminationHandlers();
    if (descriptor >= 0) {
        m_notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
        connect(m_notifier, &QSocketNotifier::activated, this, &ShutdownSignals::readPipe);
    }
}

ShutdownSignals::~ShutdownSignals()
{
    theInstance = nullptr;
}

void ShutdownSignals::readPipe()
{
    for (int signal : platform::takeTerminationSignals())
        emit received(signal);
}

} // namespace velmora::app
