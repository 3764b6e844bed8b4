#include "support/Fixtures.h"

#include "support/Bytes.h"

namespace velmora::test {

namespace {

void userRecord(Bytes& b, std::int32_t version)
{
    b.i32(version);
    // Group 2: gender 1, activity 2, weight 61.5, life stage 3, age 29.5, change weight 1.
    b.u8(1).u8(2).f32(61.5f).u8(3).f32(29.5f).u8(1);
    // Group 3: height 170, plan 70 -> 65, 2020-01-01 .. 2020-03-01, daily change -500.
    b.i32(170).f32(70.0f).f32(65.0f).u32(1577836800u).u32(1583020800u).f32(-500.0f);
    // Group 4: body goals 1 .. 10.
    for (int i = 1; i <= 10; ++i)
        b.f32(static_cast<float>(i));
    // Group 5: goal nutrients 208, 203.
    b.i32(2).i32(208).i32(203);
    // Group 6: eleven settings 11 .. 21.
    for (int i = 11; i <= 21; ++i)
        b.i32(i);
    // Group 7: goal values 2000, 50.
    b.i32(2).f32(2000.0f).f32(50.0f);
    // Group 8: columns 208, 203, then -1; widths 100 .. 110.
    b.i32(208).i32(203).repeatI32(8, -1);
    for (int i = 0; i < 11; ++i)
        b.i32(100 + i);
    // Group 9: details 208, then -1 x 20.
    b.i32(208).repeatI32(20, -1);
    // Group 10: fitness columns 1, 2, 5, then -1; widths 200 .. 210.
    b.i32(1).i32(2).i32(5).repeatI32(7, -1);
    for (int i = 0; i < 11; ++i)
        b.i32(200 + i);
    // Group 11: recent foods 1001, 70000, then -1.
    b.i32(1001).i32(70000).repeatI32(98, -1);
    // Group 12: trailing 7, only above version 129.
    if (version > 129)
        b.i32(7);
}

} // namespace

std::vector<std::uint8_t> handMadeUserRecord()
{
    Bytes b;
    userRecord(b, 131);
    return b.bytes();
}

std::vector<std::uint8_t> handMadeUserRecordV129()
{
    Bytes b;
    userRecord(b, 129);
    return b.bytes();
}

std::vector<std::uint8_t> handMadeShared()
{
    Bytes b;
    b.i32(131).text("Velmora").text("User Database");
    b.i32(70001).i32(2).i32(3).i32(2).i32(2).i32(0); // counters
    b.u8(1).u8(2).text("Anna").text("Bert");         // current user 1 of two
    // Custom food 70000 "Oatmeal bowl", group 0, serving 250 g, values 1.0, 2.0, 0 ...
    b.i32(1)
        .i32(70000)
        .i32(0)
        .text("Oatmeal bowl")
        .f32(250.0f)
        .f32(1.0f)
        .f32(2.0f)
        .repeatF32(76, 0.0f);
    // Fields 1 "Reps" (Number), 2 "Time" (Time).
    b.i32(2).i32(1).text("Reps").i32(0).i32(2).text("Time").i32(2);
    // Exercise 1 "Squat" with fields 1, 2.
    b.i32(1).i32(1).text("Squat").i32(2).i32(1).i32(2);
    // Routine 1, 300 kcal, "Legs", exercises 1.
    b.i32(1).i32(1).i32(300).text("Legs").i32(1).i32(1);
    // Variable 1 "Vitamin C", number 500, text "mg", time 2020-01-01, flags 1, 0, 1.
    b.i32(1).i32(1).text("Vitamin C").f32(500.0f).text("mg").u32(1577836800u).i32(1).i32(0).i32(1);
    return b.bytes();
}

std::vector<std::uint8_t> handMadeUserFile()
{
    Bytes b;
    userRecord(b, 131);
    b.i32(2);
    // Day 1: 2020-01-02.
    b.u32(1577923200u);
    // Health: wake 06:30, height 170, weight 70, 120/80, sleep 7.5, pulse 60, fat 18, BMI 24.2,
    // temperature 36.6 (stored first), VO2 max 45, mood 3, measurements 1..14, one variable use.
    b.u32(1577946600u)
        .f32(170.0f)
        .f32(70.0f)
        .f32(120.0f)
        .f32(80.0f)
        .f32(7.5f)
        .f32(60.0f)
        .f32(18.0f)
        .f32(24.2f);
    b.f32(36.6f).f32(45.0f).u8(3);
    for (int i = 1; i <= 14; ++i)
        b.f32(static_cast<float>(i));
    b.i32(1).i32(1).text("taken").f32(500.0f).u32(1577952000u); // variable, text, number, time
    // One meal: breakfast (0) at 08:00 with 1001 x 1.5 and 70000 x 1.
    b.i32(1).u32(1577952000u).u8(0).i32(2).i32(1001).f32(1.5f).i32(70000).f32(1.0f);
    // One workout: routine 1, 300 kcal, 18:00, notes "easy", one record of exercise 1, set 0,
    // with Reps "10" and Time "0:30".
    b.i32(1).i32(1).i32(300).u32(1577988000u).text("easy");
    b.i32(1).i32(1).i32(0).u32(1577988060u).i32(2).i32(1).text("10").i32(2).text("0:30");
    b.text("personal").text("").text("diet").text("");
    // Day 2: 2020-01-03, nothing in it: all parts still present.
    b.u32(1578009600u)
        .u32(0)
        .repeatF32(8, 0.0f)
        .f32(0.0f)
        .f32(0.0f)
        .u8(2)
        .repeatF32(14, 0.0f)
        .i32(0);
    b.i32(0).i32(0).text("").text("").text("").text("");
    return b.bytes();
}

std::vector<std::uint8_t> handMadeFoods()
{
    Bytes b;
    b.i32(2);
    // Food 1001 "Egg, whole, raw", group 100: protein 12.6, fat 9.5, energy 143; measures.
    b.i32(1001)
        .i32(100)
        .text("Egg, whole, raw")
        .f32(12.6f)
        .f32(9.5f)
        .f32(143.0f)
        .repeatF32(75, 0.0f);
    b.i32(2).f32(50.0f).text("large").f32(243.0f).text("cup");
    // Food 1002 "Water", group 1400, no measures.
    b.i32(1002).i32(1400).text("Water").repeatF32(78, 0.0f).i32(0);
    b.i32(3).i32(203).text("g").text("Protein").i32(204).text("g").text("Total lipid (fat)");
    b.i32(208).text("kcal").text("Energy");
    b.i32(1).i32(100).text("Dairy and Egg Products");
    b.i32(1).i32(203);
    for (int g = 0; g < 22; ++g)
        b.f32(static_cast<float>(10 + g)).f32(0.0f);
    return b.bytes();
}

} // namespace velmora::test
