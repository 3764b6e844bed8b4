// The velmora program: parse the command line, load the store, show the main window.

#include <QApplication>

#include "app/Application.h"

int main(int argc, char* argv[])
{
    QApplication qtApp(argc, argv);
    velmora::app::Application::setIdentity();
    velmora::app::Application app(
        velmora::app::Application::parseArguments(QCoreApplication::arguments()));
    if (!app.start())
        return 1;
    return app.run();
}
