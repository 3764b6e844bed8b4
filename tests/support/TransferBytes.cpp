#include "support/TransferBytes.h"

namespace velmora::test {

// Food 50001 "Oats": each stored value is 100 + its value index, in the file's order
// 0 1 3 4 5 6 7 9 8 2 13 14 15 16 17 18 21 22 19 20 27 28 31 32 29 30, then the floats of
// 23 24 25 26; one measure of 15 ("cup").
std::vector<std::uint8_t> handTandryFood()
{
    Bytes b;
    b.u32(50001).text("Oats");
    for (int i : {100, 101, 103, 104, 105, 106, 107, 109, 108, 102, 113, 114, 115,
                  116, 117, 118, 121, 122, 119, 120, 127, 128, 131, 132, 129, 130})
        b.u16(static_cast<std::uint16_t>(i));
    b.f32(123.0f).f32(124.0f).f32(125.0f).f32(126.0f);
    b.u32(1).u16(15).text("cup");
    return b;
}

// Every setting holds the number of its place in the record (fields 2 .. 32), goal k holds
// 1000 + k, the dates are 2010-01-01 and one day before 1970, the list holds 301, 302 (or
// listLength values 300 + i), the last setting 33333 when the version has it.
std::vector<std::uint8_t> handTandryProfile(std::uint32_t version, std::uint32_t listLength)
{
    Bytes b;
    b.u32(version).u8(2).u8(3).u32(4).u8(5).u8(6).u8(7).u32(8).u32(9).u32(10);
    for (std::uint8_t i = 11; i <= 17; ++i)
        b.u8(i);
    b.u32(18).u32(19).u32(20);
    b.u32(listLength).u32(22).u8(23).u8(24).u32(25);
    for (int k = 0; k < 33; ++k)
        f64(b, 1000.0 + k);
    b.u32(271).u32(272).u32(273);
    b.i32(1262304000).i32(-86400);
    b.u32(29);
    for (std::uint32_t i = 1; i <= listLength; ++i)
        b.u32(300 + i);
    b.u8(31).u8(32).u8(33);
    for (std::uint8_t i = 40; i < 48; ++i)
        b.u8(i);
    if (version >= 340)
        b.u32(33333);
    return b;
}

// Every setting holds the number of its place in the record (fields 2 .. 24).
std::vector<std::uint8_t> handKorvelProfile(std::uint32_t version)
{
    Bytes b;
    b.u32(version).u8(2).u8(3).u32(4).u8(5).u8(6).u8(7).u32(8).u32(9).u32(10);
    b.u8(11).u8(12).u8(13).u8(14).u32(15).u32(16).u32(17).u8(18).u8(19).u32(20);
    b.u8(21).u8(22).u8(23).u32(24);
    return b;
}

// Wake time 2010-01-01 07:00 UTC; height 170, weight 70.5, systolic 120, diastolic 80, sleep 7.5,
// pulse 61, body fat 18, BMI 24.4; temperature 36.6, then VO2 max 45; mood 3; measurement i =
// 30 + i; one variable use (variable 7, "mg", 500, 2010-01-01 09:00 UTC).
std::vector<std::uint8_t> handDayValues(bool withMeasurements)
{
    Bytes b;
    b.i32(1262329200);
    b.f32(170.0f).f32(70.5f).f32(120.0f).f32(80.0f).f32(7.5f).f32(61.0f).f32(18.0f).f32(24.4f);
    b.f32(36.6f).f32(45.0f).u8(3);
    if (withMeasurements)
        for (int i = 0; i < 14; ++i)
            b.f32(30.0f + static_cast<float>(i));
    b.u32(1).i32(7).text("mg").f32(500.0f).i32(1262336400);
    return b;
}

// One workout: routine 4, 250 calories, 2010-01-01 18:00 UTC, notes "easy", one record of
// exercise 9, set 0, at the same time, with the values (1, "10") and (2, "slow").
std::vector<std::uint8_t> handWorkouts()
{
    Bytes b;
    b.u32(1).i32(4).i32(250).i32(1262368800).text("easy");
    b.u32(1).i32(9).i32(0).i32(1262368800).u32(2).i32(1).text("10").i32(2).text("slow");
    return b;
}

// The profile, then one day: 2010-01-01 00:00 UTC, the day values, one breakfast at 08:00 UTC
// with foods 70001 (1.5 servings) and 1123 (0.5), the workouts, the note "good day".
std::vector<std::uint8_t> handTandryUser(std::uint32_t version)
{
    Bytes b;
    b.append(handTandryProfile(version));
    b.u32(1).i32(1262304000).append(handDayValues(version > 373));
    b.u32(1).i32(1262332800).u8(0).u32(2).i32(70001).f32(1.5f).i32(1123).f32(0.5f);
    b.append(handWorkouts()).text("good day");
    return b;
}

// The profile, then one day: 2010-01-01 00:00 UTC, the day values, the workouts, the note "legs".
std::vector<std::uint8_t> handKorvelUser(std::uint32_t version)
{
    Bytes b;
    b.append(handKorvelProfile(version));
    b.u32(1).i32(1262304000).append(handDayValues(version > 300));
    b.append(handWorkouts()).text("legs");
    return b;
}

// Fields (1 "Reps" Number, 2 "Comment" Text); exercise 5 "Squat" with fields 1, 2; routine 6
// "Legs" of 300 calories with exercise 5; variable 7 "Vitamin C" locked at 500 "mg", 2010-01-01,
// asking for the text and the time only.
std::vector<std::uint8_t> handDefinitions()
{
    Bytes b;
    b.u32(2).i32(1).text("Reps").i32(0).i32(2).text("Comment").i32(1);
    b.u32(1).i32(5).text("Squat").u32(2).i32(1).i32(2);
    b.u32(1).i32(6).i32(300).text("Legs").u32(1).i32(5);
    b.u32(1).i32(7).text("Vitamin C").f32(500.0f).text("mg").u32(1262304000).i32(0).i32(1).i32(1);
    return b;
}

// Header "TD", counters 70002, 8, 3, 6, 7, 0; current user 1; users "Ann", "Bob"; the food
// above; the definitions above.
std::vector<std::uint8_t> handTandryShared(std::uint32_t version)
{
    Bytes b;
    b.u32(version).text("TD").u32(70002).u32(8).u32(3).u32(6).u32(7).u32(0);
    b.u8(1).u8(2).text("Ann").text("Bob");
    b.u32(1).append(handTandryFood());
    b.append(handDefinitions());
    return b;
}

// Header "KV", counters 3, 6, 7, 8; current user 0; user "Ann"; the definitions above.
std::vector<std::uint8_t> handKorvelShared(std::uint32_t version)
{
    Bytes b;
    b.u32(version).text("KV").u32(3).u32(6).u32(7).u32(8).u8(0).u8(1).text("Ann");
    b.append(handDefinitions());
    return b;
}

} // namespace velmora::test
