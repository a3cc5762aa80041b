#ifndef VEXA_TESTS_SUPPORT_BRIDGE_MODEL_H
#define VEXA_TESTS_SUPPORT_BRIDGE_MODEL_H

#include <memory>
#include <string>
#include <vector>

#include <vexa/describe.h>

#include "support/value_text.h"

/// Classes for the tests of the bridge between tables and objects, and a table as one text.

namespace bridge_model {

struct Tag {
    std::string text;
};
VEXA_DESCRIBE_CUSTOM_STD(Tag, &Tag::text)

struct Money {
    long cents = 0;
    void ToValue(vexa::CValue& out) const { out = std::to_string(cents) + "c"; }
    void FromValue(const vexa::CValue& in) { cents = in.IsNull() ? -1 : in.As_long(); }
};
VEXA_DESCRIBE_CUSTOM_ANY(Money, 17)

enum class Level : short { Low = 1, High = 2 };

struct Address {
    std::string city;
    int zip = 0;
};
VEXA_DESCRIBE(Address, city, zip)

/// Every way in which an attribute can be held.
struct Person {
    int id = 0;
    Level level = Level::Low;
    vexa::MayNull<double> weight;
    const char* note = nullptr;
    std::unique_ptr<long> score;
    Address home;
    vexa::MayNull<Address> work;
    Tag tag;
    Money money;
    vexa::MayNull<Money> bonus;
    std::unique_ptr<Address> away;
    std::vector<int> list;
    vexa::CValue any;
    vexa::CRow row;
};
VEXA_DESCRIBE(Person, id, level, weight, note, score, home, work, tag, money, bonus, away, list, any, row)

/// One attribute of each basic type.
struct Basics {
    bool b = false;
    char c = 0;
    short s = 0;
    int i = 0;
    long l = 0;
    long long ll = 0;
    float f = 0;
    double d = 0;
    long double ld = 0;
    unsigned char uc = 0;
    unsigned short us = 0;
    unsigned int ui = 0;
    unsigned long ul = 0;
    unsigned long long ull = 0;
    std::string text;
    vexa::CBinary binary;
    vexa::CNumeric numeric;
    tm time{};
    vexa::CDateTime instant;
};
VEXA_DESCRIBE(Basics, b, c, s, i, l, ll, f, d, ld, uc, us, ui, ul, ull, text, binary, numeric, time, instant)

struct Account {
    std::string user;
    std::string password;
    Address secretPlace;
};
VEXA_DESCRIBE_CLASS(Account)
{
    about.Attrib("user", &Account::user);
    about.Attrib("password", &Account::password).Masked();
    about.Attrib("secretPlace", &Account::secretPlace).Masked();
}

struct Choice {
    union {
        int code;
        double rate;
    };
    short kind = 0;
    Choice() : rate(0) {}
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind);
    about.Attrib("code", &Choice::code).ActiveWhen("kind", 1);
    about.Attrib("rate", &Choice::rate).ActiveWhen("kind", 2);
}

struct Base {
    int baseNumber = 3;
};
VEXA_DESCRIBE(Base, baseNumber)

struct Derived : Base {
    int ownNumber = 4;
};
VEXA_DESCRIBE_CLASS(Derived)
{
    about.Base<Base>();
    about.Attrib("ownNumber", &Derived::ownNumber);
}

} // namespace bridge_model

namespace vexa_test {

using Names = std::vector<std::string>;

inline std::string ColumnsOf(const vexa::CTable& table)
{
    std::string text;
    for (const vexa::CColumn& column : table.Columns)
        text += std::to_string(column.DataType) + ' ' + column.Name + ", ";
    return text;
}

inline std::string RowText(const vexa::CRow& row)
{
    std::string text;
    for (const vexa::CValue& value : row)
        text += Show(value) + ", ";
    return text;
}

/// The columns and rows of the table that the objects give.
template<class Container>
std::string TableText(const Container& objects, const Names& names = {})
{
    vexa::CTable table;
    const bool isComplete = vexa::TableFromObjects(table, objects, names);
    return (isComplete ? "" : "incomplete: ") + ColumnsOf(table) + '|' + table.AsString();
}

} // namespace vexa_test

#endif
