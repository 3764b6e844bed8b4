#include "SrAsciiReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <functional>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "NutrientOrder.h"
#include "model/SafeFile.h"

namespace velmora::foodsdb {

using model::FileError;
using model::FileErrorCode;
using model::Result;
using model::Status;

namespace {

std::optional<double> parseNumber(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    double v = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size() || !std::isfinite(v))
        return std::nullopt;
    return v;
}

std::optional<int> parseInteger(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    int v = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return v;
}

// One of the five files, read whole and walked line by line.
class SrFile
{
public:
    static Result<SrFile> open(const std::filesystem::path& folder, const char* name)
    {
        const std::filesystem::path path = folder / name;
        auto bytes = model::readWholeFile(path);
        if (!bytes) {
            FileError e = bytes.error();
            e.file = path.string();
            if (e.detail.empty())
                e.detail = e.code == FileErrorCode::NotFound ? "the file does not exist"
                                                             : "the file cannot be read";
            return e;
        }
        SrFile f;
        f.m_path = path.string();
        f.m_text.assign(bytes.value().begin(), bytes.value().end());
        return f;
    }

    // Calls fn(fields, lineNumber) for every line that is not empty; stops at the first error.
    Status
    forEachLine(std::size_t minFields,
                const std::function<Status(const std::vector<std::string_view>&, int)>& fn) const
    {
        std::size_t pos = 0;
        int lineNumber = 0;
        while (pos < m_text.size()) {
            std::size_t end = m_text.find('\n', pos);
            if (end == std::string::npos)
                end = m_text.size();
            std::string_view line(m_text.data() + pos, end - pos);
            pos = end + 1;
            ++lineNumber;
            if (!line.empty() && line.back() == '\r')
                line.remove_suffix(1);
            if (line.empty() || line == "\x1a") // DOS end-of-file mark on older releases
                continue;
            auto fields = splitSrLine(line);
            if (!fields)
                return error(lineNumber, fields.error().detail);
            if (fields.value().size() < minFields)
                return error(lineNumber, "the line has " + std::to_string(fields.value().size()) +
                                             " fields, at least " + std::to_string(minFields) +
                                             " expected");
            if (Status s = fn(fields.value(), lineNumber); !s)
                return s;
        }
        return Status::success();
    }

    FileError error(int lineNumber, std::string detail) const
    {
        return FileError{FileErrorCode::BadValue, m_path, 0,
                         "line " + std::to_string(lineNumber) + ": " + std::move(detail)};
    }

private:
    std::string m_path;
    std::string m_text;
};

} // namespace

Result<std::vector<std::string_view>> splitSrLine(std::string_view line)
{
    std::vector<std::string_view> fields;
    std::size_t pos = 0;
    while (true) {
        if (pos < line.size() && line[pos] == '~') {
            const std::size_t close = line.find('~', pos + 1);
            if (close == std::string_view::npos)
                return FileError{
                    FileErrorCode::BadValue, {}, 0, "a text field's '~' is never closed"};
            fields.push_back(line.substr(pos + 1, close - pos - 1));
            pos = close + 1;
            if (pos < line.size() && line[pos] != '^')
                return FileError{FileErrorCode::BadValue, {}, 0, "text follows a closing '~'"};
        } else {
            const std::size_t sep = line.find('^', pos);
            const std::size_t end = sep == std::string_view::npos ? line.size() : sep;
            fields.push_back(line.substr(pos, end - pos));
            pos = end;
        }
        if (pos >= line.size())
            break;
        ++pos; // past the '^'
    }
    return fields;
}

