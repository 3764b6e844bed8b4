#include "model/DefinitionRecords.h"

namespace velmora::model {

void readIdList(ArchiveReader& in, std::vector<std::int32_t>& ids)
{
    const std::size_t n = in.count(4);
    ids.clear();
    ids.reserve(n);
    for (std::size_t i = 0; i < n; ++i)
        ids.push_back(in.i32());
}

void writeIdList(ArchiveWriter& out, const std::vector<std::int32_t>& ids)
{
    out.count(ids.size());
    for (std::int32_t id : ids)
        out.i32(id);
}

void readDefinition(ArchiveReader& in, ExerciseField& f)
{
    f.id = in.i32();
    f.name = in.text();
    f.kind = in.i32();
}

void readDefinition(ArchiveReader& in, Exercise& e)
{
    e.id = in.i32();
    e.name = in.text();
    readIdList(in, e.fields);
}

void readDefinition(ArchiveReader& in, Routine& r)
{
    r.id = in.i32();
    r.calories = in.i32();
    r.name = in.text();
    readIdList(in, r.exercises);
}

void readDefinition(ArchiveReader& in, UserVariable& v)
{
    v.id = in.i32();
    v.name = in.text();
    v.number = in.f32();
    v.text = in.text();
    v.time = in.time();
    v.askNumber = in.i32();
    v.askText = in.i32();
    v.askTime = in.i32();
}

void writeDefinition(ArchiveWriter& out, const ExerciseField& f)
{
    out.i32(f.id);
    out.text(f.name);
    out.i32(f.kind);
}

void writeDefinition(ArchiveWriter& out, const Exercise& e)
{
    out.i32(e.id);
    out.text(e.name);
    writeIdList(out, e.fields);
}

void writeDefinition(ArchiveWriter& out, const Routine& r)
{
    out.i32(r.id);
    out.i32(r.calories);
    out.text(r.name);
    writeIdList(out, r.exercises);
}

void writeDefinition(ArchiveWriter& out, const UserVariable& v)
{
    out.i32(v.id);
    out.text(v.name);
    out.f32(v.number);
    out.text(v.text);
    out.time(v.time);
    out.i32(v.askNumber);
    out.i32(v.askText);
    out.i32(v.askTime);
}

} // namespace velmora::model
