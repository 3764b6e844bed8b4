#pragma once

class QWidget;

// The entry of the network module, which the program looks up by this name on Help > "Check for
// Updates": runs the check; true when the updater was started and the program should close.
extern "C" bool velmora_network_check_for_updates(QWidget* parent);
