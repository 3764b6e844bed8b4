#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/FoodItem.h"

namespace velmora::food {

// The words of a text as the word search compares them: runs of letters and digits (the accented
// letters of Windows-1252 included), upper-cased. An apostrophe inside a word is dropped
// ("Kellogg's" reads "KELLOGGS"); every other byte separates words.
std::vector<std::string> searchWords(std::string_view text);

// The forms a word may stand for once a plural is forgiven: the word itself, and for words of
// three letters or more ending in S also the word without "S", without "ES", and with "IES"
// turned into "Y" ("BERRIES" -> "BERRIE", "BERRI", "BERRY").
std::vector<std::string> wordForms(std::string_view word);

// True when two upper-cased words are the same, a plural forgiven on either side: "EGG" and
// "EGGS", "PEACH" and "PEACHES", "BERRY" and "BERRIES", "CHEESE" and "CHEESES".
bool sameWord(std::string_view a, std::string_view b);

// Where a text's words stand in one food's name.
struct WordMatch
{
    std::size_t food = 0;  // position in the index
    int positionSum = 0;   // sum of the (0-based) word positions in the name of the words found
    int prefixMatches = 0; // typed words found only as the start of a longer word
};

// The words of a list of food names, split and upper-cased once so that a search over every food
// of the database takes well under a millisecond. The index keeps no reference to the list.
class FoodWordIndex
{
public:
    FoodWordIndex() = default;
    explicit FoodWordIndex(const std::vector<model::FoodItem>& foods);

    std::size_t size() const { return m_foods.size(); }
    std::int32_t number(std::size_t food) const { return m_foods[food].number; }
    std::int32_t group(std::size_t food) const { return m_foods[food].group; }
    std::size_t nameLength(std::size_t food) const { return m_foods[food].nameLength; }

    // Every food whose name holds each of words (already upper-cased, as searchWords gives them)
    // as a whole word, in any order, a plural forgiven. When lastIsPrefix is set the last word may
    // also be the start of a longer word ("BAN" finds "Bananas"); a whole word still counts first.
    // group limits the search to foods of that group unless it is anyGroup. No words: no matches.
    std::vector<WordMatch> find(const std::vector<std::string>& words, bool lastIsPrefix,
                                std::int32_t group, bool anyGroup) const;

private:
    struct Food
    {
        std::int32_t number = 0;
        std::int32_t group = 0;
        std::size_t nameLength = 0;
        std::uint32_t firstWord = 0; // into m_words
        std::uint32_t wordCount = 0;
    };

    std::vector<Food> m_foods;
    std::vector<std::uint32_t> m_words;            // vocabulary ids of each food's words, in order
    std::vector<std::string> m_vocabulary;         // distinct words
    std::vector<std::vector<std::string>> m_forms; // wordForms of each vocabulary word
};

} // namespace velmora::food
