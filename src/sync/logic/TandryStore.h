#pragma once

#include "model/TandryFiles.h"
#include "sync/logic/TransferStore.h"

namespace velmora::sync {

// The diet handheld's files: "tandry.db" and "<user>.db" in the exchange folder.
using TandryStore = TransferStore<model::TandryShared, model::TandryUser>;

} // namespace velmora::sync
