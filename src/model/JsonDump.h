#pragma once

#include <string>

#include "model/FoodDatabase.h"
#include "model/UserDatabase.h"

namespace velmora::model {

// JSON views of the three files' records: every field under a descriptive name, texts converted
// from Windows-1252 to UTF-8, times in UTC. They show what a reader took from a file, field by
// field, so that a person can compare it with what they expect.
std::string foodsJson(const FoodDatabase& db);
std::string sharedJson(const SharedData& data);
std::string userJson(const UserJournal& journal);

} // namespace velmora::model
