// A bool in memory that nobody has initialised: any byte but 0 is true, in every reading and in both passes of JSON.

#include <vexa/vexa.h>

#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace truth {

struct Held {
    std::string text = std::string(300, 'x');
    bool direct = false;
    vexa::MayNull<bool> maybe{false};
    bool* pointer = nullptr;
    bool slots[3] = {};
    Held() = default;
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() { ::operator delete(pointer); }
};
VEXA_DESCRIBE(Held, text, direct, maybe, pointer, slots)

} // namespace truth

namespace {

void SetByte(void* address, unsigned char byte) { std::memcpy(address, &byte, 1); }

TEST(TruthOfAnyByte, IsTheSameInEveryReading)
{
    for (const unsigned char byte : {0, 1, 2, 7, 127, 128, 200, 255}) {
        bool flag = false;
        SetByte(&flag, byte);
        const vexa::CStdBasicTypeConstRefrence ref(vexa::CGnlTypeInfor(vexa::Enum::DT_BOOL), &flag);
        const bool isTrue = byte != 0;
        EXPECT_EQ(isTrue ? 1 : 0, static_cast<int>(ref.As_bool()));
        EXPECT_EQ(isTrue ? 1 : 0, ref.As_int());
        EXPECT_EQ(isTrue ? 1.0 : 0.0, ref.As_double());
        EXPECT_EQ(isTrue ? "true" : "false", ref.As_std_string());
        EXPECT_EQ(isTrue ? "1" : "0", ref.As_CNumeric().AsString());
        int target = 7;
        vexa::CStdBasicTypeRefrence(vexa::CGnlTypeInfor(vexa::Enum::DT_INT), &target).ReadFrom(ref);
        EXPECT_EQ(isTrue ? 1 : 0, target);
    }
}

TEST(TruthOfAnyByte, IsMeasuredAndWrittenAlike)
{
    for (const unsigned char byte : {0, 1, 2, 5, 127, 200, 255}) {
        truth::Held held;
        void* made = vexa::TypeInforOf<bool>().New();
        held.pointer = static_cast<bool*>(made);
        for (void* address : {static_cast<void*>(&held.direct), static_cast<void*>(&*held.maybe), made,
                              static_cast<void*>(&held.slots[1])}) {
            SetByte(address, byte);
        }
        const std::string word = byte != 0 ? "true" : "false";
        std::string json;
        EXPECT_EQ(0, vexa::ToJson(json, held));
        EXPECT_EQ(R"({"text":")" + held.text + R"(","direct":)" + word + R"(,"maybe":)" + word + R"(,"pointer":)" +
                      word + R"(,"slots":[false,)" + word + ",false]}",
                  json);
        EXPECT_EQ("\ntext: " + held.text + "\ndirect: " + word + "\nmaybe: " + word + "\npointer: " + word +
                      "\nslots: \n  - false\n  - " + word + "\n  - false",
                  vexa::AsString(held));
    }
}

} // namespace
