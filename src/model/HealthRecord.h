#pragma once

#include <cstddef>

#include "model/Archive.h"
#include "model/Journal.h"

namespace velmora::model {

// The health entry record, stored alike by the user database and both handhelds' day records:
// wake time, eight values, temperature, VO2 max, mood, the fourteen measurements, then the
// variable uses. Only the kind of time differs between the files (readTime and writeTime), and
// older handheld files lack the measurements, which then read as 0.

inline constexpr std::size_t MinVariableUseSize = 4 + 1 + 4 + 4;

template <class ReadTime>
void readHealthRecord(ArchiveReader& in, HealthEntry& h, bool withMeasurements, ReadTime readTime)
{
    h.wakeTime = readTime(in);
    for (float* v : {&h.height, &h.weight, &h.systolic, &h.diastolic, &h.sleep, &h.pulse,
                     &h.bodyFat, &h.bmi, &h.temperature, &h.vo2Max})
        *v = in.f32();
    h.mood = in.i8();
    h.measurements.fill(0.0f);
    if (withMeasurements)
        for (float& m : h.measurements)
            m = in.f32();
    h.variables.resize(in.count(MinVariableUseSize));
    for (VariableUse& u : h.variables) {
        u.variable = in.i32();
        u.text = in.text();
        u.number = in.f32();
        u.time = readTime(in);
    }
}

template <class WriteTime>
void writeHealthRecord(ArchiveWriter& out, const HealthEntry& h, WriteTime writeTime)
{
    writeTime(out, h.wakeTime);
    for (float v : {h.height, h.weight, h.systolic, h.diastolic, h.sleep, h.pulse, h.bodyFat, h.bmi,
                    h.temperature, h.vo2Max})
        out.f32(v);
    out.i8(h.mood);
    for (float m : h.measurements)
        out.f32(m);
    out.count(h.variables.size());
    for (const VariableUse& u : h.variables) {
        out.i32(u.variable);
        out.text(u.text);
        out.f32(u.number);
        writeTime(out, u.time);
    }
}

} // namespace velmora::model
