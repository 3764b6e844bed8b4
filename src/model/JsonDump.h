#pragma once

#include <string>

#include "model/FoodDatabase.h"
#include "model/KorvelFiles.h"
#include "model/TandryFiles.h"
#include "model/UserDatabase.h"

namespace velmora::model {

// JSON views of the files' records: every field under a descriptive name, texts converted
// from Windows-1252 to UTF-8, times in UTC. They show what a reader took from a file, field by
// field, so that a person can compare it with what they expect.
std::string foodsJson(const FoodDatabase& db);
std::string sharedJson(const SharedData& data);
std::string userJson(const UserJournal& journal);
// The handheld files: a food's values show both what is stored (tenths) and the value in its
// unit, the computed ones included.
std::string tandryJson(const TandryShared& data);
std::string tandryUserJson(const TandryUser& user);
std::string korvelJson(const KorvelShared& data);
std::string korvelUserJson(const KorvelUser& user);

} // namespace velmora::model
