// The velmora program: parse the command line, load the store, show the main window.

#include "app/Application.h"

int main(int argc, char* argv[])
{
    velmora::app::Application app(argc, argv);
    if (!app.start())
        return 1;
    return app.exec();
}
