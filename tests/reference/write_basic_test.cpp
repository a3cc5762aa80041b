// Writing one basic value: what the matrix of conversions does not show.

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/conversion_reading.h"
#include "support/conversion_writing.h"

namespace {

using namespace vexa_test;

/// A writable reference to a directly held value.
template<class T>
WritableRef RefTo(T& value)
{
    return WritableRef(vexa::CGnlTypeInfor(BasicType<T>::Code), &value);
}

TEST(WriteBasicTest, ACharIsAnUnsignedByte)
{
    int target = 0;
    RefTo(target).ReadFrom(C(200));
    EXPECT_EQ(target, 200);
}

TEST(WriteBasicTest, AFloatingNumberIsCutTowardZero)
{
    int target = 0;
    RefTo(target).ReadFrom(3.99);
    EXPECT_EQ(target, 3);
    RefTo(target).ReadFrom(-3.99);
    EXPECT_EQ(target, -3);
}

TEST(WriteBasicTest, ANarrowTargetTakesTheLowBits)
{
    unsigned char target = 0;
    RefTo(target).ReadFrom(300);
    EXPECT_EQ(target, 44);
}

TEST(WriteBasicTest, AnyFloatingNumberButZeroIsTrue)
{
    bool target = true;
    RefTo(target).ReadFrom(0.0);
    EXPECT_FALSE(target);
    RefTo(target).ReadFrom(0.5);
    EXPECT_TRUE(target);
}

TEST(WriteBasicTest, NotANumberIsTrueAndStoresTheLowestInt)
{
    bool truth = false;
    int number = 0;
    float floating = 0;
    RefTo(truth).ReadFrom(std::numeric_limits<double>::quiet_NaN());
    RefTo(number).ReadFrom(std::numeric_limits<double>::quiet_NaN());
    RefTo(floating).ReadFrom(std::numeric_limits<long double>::quiet_NaN());
    EXPECT_TRUE(truth);
    EXPECT_EQ(number, INT_MIN);
    EXPECT_TRUE(std::isnan(floating));
}

TEST(WriteBasicTest, AStringTakesNoNumberYetItIsNotNullThen)
{
    Held<std::string> target(HoldingForm::MayNull, "before", true);
    EXPECT_EQ(LoggedLines([&] { target.Ref().ReadFrom(5); }),
              "int type CStdBasicTypeRefrence can not be converted to MayNull<std::string>\n");
    EXPECT_FALSE(target.IsNull());
    EXPECT_EQ(target.Value(), "before");
}

TEST(WriteBasicTest, AnIntTakesNoTextAndIsNullThen)
{
    Held<int> target(HoldingForm::MayNull, 5, false);
    EXPECT_EQ(LoggedLines([&] { target.Ref().ReadFrom(std::string("12")); }),
              "std::string type can not be converted to MayNull<int>\n");
    EXPECT_TRUE(target.IsNull());
    int plain = 5;
    EXPECT_EQ(LoggedLines([&] { RefTo(plain).ReadFrom("12"); }), "const char* type can not be converted to int\n");
    EXPECT_EQ(plain, 5);
}

TEST(WriteBasicTest, CallsChain)
{
    int target = 0;
    RefTo(target).ReadFrom(5).ReadFrom(2.5).ReadFrom(C(7));
    EXPECT_EQ(target, 7);
}

TEST(WriteBasicTest, AStringKeepsZeroBytesAndACharPointerEndsAtTheFirst)
{
    const std::string bytes("a\0b", 3);
    std::string text;
    vexa::CBinary binary;
    RefTo(text).ReadFrom(bytes);
    RefTo(binary).ReadFrom(bytes);
    EXPECT_EQ(text, bytes);
    EXPECT_EQ(binary, vexa::CBinary(bytes));
    RefTo(text).ReadFrom(bytes.c_str());
    RefTo(binary).ReadFrom(bytes.c_str());
    EXPECT_EQ(text, "a");
    EXPECT_EQ(binary, vexa::CBinary(std::string("a")));
}

TEST(WriteBasicTest, AStringTakesItsOwnCharacters)
{
    std::string text = "a text that is too long to be kept inside the string object";
    RefTo(text).ReadFrom(text.c_str() + 7);
    EXPECT_EQ(text, "that is too long to be kept inside the string object");
}

/// What a write of null leaves of a type's Untouched() in each form: null wherever there is a null state, without a
/// message.
void ExpectMakesNull(const Write& write)
{
    for (const AnyBasicType& type : BasicTypes()) {
        for (HoldingForm form : ALL_FORMS) {
            SCOPED_TRACE(NameIn(form, type.Name));
            const std::unique_ptr<AnyHeld> target = type.Hold(form, false);
            const std::string before = target->ShownValue();
            WritableRef ref = target->Ref();
            EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(&write(ref), &ref); }), "");
            EXPECT_EQ(target->IsNull(), form != HoldingForm::Plain && form != HoldingForm::NonNullPointer);
            EXPECT_EQ(target->ShownValue(), before);
        }
    }
}