Result<SourceData> readSrAscii(const std::filesystem::path& folder)
{
    // Open all five first, so that a missing one is reported before any parsing.
    const char* names[] = {"FOOD_DES.txt", "FD_GROUP.txt", "NUTR_DEF.txt", "NUT_DATA.txt",
                           "WEIGHT.txt"};
    std::vector<SrFile> files;
    for (const char* name : names) {
        auto f = SrFile::open(folder, name);
        if (!f)
            return f.error();
        files.push_back(f.take());
    }
    const SrFile& foodDes = files[0];
    const SrFile& fdGroup = files[1];
    const SrFile& nutrDef = files[2];
    const SrFile& nutData = files[3];
    const SrFile& weight = files[4];

    SourceData data;
    std::unordered_map<int, std::size_t> foodIndex;

    Status s = fdGroup.forEachLine(2, [&](const auto& f, int line) -> Status {
        const auto code = parseInteger(f[0]);
        if (!code || *code < 0)
            return fdGroup.error(line,
                                 "the group code \"" + std::string(f[0]) + "\" is not a number");
        data.groupNames[*code] = std::string(f[1]);
        return Status::success();
    });
    if (!s)
        return s.error();

    s = foodDes.forEachLine(3, [&](const auto& f, int line) -> Status {
        const auto number = parseInteger(f[0]);
        if (!number || *number < 1 || *number > 99999)
            return foodDes.error(line, "the food number \"" + std::string(f[0]) + "\" is not one");
        SourceFood food;
        food.number = *number;
        if (!f[1].empty()) {
            const auto group = parseInteger(f[1]);
            if (!group || *group < 0)
                return foodDes.error(line, "the group code \"" + std::string(f[1]) +
                                               "\" is not a number");
            food.group = *group;
        }
        food.name = std::string(f[2]);
        if (!foodIndex.emplace(food.number, data.foods.size()).second)
            return foodDes.error(line, "the food " + std::string(f[0]) + " is listed twice");
        data.foods.push_back(std::move(food));
        return Status::success();
    });
    if (!s)
        return s.error();

    std::unordered_set<NutrientId> defined;
    int lineOrder = 0;
    s = nutrDef.forEachLine(4, [&](const auto& f, int line) -> Status {
        const auto number = parseInteger(f[0]);
        if (!number || *number <= 0 || *number >= 1000)
            return nutrDef.error(line,
                                 "the nutrient number \"" + std::string(f[0]) + "\" is not one");
        if (!defined.insert(*number).second)
            return nutrDef.error(line, "the nutrient " + std::string(f[0]) + " is defined twice");
        ++lineOrder;
        int order = 100000 + lineOrder;
        if (f.size() > 5 && !f[5].empty()) {
            const auto sr = parseInteger(f[5]);
            if (!sr)
                return nutrDef.error(line, "the sort order \"" + std::string(f[5]) +
                                               "\" is not a number");
            order = *sr;
        }
        data.nutrients.push_back(
            SourceNutrient{*number, std::string(f[1]), std::string(f[3]), order});
        return Status::success();
    });
    if (!s)
        return s.error();

    std::vector<std::unordered_set<NutrientId>> seen(data.foods.size());
    s = nutData.forEachLine(3, [&](const auto& f, int line) -> Status {
        const auto number = parseInteger(f[0]);
        const auto it = number ? foodIndex.find(*number) : foodIndex.end();
        if (it == foodIndex.end())
            return nutData.error(line,
                                 "the food \"" + std::string(f[0]) + "\" is not in FOOD_DES.txt");
        const auto nutrient = parseInteger(f[1]);
        if (!nutrient || !defined.contains(*nutrient))
            return nutData.error(line, "the nutrient \"" + std::string(f[1]) +
                                           "\" is not in NUTR_DEF.txt");
        if (f[2].empty()) // no value given: the food keeps 0 for it
            return Status::success();
        const auto value = parseNumber(f[2]);
        if (!value)
            return nutData.error(line, "the value \"" + std::string(f[2]) + "\" is not a number");
        if (!seen[it->second].insert(*nutrient).second)
            return nutData.error(line, "the food " + std::string(f[0]) + " has the nutrient " +
                                           std::string(f[1]) + " twice");
        data.foods[it->second].values.emplace_back(*nutrient, *value);
        return Status::success();
    });
    if (!s)
        return s.error();

    std::vector<std::vector<std::pair<int, SourceMeasure>>> measures(data.foods.size());
    s = weight.forEachLine(5, [&](const auto& f, int line) -> Status {
        const auto number = parseInteger(f[0]);
        const auto it = number ? foodIndex.find(*number) : foodIndex.end();
        if (it == foodIndex.end())
            return weight.error(line,
                                "the food \"" + std::string(f[0]) + "\" is not in FOOD_DES.txt");
        const auto seq = parseInteger(f[1]);
        if (!seq)
            return weight.error(line, "the sequence number \"" + std::string(f[1]) +
                                          "\" is not a number");
        const auto amount = f[2].empty() ? std::optional<double>(1.0) : parseNumber(f[2]);
        if (!amount || *amount <= 0)
            return weight.error(line, "the amount \"" + std::string(f[2]) +
                                          "\" is not a positive number");
        const auto grams = parseNumber(f[4]);
        if (!grams || *grams <= 0)
            return weight.error(line, "the weight \"" + std::string(f[4]) +
                                          "\" is not a positive number");
        measures[it->second].push_back({*seq, SourceMeasure{*amount, std::string(f[3]), *grams}});
        return Status::success();
    });
    if (!s)
        return s.error();
    for (std::size_t i = 0; i < data.foods.size(); ++i) {
        auto& list = measures[i];
        std::stable_sort(list.begin(), list.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        for (auto& [seq, m] : list)
            data.foods[i].measures.push_back(std::move(m));
    }

    // The sums of the omega-3 and omega-6 fatty acids, from whichever parts a food has.
    for (const SumNutrient& sum : sumNutrients()) {
        bool any = false;
        for (SourceFood& food : data.foods) {
            double total = 0;
            bool has = false;
            for (const auto& [n, v] : food.values) {
                if (std::find(sum.parts.begin(), sum.parts.end(), n) != sum.parts.end()) {
                    total += v;
                    has = true;
                }
            }
            if (has) {
                food.values.emplace_back(sum.number, total);
                any = true;
            }
        }
        if (any)
            data.nutrients.push_back(
                SourceNutrient{sum.number, "g", std::string(sum.name), 200000});
    }
    return data;
}

} // namespace velmora::foodsdb
