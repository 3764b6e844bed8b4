#pragma once

#include <cstddef>
#include <string>

#include "model/Result.h"

namespace velmora::model {

class Store;
struct SharedData;

// Adding, switching and deleting users. Saving before a switch is the caller's: these only change
// the records and the files named here.

// Appends a user name (Windows-1252, first letter upper-cased); returns its index. The caller has
// checked the name (see UserNames.h).
std::size_t addUser(SharedData& shared, const std::string& name);
// Makes user k current and reads its file as DataFolder::loadCurrentUser does (a user without a
// file starts with an empty journal and the previous profile). False, with error set when the
// file could not be read, when k is not a user or its file is missing or damaged.
bool switchUser(Store& store, std::size_t k, FileError* error);
// Removes user k's file and name, makes the first user current and reads its file. False when k
// is not a user.
bool deleteUser(Store& store, std::size_t k, FileError* error);

} // namespace velmora::model
