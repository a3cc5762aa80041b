// The kinds of classes that can be described, and the places where a description can stand.

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

struct InGlobalNamespace {
    int x = 1;
};
VEXA_DESCRIBE(InGlobalNamespace, x)

namespace {

struct InUnnamedNamespace {
    InGlobalNamespace inner;
};
VEXA_DESCRIBE(InUnnamedNamespace, inner)

} // namespace

namespace class_forms {

struct Outer {
    struct Inner {
        int x = 2;
    };
    Inner inner;
    std::vector<Inner> inners;
};
VEXA_DESCRIBE(Outer::Inner, x)
VEXA_DESCRIBE(Outer, inner, inners)

class Hiding {
    struct Hidden {
        int x = 3;
    };
    Hidden hidden;
    VEXA_FRIEND(Hiding);
    VEXA_FRIEND(Hiding::Hidden);

public:
    using Reachable = Hidden;
};
VEXA_DESCRIBE(Hiding::Reachable, x)
VEXA_DESCRIBE(Hiding, hidden)

template<class T>
struct Box {
    T value{};
};
VEXA_DESCRIBE(Box<int>, value)
VEXA_DESCRIBE(Box<std::string>, value)

template<class A, class B>
struct Two {
    A a{};
    B b{};
};
using IntAndText = Two<int, std::string>;
VEXA_DESCRIBE(IntAndText, a, b)

/// Cannot be made from nothing.
struct Given {
    explicit Given(int value) : x(value) {}
    int x;
};
VEXA_DESCRIBE(Given, x)

class Shape {
public:
    virtual ~Shape() = default;
    virtual double Area() const = 0;
    std::string name = "shape";
};
VEXA_DESCRIBE(Shape, name)

class Square : public Shape {
public:
    double Area() const override { return side * side; }
    double side = 2;
};
VEXA_DESCRIBE_CLASS(Square)
{
    about.Base<Shape>();
    about.Attrib("side", &Square::side);
}

struct Holder {
    std::unique_ptr<Given> given;
    Given* raw = nullptr;
    std::unique_ptr<Shape> shape;
    std::vector<std::unique_ptr<Shape>> shapes;
};
VEXA_DESCRIBE(Holder, given, raw, shape, shapes)

/// Polymorphic, yet not meant to be deleted through a base.
struct Plain {
    virtual int Value() const { return x; }
    int x = 6;
};
VEXA_DESCRIBE(Plain, x)
struct Interface {
    virtual int Value() const = 0;
    int x = 7;
};
VEXA_DESCRIBE(Interface, x)
struct Implementation : Interface {
    int Value() const override { return x; }
};
struct SeesInterface {
    const Interface* seen = nullptr;
    Plain* plain = nullptr;
};
VEXA_DESCRIBE(SeesInterface, seen, plain)

/// Described where it cannot be destroyed from outside.
class Guarded {
public:
    int x = 5;

protected:
    ~Guarded() = default;
};
VEXA_DESCRIBE(Guarded, x)
class Freed : public Guarded {};

// One member a line would be 120 lines.
#define TEN_MEMBERS(n)                                                                                                 \
    int n##0 = 0, n##1 = 1, n##2 = 2, n##3 = 3, n##4 = 4, n##5 = 5, n##6 = 6, n##7 = 7, n##8 = 8, n##9 = 9;
#define TEN_NAMES(n) n##0, n##1, n##2, n##3, n##4, n##5, n##6, n##7, n##8, n##9

struct Sixteen {
    TEN_MEMBERS(a)
    int b0 = 0, b1 = 1, b2 = 2, b3 = 3, b4 = 4, b5 = 5;
};
VEXA_DESCRIBE(Sixteen, TEN_NAMES(a), b0, b1, b2, b3, b4, b5)
struct Seventeen {
    TEN_MEMBERS(a)
    int b0 = 0, b1 = 1, b2 = 2, b3 = 3, b4 = 4, b5 = 5, b6 = 6;
};
VEXA_DESCRIBE(Seventeen, TEN_NAMES(a), b0, b1, b2, b3, b4, b5, b6)
struct Many {
    TEN_MEMBERS(a)
    TEN_MEMBERS(b)
    TEN_MEMBERS(c)
    TEN_MEMBERS(d)
    TEN_MEMBERS(e)
    TEN_MEMBERS(f)
    TEN_MEMBERS(g)
    TEN_MEMBERS(h)
    TEN_MEMBERS(i)
    TEN_MEMBERS(j)
    TEN_MEMBERS(k)
    TEN_MEMBERS(l)
};
VEXA_DESCRIBE(Many, TEN_NAMES(a), TEN_NAMES(b), TEN_NAMES(c), TEN_NAMES(d), TEN_NAMES(e), TEN_NAMES(f), TEN_NAMES(g),
              TEN_NAMES(h), TEN_NAMES(i), TEN_NAMES(j), TEN_NAMES(k), TEN_NAMES(l))

} // namespace class_forms

