#include <vexa/vexa.h>

#include <gtest/gtest.h>

namespace {

using namespace vexa::Enum;

TEST(ValueOwnData, ATextIsParsedIntoTheTypeThatReplacesIt)
{
    for (const char* text : {"42", "42                                    long enough for the heap"}) {
        vexa::CValue value(text);
        value.ReadFromMemBlock(DT_LONG, value.As_const_char_ptr(), 2);
        EXPECT_EQ(DT_LONG, value.Type());
        EXPECT_EQ(42, value.As_long());
    }
}

TEST(ValueOwnData, PartOfAByteBufferBecomesAText)
{
    vexa::CValue value(vexa::CBinary("abcdef", 6));
    value.ReadFromMemBlock(DT_STD_STRING, value.As_CBinary_ref().data() + 2, 3);
    EXPECT_EQ("cde", value.As_std_string());
}

TEST(ValueOwnData, AValueIsAssignedPartOfItself)
{
    vexa::CValue value(vexa::CNumeric(std::string("12.5")));
    value = value.As_CNumeric_ref();
    EXPECT_EQ("12.5", value.As_std_string());
    vexa::CValue text("some text that is long enough for the heap, and more");
    text = text.As_const_char_ptr() + 5;
    EXPECT_EQ("text that is long enough for the heap, and more", text.As_std_string());
}

} // namespace
