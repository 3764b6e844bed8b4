#include "food/logic/FoodWords.h"

#include <unordered_map>

#include "food/logic/FoodSearch.h"

namespace velmora::food {

namespace {

bool isWordByte(char c)
{
    const auto b = static_cast<unsigned char>(c);
    if ((b >= '0' && b <= '9') || (b >= 'A' && b <= 'Z') || (b >= 'a' && b <= 'z'))
        return true;
    // Windows-1252 letters: Š Œ Ž š œ ž Ÿ and the accented range from À, less × and ÷.
    switch (b) {
    case 0x8A:
    case 0x8C:
    case 0x8E:
    case 0x9A:
    case 0x9C:
    case 0x9E:
    case 0x9F:
        return true;
    default:
        return b >= 0xC0 && b != 0xD7 && b != 0xF7;
    }
}

// Quality of a vocabulary word for one typed word.
enum : std::uint8_t
{
    NoMatch = 0,
    PrefixMatch = 1,
    WholeMatch = 2
};

} // namespace

std::vector<std::string> searchWords(std::string_view text)
{
    std::vector<std::string> words;
    std::string word;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (isWordByte(c)) {
            word += upperCp1252(c);
            continue;
        }
        // An apostrophe between two letters joins them.
        if (c == '\'' && !word.empty() && i + 1 < text.size() && isWordByte(text[i + 1]))
            continue;
        if (!word.empty())
            words.push_back(std::move(word));
        word.clear();
    }
    if (!word.empty())
        words.push_back(std::move(word));
    return words;
}

std::vector<std::string> wordForms(std::string_view word)
{
    std::vector<std::string> forms{std::string(word)};
    const std::size_t n = word.size();
    if (n >= 3 && word.back() == 'S') {
        forms.emplace_back(word.substr(0, n - 1));
        if (n >= 4 && word[n - 2] == 'E') {
            forms.emplace_back(word.substr(0, n - 2));
            if (word[n - 3] == 'I')
                forms.push_back(std::string(word.substr(0, n - 3)) + 'Y');
        }
    }
    return forms;
}

namespace {

bool anyCommon(const std::vector<std::string>& a, const std::vector<std::string>& b)
{
    for (const std::string& x : a)
        for (const std::string& y : b)
            if (x == y)
                return true;
    return false;
}

} // namespace

bool sameWord(std::string_view a, std::string_view b)
{
    return anyCommon(wordForms(a), wordForms(b));
}

FoodWordIndex::FoodWordIndex(const std::vector<model::FoodItem>& foods)
{
    std::unordered_map<std::string, std::uint32_t> ids;
    m_foods.reserve(foods.size());
    for (const model::FoodItem& f : foods) {
        Food entry;
        entry.number = f.number;
        entry.group = f.group;
        entry.nameLength = f.name.size();
        entry.firstWord = static_cast<std::uint32_t>(m_words.size());
        for (std::string& w : searchWords(f.name)) {
            auto [it, added] =
                ids.try_emplace(std::move(w), static_cast<std::uint32_t>(ids.size()));
            if (added) {
                m_vocabulary.push_back(it->first);
                m_forms.push_back(wordForms(it->first));
            }
            m_words.push_back(it->second);
        }
        entry.wordCount = static_cast<std::uint32_t>(m_words.size()) - entry.firstWord;
        m_foods.push_back(entry);
    }
}

std::vector<WordMatch> FoodWordIndex::find(const std::vector<std::string>& words, bool lastIsPrefix,
                                           std::int32_t group, bool anyGroup) const
{
    std::vector<WordMatch> matches;
    if (words.empty())
        return matches;

    // How each vocabulary word answers each typed word, worked out once per search.
    std::vector<std::vector<std::uint8_t>> quality(words.size());
    for (std::size_t q = 0; q < words.size(); ++q) {
        const std::vector<std::string> forms = wordForms(words[q]);
        const bool prefix = lastIsPrefix && q + 1 == words.size();
        std::vector<std::uint8_t>& row = quality[q];
        row.assign(m_vocabulary.size(), NoMatch);
        for (std::size_t v = 0; v < m_vocabulary.size(); ++v) {
            if (anyCommon(forms, m_forms[v]))
                row[v] = WholeMatch;
            else if (prefix && m_vocabulary[v].starts_with(words[q]))
                row[v] = PrefixMatch;
        }
    }

    for (std::size_t i = 0; i < m_foods.size(); ++i) {
        const Food& f = m_foods[i];
        if (!anyGroup && f.group != group)
            continue;
        WordMatch match{i, 0, 0};
        bool all = true;
        for (std::size_t q = 0; q < words.size() && all; ++q) {
            int whole = -1;
            int prefix = -1;
            for (std::uint32_t k = 0; k < f.wordCount && whole < 0; ++k) {
                const std::uint8_t m = quality[q][m_words[f.firstWord + k]];
                if (m == WholeMatch)
                    whole = static_cast<int>(k);
                else if (m == PrefixMatch && prefix < 0)
                    prefix = static_cast<int>(k);
            }
            if (whole >= 0) {
                match.positionSum += whole;
            } else if (prefix >= 0) {
                match.positionSum += prefix;
                ++match.prefixMatches;
            } else {
                all = false;
            }
        }
        if (all)
            matches.push_back(match);
    }
    return matches;
}

} // namespace velmora::food
