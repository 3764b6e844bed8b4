#include "model/TandryFood.h"

#include <algorithm>
#include <cmath>

namespace velmora::model {

namespace {

constexpr int BaseAmount = 0;
constexpr int Energy = 1;
constexpr int Carbohydrate = 2;
constexpr int Protein = 3;
constexpr int Fat = 4;
constexpr int Fibre = 9;
constexpr int PercentFat = 10;
constexpr int PercentCarbohydrate = 11;
constexpr int PercentProtein = 12;
constexpr int Points = 33;

constexpr std::size_t MinMeasureSize = 2 + 1;

int wordSlot(int index)
{
    const auto* it = std::find(TandryWordOrder.begin(), TandryWordOrder.end(), index);
    return it == TandryWordOrder.end() ? -1 : static_cast<int>(it - TandryWordOrder.begin());
}

int floatSlot(int index)
{
    const auto* it = std::find(TandryFloatOrder.begin(), TandryFloatOrder.end(), index);
    return it == TandryFloatOrder.end() ? -1 : static_cast<int>(it - TandryFloatOrder.begin());
}

} // namespace

bool TandryFood::isStored(int index)
{
    return wordSlot(index) >= 0 || floatSlot(index) >= 0;
}

double TandryFood::stored(int index) const
{
    if (const int w = wordSlot(index); w >= 0)
        return words[static_cast<std::size_t>(w)];
    if (const int f = floatSlot(index); f >= 0)
        return static_cast<double>(floats[static_cast<std::size_t>(f)]);
    return 0.0;
}

void TandryFood::setStored(int index, std::uint16_t raw)
{
    if (const int w = wordSlot(index); w >= 0)
        words[static_cast<std::size_t>(w)] = raw;
    else if (const int f = floatSlot(index); f >= 0)
        floats[static_cast<std::size_t>(f)] = static_cast<float>(raw);
}

double TandryFood::value(int index) const
{
    switch (index) {
    case BaseAmount:
        return id < FirstStoredBaseAmountId ? 100.0 : stored(BaseAmount) * 0.1;
    case PercentFat:
    case PercentCarbohydrate:
    case PercentProtein: {
        // From the stored values, so the tenths cancel.
        const double energy = stored(Energy);
        const double part = index == PercentFat            ? stored(Fat) * 9.0
                            : index == PercentCarbohydrate ? stored(Carbohydrate) * 4.0
                                                           : stored(Protein) * 4.0;
        if (energy == 0.0 || part == 0.0)
            return 0.0;
        return std::min(std::trunc(part / energy * 100.0 + 0.5), 100.0);
    }
    case Points:
        return value(Energy) * 0.02 + value(Fat) * (1.0 / 12.0) - std::min(value(Fibre), 4.0) * 0.2;
    default:
        return index > 0 && index < TandryValueCount ? stored(index) * 0.1 : 0.0;
    }
}

void TandryFood::read(ArchiveReader& in)
{
    id = in.u32();
    name = in.text();
    for (std::uint16_t& w : words)
        w = in.u16();
    for (float& f : floats)
        f = in.f32();
    measures.resize(in.count(MinMeasureSize));
    for (TandryMeasure& m : measures) {
        m.amount = in.u16();
        m.text = in.text();
    }
}

void TandryFood::write(ArchiveWriter& out) const
{
    out.u32(id);
    out.text(name);
    for (std::uint16_t w : words)
        out.u16(w);
    for (float f : floats)
        out.f32(f);
    out.count(measures.size());
    for (const TandryMeasure& m : measures) {
        out.u16(m.amount);
        out.text(m.text);
    }
}

} // namespace velmora::model
