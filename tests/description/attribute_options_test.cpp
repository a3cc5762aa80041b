// What the long form says of an attribute beside its type: ID, access, masking, unions.

#include <string>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/described_text.h"

namespace attribute_options {

class Account {
public:
    int number = 1;
    int branch = 2;

protected:
    int limit = 3;

private:
    std::string password = "secret";
    std::string hint = "mother";
    VEXA_FRIEND(Account);
};

VEXA_DESCRIBE_CLASS(Account)
{
    about.Attrib("number", &Account::number).ID(1).Public();
    about.Attrib("branch", &Account::branch).ID(200);
    about.Attrib("limit", &Account::limit).Protected();
    about.Attrib("password", &Account::password).Private().Masked();
    about.Attrib("hint", &Account::hint).Masked().Private().ID(0);
}

/// The short form reaches private members too.
class Closed {
    int inner = 4;
    std::string text = "t";
    VEXA_FRIEND(Closed);
};
VEXA_DESCRIBE(Closed, inner, text)

struct Renamed {
    int m_count = 5;
};
VEXA_DESCRIBE_CLASS(Renamed) { about.Attrib("count", &Renamed::m_count); }

struct Nothing {};
VEXA_DESCRIBE_CLASS(Nothing) {}

struct Choice {
    short kind = 0;
    union {
        int code = 7;
        double rate;
    };
    int last = 9;
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind);
    about.Attrib("code", &Choice::code).ActiveWhen("kind", 0);
    about.Attrib("rate", &Choice::rate).ActiveWhen("kind", 1);
    about.Attrib("last", &Choice::last);
}

/// Described below, after what it logs has been caught.
struct Mistaken {
    short kind = 1;
    int code = 2;
    int itself = 3;
};
struct Huge {
    int first = 1;
    char room[65536] = {};
    int beyond = 2;
};
struct Edge {
    char room[65535] = {};
    char last = 'z';
};
struct TwoOfOneID {
    int first = 1;
    int second = 2;
};

const std::string g_mistakenLog = vexa_test::LoggedLines([] { vexa::ClassInforOf<Mistaken>(); });
const std::string g_hugeLog = vexa_test::LoggedLines([] { vexa::ClassInforOf<Huge>(); });
const std::string g_twoLog = vexa_test::LoggedLines([] { vexa::ClassInforOf<TwoOfOneID>(); });

VEXA_DESCRIBE_CLASS(Mistaken)
{
    about.Attrib("kind", &Mistaken::kind);
    about.Attrib("code", &Mistaken::code).ActiveWhen("sort", 4);
    about.Attrib("itself", &Mistaken::itself).ActiveWhen("itself", 4);
}
VEXA_DESCRIBE(Huge, first, beyond)
VEXA_DESCRIBE(Edge, last)
VEXA_DESCRIBE_CLASS(TwoOfOneID)
{
    about.Attrib("first", &TwoOfOneID::first).ID(5);
    about.Attrib("second", &TwoOfOneID::second).ID(5);
}

} // namespace attribute_options

