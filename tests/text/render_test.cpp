#include <vexa/text.h>

#include <bitset>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/text_model.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::AsString;
using vexa::RefOf;

// Classes

TEST(Render, WritesOneLineForEachAttribute)
{
    EXPECT_EQ(AsString(Ann()), "\nname: Ann"
                               "\nage: 30"
                               "\naddress: "
                               "\n  city: Oslo"
                               "\ntags: "
                               "\n  - 1"
                               "\n  - 2"
                               "\nnext: NULL");
}

TEST(Render, WritesTypesBeforeNamesAndAHeaderInFormatOne)
{
    EXPECT_EQ(AsString(Ann(), ASF_TYPE_AND_VALUE), "Person: "
                                                   "\n  std::string name: Ann"
                                                   "\n  int age: 30"
                                                   "\n  Address address: "
                                                   "\n    std::string city: Oslo"
                                                   "\n  std::vector<int> tags: "
                                                   "\n    - 1"
                                                   "\n    - 2"
                                                   "\n  Person* next: NULL");
}

TEST(Render, WritesNothingButTheHeaderInFormatTwo)
{
    EXPECT_EQ(AsString(Ann(), ASF_TYPE_ONLY), "Person: ");
    EXPECT_EQ(AsString(5, ASF_TYPE_ONLY), "int: ");
    EXPECT_EQ(AsString(std::vector<int>{1}, ASF_TYPE_ONLY), "std::vector<int>: ");
}

TEST(Render, TakesEveryFormatAboveTwoForZero)
{
    const std::string values = AsString(Ann(), ASF_VALUE);
    for (const unsigned format : {3U, 4U, 255U, 256U, 0x80000001U, 0xFFFFFFFFU}) {
        EXPECT_EQ(AsString(Ann(), static_cast<AsStringFormatEnum>(format)), values) << format;
    }
    EXPECT_EQ(AsString(5, static_cast<AsStringFormatEnum>(3U)), "5");
}

TEST(Render, FollowsPointersToObjectsAndIndentsThem)
{
    Person ann = Ann();
    ann.tags.clear();
    ann.next = std::make_unique<Person>(Ann());
    EXPECT_EQ(AsString(ann), "\nname: Ann"
                             "\nage: 30"
                             "\naddress: "
                             "\n  city: Oslo"
                             "\ntags: "
                             "\nnext: "
                             "\n  name: Ann"
                             "\n  age: 30"
                             "\n  address: "
                             "\n    city: Oslo"
                             "\n  tags: "
                             "\n    - 1"
                             "\n    - 2"
                             "\n  next: NULL");
}

TEST(Render, OfAClassWithoutAttributesIsEmpty)
{
    EXPECT_EQ(AsString(Empty()), "");
    EXPECT_EQ(AsString(Empty(), ASF_TYPE_AND_VALUE), "Empty: ");
}

struct Vehicle {
    int wheels = 4;
};
struct Truck : Vehicle {
    double load = 1.5;
};
VEXA_DESCRIBE(Vehicle, wheels)
VEXA_DESCRIBE_CLASS(Truck)
{
    about.Base<Vehicle>();
    about.Attrib("load", &Truck::load);
}

TEST(Render, WritesTheAttributesOfBaseClassesFirst) { EXPECT_EQ(AsString(Truck()), "\nwheels: 4\nload: 1.500000"); }

struct Payment {
    short kind = 0;
    union {
        int code;
        double rate;
    };
    bool done = true;
    Payment() : code(7) {}
};
VEXA_DESCRIBE_CLASS(Payment)
{
    about.Attrib("kind", &Payment::kind);
    about.Attrib("code", &Payment::code).ActiveWhen("kind", 0);
    about.Attrib("rate", &Payment::rate).ActiveWhen("kind", 1);
    about.Attrib("done", &Payment::done);
}

TEST(Render, WritesOnlyTheActiveMemberOfAUnion)
{
    Payment payment;
    EXPECT_EQ(AsString(payment), "\nkind: 0\ncode: 7\ndone: true");
    payment.kind = 1;
    payment.rate = 0.25;
    EXPECT_EQ(AsString(payment), "\nkind: 1\nrate: 0.250000\ndone: true");
    payment.kind = 2;
    EXPECT_EQ(AsString(payment), "\nkind: 2\ndone: true");
}

struct Login {
    std::string user = "ann";
    std::string password = "secret";
    std::vector<int> codes{1, 2};
    vexa::MayNull<int> pin;
};
VEXA_DESCRIBE_CLASS(Login)
{
    about.Attrib("user", &Login::user);
    about.Attrib("password", &Login::password).Masked();
    about.Attrib("codes", &Login::codes).Masked();
    about.Attrib("pin", &Login::pin).Masked();
}

TEST(Render, HidesTheValuesOfMaskedAttributes)
{
    EXPECT_EQ(AsString(Login()), "\nuser: ann\npassword: ***\ncodes: ***\npin: ***");
    EXPECT_EQ(AsString(Login(), ASF_TYPE_AND_VALUE), "Login: "
                                                     "\n  std::string user: ann"
                                                     "\n  std::string password: ***"
                                                     "\n  std::vector<int> codes: ***"
                                                     "\n  MayNull<int> pin: ***");
    EXPECT_EQ(AsString(Login(), ASF_TYPE_ONLY), "Login: ");
}

// Entry points

TEST(Render, IntoAStringEmptiesItFirstAndKeepsItsBuffer)
{
    std::string out(200, 'x');
    const char* const buffer = out.data();
    const int five = 5;
    AsString(out, RefOf(five), ASF_VALUE);
    EXPECT_EQ(out, "5");
    EXPECT_EQ(out.data(), buffer);
}

TEST(Render, AppendsToWhatAStringHolds)
{
    std::string out = "so: ";
    vexa::AppendString(out, std::vector<int>{1});
    vexa::AppendString(out, 2.5, ASF_TYPE_AND_VALUE);
    EXPECT_EQ(out, "so: \n- 1double: 2.500000");
}

TEST(Render, IsTheSameByAllEntryPoints)
{
    const Person ann = Ann();
    for (const AsStringFormatEnum format : {ASF_VALUE, ASF_TYPE_AND_VALUE, ASF_TYPE_ONLY}) {
        const std::string text = AsString(RefOf(ann), format);
        std::string filled;
        AsString(filled, RefOf(ann), format);
        std::string appended;
        vexa::AppendString(appended, RefOf(ann), format);
        EXPECT_EQ(filled, text);
        EXPECT_EQ(appended, text);
        EXPECT_EQ(RefOf(ann).AsString(format), text);
    }
}

TEST(Render, LogsNothingForWhatItCanWrite)
{
    EXPECT_EQ(LoggedLines([] {
                  AsString(Ann(), ASF_TYPE_AND_VALUE);
                  AsString(std::vector<Person>(2));
                  AsString(std::bitset<3>(5));
              }),
              "");
}

} // namespace