TEST(WriteNullTest, ANullCharPointerMakesEveryTargetNullWithoutAMessage)
{
    ExpectMakesNull([](WritableRef& ref) -> WritableRef& { return ref.ReadFrom(static_cast<const char*>(nullptr)); });
}

TEST(WriteNullTest, ANullReferenceMakesEveryTargetNullWithoutAMessage)
{
    ExpectMakesNull([](WritableRef& ref) -> WritableRef& { return ref.ReadFrom(Ref()); });
}

TEST(WriteNullTest, TheNullMarkerDetachesTheReferenceAndLeavesTheValue)
{
    for (const AnyBasicType& type : BasicTypes()) {
        for (HoldingForm form : ALL_FORMS) {
            SCOPED_TRACE(NameIn(form, type.Name));
            const std::unique_ptr<AnyHeld> target = type.Hold(form, false);
            const std::string before = target->ShownValue();
            WritableRef ref = target->Ref();
            EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(&ref.ReadFrom(vexa::null), &ref); }), "");
            EXPECT_EQ(ref.Address, nullptr);
            EXPECT_TRUE(ref.IsNull());
            EXPECT_EQ(ref.TypeInfor.DataType, type.Code);
            EXPECT_FALSE(target->IsNull());
            EXPECT_EQ(target->ShownValue(), before);
        }
    }
}

TEST(WriteNullTest, ADetachedReferenceTakesNothingAndSaysSo)
{
    int value = 5;
    WritableRef ref = RefTo(value);
    ref.ReadFrom(vexa::null);
    EXPECT_EQ(LoggedLines([&] { ref.ReadFrom(6); }), "int type CStdBasicTypeRefrence can not be converted to int\n");
    EXPECT_EQ(LoggedLines([&] { ref.ReadFrom("6"); }), "const char* type can not be converted to int\n");
    EXPECT_EQ(LoggedLines([&] { ref.ReadFrom(vexa::CNumeric(6)); }),
              "vexa::CNumeric type can not be converted to int\n");
    EXPECT_EQ(LoggedLines([&] { ref.ReadFromMemBlock("6", 1); }),
              "long type CStdBasicTypeRefrence can not be converted to int\n");
    EXPECT_EQ(ref.Address, nullptr);
    EXPECT_EQ(value, 5);
}

TEST(CopyReferenceTest, TheSameAddressIsLeftAloneWhateverTheTypes)
{
    double value = 2.5;
    const Ref source(vexa::CGnlTypeInfor(14), &value);
    EXPECT_EQ(LoggedLines([&] { RefTo(value).ReadFrom(source); }), "");
    EXPECT_EQ(value, 2.5);

    Held<int> null(HoldingForm::MayNull, 5, true);
    const Ref itself = null.Ref();
    null.Ref().ReadFrom(itself);
    EXPECT_TRUE(null.IsNull());
    EXPECT_EQ(null.Value(), 5);
}

TEST(CopyReferenceTest, TheCodeThatIsAlwaysNullMakesTheTargetNull)
{
    const unsigned char memory[1] = {1};
    Held<int> target(HoldingForm::MayNull, 5, false);
    EXPECT_EQ(LoggedLines([&] { target.Ref().ReadFrom(Ref(vexa::CGnlTypeInfor(2), memory)); }), "");
    EXPECT_TRUE(target.IsNull());
}

TEST(CopyReferenceTest, ACopiedIntIsNoTextAndTheMessageNamesIt)
{
    const int source = 5;
    std::string target = "before";
    EXPECT_EQ(LoggedLines([&] { RefTo(target).ReadFrom(Ref(vexa::CGnlTypeInfor(14), &source)); }),
              "int type CStdBasicTypeRefrence can not be converted to std::string\n");
    EXPECT_EQ(target, "before");
}

TEST(WriteReadOnlyTest, AValueThatIsReadOnlyWithoutAPointerIsNotWritten)
{
    for (const AnyBasicType& type : BasicTypes()) {
        SCOPED_TRACE(type.Name);
        const std::unique_ptr<AnyHeld> held = type.Hold(HoldingForm::MayNull, true);
        const std::string before = held->ShownValue();
        WritableRef ref = held->Ref();
        ref.TypeInfor.HoldingFlags |= 0x20U;
        const std::string name = held->TypeName() + "\n";
        EXPECT_EQ(LoggedLines([&] { ref.ReadFrom(1L); }),
                  "long type CStdBasicTypeRefrence can not be converted to " + name);
        EXPECT_EQ(LoggedLines([&] { ref.ReadFrom("1"); }), "const char* type can not be converted to " + name);
        EXPECT_EQ(LoggedLines([&] { ref.ReadFrom(vexa::CBinary()); }),
                  "vexa::CBinary type can not be converted to " + name);
        EXPECT_TRUE(held->IsNull());
        EXPECT_EQ(held->ShownValue(), before);
    }
}

} // namespace
