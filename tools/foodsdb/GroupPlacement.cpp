#include "GroupPlacement.h"

#include <map>
#include <unordered_map>

#include "UsdaGroups.h"

namespace velmora::foodsdb {

namespace {

struct NameException
{
    std::string_view start;
    int group;
};

// Foods whose name the learned rules place wrongly or not at all, each checked by hand against
// the USDA group of the food. Matched against the start of the name, exactly.
constexpr NameException Exceptions[] = {
    // Most foods named "USDA Commodity, ..." are poultry; these are beef.
    {"USDA Commodity, beef", 1300},
    // Soups, sauces and gravies: the one dip among the soups.
    {"Dip, cheese with chili peppers", 600},
    // The company's juices and peppers are vegetable products, unlike its soups.
    {"CAMPBELL Soup Company, Tomato juice", 1100},
    {"CAMPBELL Soup Company, Organic Tomato juice", 1100},
    {"CAMPBELL Soup Company, HEALTHY REQUEST Tomato juice", 1100},
    {"CAMPBELL Soup Company, V8", 1100},
    {"CAMPBELL Soup Company, PACE, Jalapenos", 1100},
    {"CAMPBELL Soup Company, PACE, Diced Green Chilies", 1100},
    {"Campbell's V8", 1100},
    // Snacks numbered among the sweets belong to the snacks.
    {"Snacks, ", 2500},
    {"Granola bar", 2500},
    {"Breakfast bar", 2500},
    {"Rice cake, cracker", 2500},
    // Dairy products and their substitutes.
    {"Imitation cheese", 100},
    {"Whipped topping", 100},
    {"Whipped cream substitute", 100},
    {"Eggs, scrambled, frozen mixture", 100},
    // Fats and oils.
    {"Creamy dressing", 400},
    {"Mayonnaise", 400},
    {"Butter replacement", 400},
    // Sausages and luncheon meats.
    {"Turkey bacon", 700},
    {"Turkey and pork sausage", 700},
    {"Pork sausage", 700},
    // Fruit juices and beverages.
    {"Orange-strawberry-banana juice", 900},
    {"Cranberry juice", 900},
    {"Apple cider-flavored drink", 1400},
    {"Fruit-flavored drink mix", 1400},
    {"Fluid replacement", 1400},
    {"Corn beverage", 1400},
    {"Bean beverage", 1400},
    {"Cocktail mix, non-alcoholic", 1400},
    {"Ensure plus", 1400},
    // Meat substitutes are legume products.
    {"Chicken, meatless", 1600},
    {"Fish sticks, meatless", 1600},
    {"Frankfurter, meatless", 1600},
    {"Luncheon slices, meatless", 1600},
    {"Meatballs, meatless", 1600},
    {"Sandwich spread, meatless", 1600},
    {"Bacon bits, meatless", 1600},
    {"Soyburger", 1600},
    {"Vegetarian ", 1600},
    {"Soybean, curd cheese", 1600},
    {"Vermicelli, made from soy", 1600},
    {"Baked beans", 1600},
    {"Papad", 1600},
    // Vegetables, grains, cereals, sweets.
    {"Palm hearts", 1100},
    {"Vital wheat gluten", 2000},
    {"AMARANTH FLAKES", 800},
    {"Milk dessert, frozen", 1900},
    {"Polydextrose", 1900},
    // Animals of the water with no other food of their kind in the data.
    {"Frog legs", 1500},
    {"Turtle, ", 1500},
    {"Jellyfish", 1500},
    {"Dove, cooked", 500},
};

char upperAscii(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool isAsciiLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string_view trimmed(std::string_view s)
{
    while (!s.empty() && s.front() == ' ')
        s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ')
        s.remove_suffix(1);
    return s;
}

// Foods per group for each learned start.
using GroupCounts = std::map<int, int>;

// The group most foods of a start belong to; the lower code on a tie.
int majority(const GroupCounts& counts)
{
    int best = OtherGroupNumber;
    int most = 0;
    for (const auto& [group, count] : counts)
        if (count > most) {
            best = group;
            most = count;
        }
    return best;
}

} // namespace

std::string leadingParts(std::string_view name, int parts)
{
    std::string key;
    for (int p = 0; p < parts; ++p) {
        if (p > 0) {
            const std::size_t comma = name.find(',');
            if (comma == std::string_view::npos)
                return {};
            name.remove_prefix(comma + 1);
            key += ", ";
        }
        for (char c : trimmed(name.substr(0, name.find(','))))
            key += upperAscii(c);
    }
    return key;
}

std::string leadingWord(std::string_view name)
{
    std::string word;
    for (char c : name) {
        if (!isAsciiLetter(c))
            break;
        word += upperAscii(c);
    }
    return word;
}

int exceptionGroup(std::string_view name)
{
    int group = OtherGroupNumber;
    std::size_t longest = 0;
    for (const NameException& e : Exceptions)
        if (e.start.size() > longest && name.starts_with(e.start)) {
            group = e.group;
            longest = e.start.size();
        }
    return group;
}

PlacementCounts placeByName(std::vector<SourceFood>& foods)
{
    constexpr int MaxParts = 3;
    std::unordered_map<std::string, GroupCounts> byParts[MaxParts];
    std::unordered_map<std::string, GroupCounts> byWord;
    for (const SourceFood& f : foods) {
        if (f.group == OtherGroupNumber || f.group == NoGroup)
            continue;
        for (int p = 1; p <= MaxParts; ++p)
            if (std::string key = leadingParts(f.name, p); !key.empty())
                ++byParts[p - 1][key][f.group];
        if (std::string word = leadingWord(f.name); !word.empty())
            ++byWord[word][f.group];
    }

    PlacementCounts counts;
    for (SourceFood& f : foods) {
        if (f.group != OtherGroupNumber)
            continue;
        if (const int g = exceptionGroup(f.name); g != OtherGroupNumber) {
            f.group = g;
            ++counts.byException;
            continue;
        }
        bool placed = false;
        for (int p = MaxParts; p >= 1 && !placed; --p) {
            const std::string key = leadingParts(f.name, p);
            if (key.empty())
                continue;
            if (const auto it = byParts[p - 1].find(key); it != byParts[p - 1].end()) {
                f.group = majority(it->second);
                ++counts.byLeadingParts;
                placed = true;
            }
        }
        if (placed)
            continue;
        if (const auto it = byWord.find(leadingWord(f.name)); it != byWord.end()) {
            f.group = majority(it->second);
            ++counts.byLeadingWord;
            continue;
        }
        ++counts.left;
    }
    return counts;
}

} // namespace velmora::foodsdb
