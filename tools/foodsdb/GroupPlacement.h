#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "SourceData.h"

namespace velmora::foodsdb {

// How many foods each rule of placeByName put into a group.
struct PlacementCounts
{
    int byException = 0;    // the hand-checked table of name starts
    int byLeadingParts = 0; // the first one to three comma-separated parts of the name
    int byLeadingWord = 0;  // the first word of the name
    int left = 0;           // still in "Other"
};

// The start of a name as the learned rules compare it: its first `parts` comma-separated parts,
// blanks trimmed, ASCII letters upper-cased, joined by ", ". Empty when the name has fewer parts.
std::string leadingParts(std::string_view name, int parts);
// The first word of a name: its leading ASCII letters, upper-cased ("Turkey bacon" -> "TURKEY").
std::string leadingWord(std::string_view name);

// The hand-checked group of a name, or OtherGroupNumber when no entry of the exception table
// starts the name (the longest matching start wins).
int exceptionGroup(std::string_view name);

// Puts each food of group OtherGroupNumber into the USDA group its name shows, learning from the
// foods whose group is known. Rules in order, the first that answers wins: the exception table;
// the longest start of one to three comma-separated parts that some known foods share, taking the
// group most of them belong to; the first word likewise. Ties go to the lower group code, so the
// result depends on the foods alone, not on their order. Foods no rule places stay in "Other".
PlacementCounts placeByName(std::vector<SourceFood>& foods);

} // namespace velmora::foodsdb