namespace {

using namespace class_forms;
using vexa_test::Json;

TEST(ClassForms, ADescriptionStandsInAnyNamespace)
{
    EXPECT_EQ(Json(InUnnamedNamespace()), R"({"inner":{"x":1}})");
    EXPECT_EQ(vexa::ClassInforOf<InGlobalNamespace>().Name, "InGlobalNamespace");
}

TEST(ClassForms, ANestedClassIsNamedAsItIsDescribed)
{
    EXPECT_EQ(vexa::ClassInforOf<Outer::Inner>().Name, "Outer::Inner");
    EXPECT_EQ(vexa::AsString(Outer(), vexa::Enum::ASF_TYPE_AND_VALUE),
              "Outer: \n  Outer::Inner inner: \n    int x: 2\n  std::vector<Outer::Inner> inners: ");
}

TEST(ClassForms, APrivateNestedClassIsReachedThroughTheFriend) { EXPECT_EQ(Json(Hiding()), R"({"hidden":{"x":3}})"); }

TEST(ClassForms, EachInstanceOfATemplateIsAClassOfItsOwn)
{
    EXPECT_EQ(vexa::ClassInforOf<Box<int>>().Name, "Box<int>");
    EXPECT_EQ(vexa::ClassInforOf<Box<std::string>>().Name, "Box<std::string>");
    EXPECT_EQ(Json(Box<int>()), R"({"value":0})");
    EXPECT_EQ(Json(Box<std::string>()), R"({"value":""})");
    EXPECT_EQ(vexa::ClassInforOf<IntAndText>().Name, "IntAndText");
    EXPECT_EQ(Json(IntAndText()), R"({"a":0,"b":""})");
}

TEST(ClassForms, SizeFactoryAndDeleterAreTheClasss)
{
    const vexa::CClassInfor& infor = vexa::ClassInforOf<Outer>();
    EXPECT_EQ(infor.Size, sizeof(Outer));
    EXPECT_EQ(infor.CustomTypeID, 0U);
    void* made = vexa::TypeInforOf<Outer>().New();
    EXPECT_EQ(static_cast<Outer*>(made)->inner.x, 2);
    vexa::TypeInforOf<Outer>().Delete(made);
    EXPECT_EQ(made, nullptr);
}

TEST(ClassForms, AClassThatCannotBeMadeFromNothingIsDescribedAllTheSame)
{
    const Given given(4);
    EXPECT_EQ(Json(given), R"({"x":4})");
    EXPECT_EQ(vexa::TypeInforOf<Given>().New(), nullptr);
}

TEST(ClassForms, AnAbstractClassIsDescribedAllTheSame)
{
    const Square square;
    EXPECT_EQ(Json<Shape>(square), R"({"name":"shape"})");
    EXPECT_EQ(Json(square), R"({"name":"shape","side":2.000000})");
    EXPECT_EQ(vexa::TypeInforOf<Shape>().New(), nullptr);
}

TEST(ClassForms, ANullPointerToAClassThatCannotBeMadeIsNotReadFromJson)
{
    Holder holder;
    EXPECT_EQ(vexa::FromJson(holder, R"({"given":{"x":1}})"), 997);
    EXPECT_EQ(vexa::FromJson(holder, R"({"raw":{"x":1}})"), 997);
    EXPECT_EQ(vexa::FromJson(holder, R"({"shape":{"name":"a"}})"), 997);
    EXPECT_EQ(vexa::FromJson(holder, R"({"shapes":[{"name":"a"}]})"), 997);
    EXPECT_EQ(holder.given, nullptr);
    EXPECT_EQ(holder.raw, nullptr);
    EXPECT_EQ(holder.shape, nullptr);
}

TEST(ClassForms, APointerToABaseShowsTheBaseAndFreesTheWhole)
{
    Holder holder;
    holder.shape = std::make_unique<Square>();
    holder.shapes.push_back(std::make_unique<Square>());
    EXPECT_EQ(Json(holder), R"({,"shape":{"name":"shape"},"shapes":[{"name":"shape"}]})");
    vexa::RefOf(holder).Clear();
    EXPECT_EQ(holder.shape, nullptr);
}

TEST(ClassForms, AClassThatCannotBeDestroyedFromOutsideIsDescribedAllTheSame)
{
    const Freed freed;
    EXPECT_EQ(Json<Guarded>(freed), R"({"x":5})");
}

TEST(ClassForms, APolymorphicClassNeedsNoVirtualDestructor)
{
    const Implementation implementation;
    SeesInterface sees;
    sees.seen = &implementation;
    ASSERT_EQ(vexa::FromJson(sees, R"({"plain":{"x":8}})"), 0);
    EXPECT_EQ(sees.seen, nullptr);
    EXPECT_EQ(sees.plain->Value(), 8);
    sees.seen = &implementation;
    EXPECT_EQ(Json(sees), R"({"seen":{"x":7},"plain":{"x":8}})");
    vexa::RefOf(sees).Clear();
    EXPECT_EQ(sees.plain, nullptr);
}

/// "a0 a1 ... " of the first \p count members.
std::string Names(int count)
{
    std::string names;
    for (int i = 0; i < count; ++i)
        names += std::string(1, static_cast<char>('a' + i / 10)) + std::to_string(i % 10) + ' ';
    return names;
}

std::string NamesIn(const vexa::CClassInfor& infor)
{
    std::string names;
    for (const vexa::CAttribInfor& record : infor.AttribList)
        names += record.Name + ' ';
    return names;
}

TEST(ClassForms, TheShortFormTakesAnyNumberOfMembers)
{
    EXPECT_EQ(NamesIn(vexa::ClassInforOf<Box<int>>()), "value ");
    EXPECT_EQ(NamesIn(vexa::ClassInforOf<Sixteen>()), Names(16));
    EXPECT_EQ(NamesIn(vexa::ClassInforOf<Seventeen>()), Names(17));
    EXPECT_EQ(NamesIn(vexa::ClassInforOf<Many>()), Names(120));
}

} // namespace