namespace {

using namespace attribute_options;
using vexa_test::Json;

/// "name id access masked " for every attribute.
std::string OptionsOf(const vexa::CClassInfor& infor)
{
    std::string text;
    for (const vexa::CAttribInfor& record : infor.AttribList) {
        text += record.Name + ' ' + std::to_string(record.AttribID) + ' ' + std::to_string(unsigned{record.Access}) +
                ' ' + std::to_string(unsigned{record.IsMasked}) + '\n';
    }
    return text;
}

TEST(AttributeOptions, StandInTheRecords)
{
    EXPECT_EQ(OptionsOf(vexa::ClassInforOf<Account>()),
              "number 1 0 0\nbranch 200 0 0\nlimit -1 1 0\npassword -1 2 1\nhint 0 2 1\n");
}

TEST(AttributeOptions, AMaskedValueIsHiddenInTextButNotInJson)
{
    EXPECT_EQ(vexa::AsString(Account()), "\nnumber: 1\nbranch: 2\nlimit: 3\npassword: ***\nhint: ***");
    EXPECT_EQ(Json(Account()), R"({"number":1,"branch":2,"limit":3,"password":"secret","hint":"mother"})");
}

TEST(AttributeOptions, AnAttributeIsFoundByItsID)
{
    const Account account;
    const vexa::CConstRefrence ref = vexa::RefOf(account);
    vexa::CConstRefrence found;
    ASSERT_TRUE(ref.AsClass().FindAttribByID(found, 200));
    EXPECT_EQ(found.Address, &account.branch);
    ASSERT_TRUE(ref.AsClass().FindAttribByID(found, 0));
    EXPECT_EQ(found.AsString(), "mother");
    EXPECT_FALSE(ref.AsClass().FindAttribByID(found, 2));
    EXPECT_FALSE(ref.AsClass().FindAttribByID(found, -1));
}

TEST(AttributeOptions, AnIDGivenTwiceIsReportedAndTheLaterOneWins)
{
    EXPECT_EQ(g_twoLog, "The class TwoOfOneID's attribute second's attribID \"5\" is conflict with attribute first.\n");
    const TwoOfOneID two;
    vexa::CConstRefrence found;
    ASSERT_TRUE(vexa::RefOf(two).AsClass().FindAttribByID(found, 5));
    EXPECT_EQ(found.Address, &two.second);
}

TEST(AttributeOptions, PrivateMembersAreReachedThroughTheFriend)
{
    const Closed closed;
    EXPECT_EQ(vexa::AsString(closed), "\ninner: 4\ntext: t");
    EXPECT_EQ(OptionsOf(vexa::ClassInforOf<Closed>()), "inner -1 0 0\ntext -1 0 0\n");
}

TEST(AttributeOptions, TheNameNeedNotBeTheMembers)
{
    EXPECT_EQ(vexa_test::ReadBack<Renamed>(R"({"count":6})"), R"({"count":6})");
}

TEST(AttributeOptions, AClassMayHaveNone)
{
    EXPECT_EQ(vexa::AsString(Nothing()), "");
    EXPECT_EQ(Json(Nothing()), "{}");
}

TEST(AttributeOptions, OfAUnionOnlyTheActiveMemberIsVisited)
{
    Choice choice;
    EXPECT_EQ(vexa::AsString(choice), "\nkind: 0\ncode: 7\nlast: 9");
    choice.kind = 1;
    choice.rate = 0.5;
    EXPECT_EQ(vexa::AsString(choice), "\nkind: 1\nrate: 0.500000\nlast: 9");
    EXPECT_EQ(Json(choice), R"({"kind":1,"rate":0.500000,"last":9})");
    choice.kind = 2;
    EXPECT_EQ(vexa::AsString(choice), "\nkind: 2\nlast: 9");
}

TEST(AttributeOptions, AUnionMemberIsFoundByItsSelectorValueAndReadByName)
{
    Choice choice;
    vexa::CConstRefrence found;
    ASSERT_TRUE(vexa::RefOf(choice).AsClass().FindAttribByUnionAttribEnum(found, 1));
    EXPECT_EQ(found.TypeName(), "double");
    EXPECT_EQ(vexa_test::ReadBack<Choice>(R"({"kind":1,"rate":3})"), R"({"kind":1,"rate":3.000000,"last":0})");
}

TEST(AttributeOptions, AnUnknownSelectorIsReportedAndTheAttributeIsAnOrdinaryOne)
{
    EXPECT_EQ(g_mistakenLog, "The class Mistaken's attribute code names an unknown union selector sort\n"
                             "The class Mistaken's attribute itself names an unknown union selector itself\n");
    const Mistaken mistaken;
    EXPECT_EQ(vexa::AsString(mistaken), "\nkind: 1\ncode: 2\nitself: 3");
    vexa::CConstRefrence found;
    EXPECT_FALSE(vexa::RefOf(mistaken).AsClass().FindAttribByUnionAttribEnum(found, 4));
}

TEST(AttributeOptions, AMemberTooFarIntoTheObjectIsReportedAndLeftOut)
{
    EXPECT_EQ(g_hugeLog,
              "The class Huge's attribute beyond lies 65540 bytes into the object, beyond 65535, and is left out\n");
    EXPECT_EQ(vexa_test::MembersOf(vexa::ClassInforOf<Huge>()), "first@0: int, 14, 0x00\n");
    EXPECT_EQ(vexa_test::MembersOf(vexa::ClassInforOf<Edge>()), "last@65535: char, 12, 0x00\n");
    const Edge edge;
    EXPECT_EQ(vexa::AsString(edge), "\nlast: z");
}

TEST(AttributeOptions, OptionsOnAMemberLeftOutDoNothing)
{
    vexa::CAttribDescription none(nullptr, nullptr);
    EXPECT_EQ(&none.ID(1).Public().Protected().Private().Masked().ActiveWhen("any", 1), &none);
}

} // namespace
