// The entry of the network module.

#include "update/UpdateCheckModule.h"

#include "update/UpdateChecker.h"

extern "C" bool velmora_network_check_for_updates(QWidget* parent)
{
    velmora::update::UpdateChecker checker;
    return checker.run(parent) == velmora::update::UpdateChecker::Outcome::UpdaterStarted;
}
