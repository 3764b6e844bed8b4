#pragma once

#include "model/KorvelFiles.h"
#include "sync/logic/TransferStore.h"

namespace velmora::sync {

// The workout handheld's files: "korvel.dwb" and "<user>.dwb" in the exchange folder. Reading a
// user while the store has no user names first fills the default definitions.
using KorvelStore = TransferStore<model::KorvelShared, model::KorvelUser>;

} // namespace velmora::sync
