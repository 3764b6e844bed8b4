#pragma once

#include <cstdint>
#include <vector>

namespace velmora::test {

// File images made by hand from the file layouts, byte by byte, without the writers under test.
// Their content is described next to each function in Fixtures.cpp; the tests check the parsed
// records against those descriptions.

// A User record of version 131 with a distinct value in every slot.
std::vector<std::uint8_t> handMadeUserRecord();
// The same record as version 129: no trailing value.
std::vector<std::uint8_t> handMadeUserRecordV129();
// "velmora.db": two users, one custom food, two fields, one exercise, one routine, one variable.
std::vector<std::uint8_t> handMadeShared();
// A user's file: handMadeUserRecord() and two days (one full, one empty).
std::vector<std::uint8_t> handMadeUserFile();
// "foods.db": two foods, three catalogue entries, one group, one intake record.
std::vector<std::uint8_t> handMadeFoods();

} // namespace velmora::test
