// Which class an object behind a pointer is of, and which class a tag means.

#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/class_metadata.h>
#include <vexa/describe.h>
#include <vexa/find_class.h>

#include "support/captured_log.h"

namespace derived_classes {

struct Shape {
    virtual ~Shape() = default;
    virtual double Area() const = 0;
    std::string name;
};
VEXA_DESCRIBE_CLASS(Shape)
{
    about.Tag("kind");
    about.Attrib("name", &Shape::name);
}

struct Colored {
    virtual ~Colored() = default;
    int color = 0;
};
VEXA_DESCRIBE(Colored, color)

struct Circle : Shape {
    double Area() const override { return radius; }
    double radius = 1;
};
VEXA_DESCRIBE_CLASS(Circle)
{
    about.TagValue("circle");
    about.Base<Shape>();
    about.Attrib("radius", &Circle::radius);
}

/// The shape does not lie at its start.
struct Square : Colored, Shape {
    double Area() const override { return side; }
    double side = 2;
};
VEXA_DESCRIBE_CLASS(Square)
{
    about.Base<Colored>();
    about.Base<Shape>();
    about.Attrib("side", &Square::side);
    about.TagValue("square");
}

struct Pad {
    virtual ~Pad() = default;
    long pad[5] = {};
};
struct BigSquare : Pad, Square {
    int factor = 3;
};
VEXA_DESCRIBE_CLASS(BigSquare)
{
    about.Base<Square>();
    about.Attrib("factor", &BigSquare::factor);
}

/// Is derived, and has no description.
struct Secret : Circle {
    int secret = 4;
};
/// Is described, but not as a shape.
struct Apart : Circle {
    int apart = 4;
};
VEXA_DESCRIBE(Apart, apart)

struct Unfinished : Shape {};
VEXA_DESCRIBE_CLASS(Unfinished) { about.Base<Shape>(); }

/// A tag of its own, for pointers to itself.
struct Ring : Circle {
    double inner = 0.5;
};
VEXA_DESCRIBE_CLASS(Ring)
{
    about.Base<Circle>();
    about.Tag("type");
    about.TagValue("ring");
    about.Attrib("inner", &Ring::inner);
}
struct ThinRing final : Ring {};
VEXA_DESCRIBE_CLASS(ThinRing)
{
    about.Base<Ring>();
    about.TagValue("thin");
}

/// What a pointer to the base leads to: the class, and whether the object was found to begin where it does.
template<class Base, class Object>
std::string ThroughPointer(const Object& object)
{
    const Base* const pointer = &object;
    const void* whole = nullptr;
    const vexa::CClassInfor& infor = vexa::DynamicClassOf(vexa::ClassInforOf<Base>(), pointer, whole);
    std::string text = vexa::QualifiedNameOf(infor);
    if (whole == pointer) text += " at pointer";
    if (whole == &object) text += " at object";
    return text;
}

TEST(DynamicClass, IsThatOfTheObjectWhereverItsBaseLies)
{
    EXPECT_EQ(ThroughPointer<Shape>(Circle()), "derived_classes::Circle at pointer at object");
    EXPECT_EQ(ThroughPointer<Shape>(Square()), "derived_classes::Square at object");
    EXPECT_EQ(ThroughPointer<Shape>(BigSquare()), "derived_classes::BigSquare at object");
    EXPECT_EQ(ThroughPointer<Square>(BigSquare()), "derived_classes::BigSquare at object");
    EXPECT_EQ(ThroughPointer<Square>(Square()), "derived_classes::Square at pointer at object");
    EXPECT_EQ(ThroughPointer<Shape>(Ring()), "derived_classes::Ring at pointer at object");
    EXPECT_EQ(ThroughPointer<Shape>(ThinRing()), "derived_classes::ThinRing at pointer at object");
    EXPECT_EQ(ThroughPointer<Circle>(ThinRing()), "derived_classes::ThinRing at pointer at object");
    EXPECT_EQ(ThroughPointer<Ring>(ThinRing()), "derived_classes::ThinRing at pointer at object");
}

TEST(DynamicClass, IsThatOfThePointerWithoutTagOrDescription)
{
    EXPECT_EQ(ThroughPointer<Shape>(Secret()), "derived_classes::Shape at pointer at object");
    EXPECT_EQ(ThroughPointer<Circle>(Secret()), "derived_classes::Circle at pointer at object");
    EXPECT_EQ(ThroughPointer<Shape>(Apart()), "derived_classes::Shape at pointer at object");
    EXPECT_EQ(ThroughPointer<Colored>(Square()), "derived_classes::Colored at pointer at object");
}

std::vector<std::string> Values(std::initializer_list<const char*> values) { return {values.begin(), values.end()}; }

TEST(TagValues, AreThoseOfTheClassesThatCanBeMade)
{
    EXPECT_EQ(vexa::TagValuesOf(vexa::ClassInforOf<Shape>()),
              Values({"circle", "derived_classes::BigSquare", "ring", "square", "thin"}));
    EXPECT_EQ(vexa::TagValuesOf(vexa::ClassInforOf<Circle>()), Values({"circle", "ring", "thin"}));
    EXPECT_EQ(vexa::TagValuesOf(vexa::ClassInforOf<Square>()), Values({"derived_classes::BigSquare", "square"}));
    EXPECT_EQ(vexa::TagValuesOf(vexa::ClassInforOf<ThinRing>()), Values({"thin"}));
    EXPECT_EQ(vexa::TagValuesOf(vexa::ClassInforOf<Colored>()), Values({}));
    EXPECT_EQ(vexa::MetadataOf(vexa::ClassInforOf<BigSquare>()).Tag, "kind");
    EXPECT_EQ(vexa::MetadataOf(vexa::ClassInforOf<ThinRing>()).Tag, "type");
}

/// A base that is not polymorphic comes after the one with the tag.
struct Stock {
    int count = 0;
};
VEXA_DESCRIBE(Stock, count)

struct Vehicle {
    virtual ~Vehicle() = default;
    int wheels = 4;
};
VEXA_DESCRIBE_CLASS(Vehicle)
{
    about.Tag("vehicle");
    about.Attrib("wheels", &Vehicle::wheels);
}

struct Car : Vehicle, Stock {};
VEXA_DESCRIBE_CLASS(Car)
{
    about.Base<Vehicle>();
    about.Base<Stock>();
    about.TagValue("car");
}

struct Unbuilt : Vehicle, Stock {
    virtual void Build() = 0;
};
VEXA_DESCRIBE_CLASS(Unbuilt)
{
    about.Base<Vehicle>();
    about.Base<Stock>();
}

TEST(DynamicClass, IsFoundWhateverBaseIsNamedLast)
{
    EXPECT_EQ(ThroughPointer<Vehicle>(Car()), "derived_classes::Car at pointer at object");
    EXPECT_EQ(vexa::TagValuesOf(vexa::ClassInforOf<Vehicle>()), Values({"car", "derived_classes::Vehicle"}));
    EXPECT_EQ(vexa::FindByTagValue(vexa::ClassInforOf<Vehicle>(), "car").Infor, &vexa::ClassInforOf<Car>());
}

template<class Base, class Class>
void ExpectMadeByTag(const char* value)
{
    const vexa::CClassInfor& base = vexa::ClassInforOf<Base>();
    const vexa::CDerivedClass found = vexa::FindByTagValue(base, value);
    ASSERT_EQ(found.Infor, &vexa::ClassInforOf<Class>()) << value;
    EXPECT_EQ(vexa::MetadataOf(*found.Infor).TagValue, value);
    Class object;
    const auto* const part = static_cast<const char*>(static_cast<const void*>(static_cast<const Base*>(&object)));
    EXPECT_EQ(part - found.Offset, static_cast<const void*>(&object)) << value;
}

TEST(FindByTagValue, TellsTheClassAndWhereItsBaseLies)
{
    ExpectMadeByTag<Shape, Circle>("circle");
    ExpectMadeByTag<Shape, Square>("square");
    ExpectMadeByTag<Shape, BigSquare>("derived_classes::BigSquare");
    ExpectMadeByTag<Shape, ThinRing>("thin");
    ExpectMadeByTag<Square, BigSquare>("derived_classes::BigSquare");
    ExpectMadeByTag<Square, Square>("square");
    ExpectMadeByTag<Ring, ThinRing>("thin");
    const vexa::CClassInfor& shape = vexa::ClassInforOf<Shape>();
    for (const char* const value : {"", "Circle", "derived_classes::Shape", "derived_classes::Unfinished", "apart"})
        EXPECT_EQ(vexa::FindByTagValue(shape, value).Infor, nullptr) << value;
    EXPECT_EQ(vexa::FindByTagValue(vexa::ClassInforOf<Square>(), "circle").Infor, nullptr);
    EXPECT_EQ(vexa::FindByTagValue(vexa::ClassInforOf<Colored>(), "square").Infor, nullptr);
}

TEST(FindByTagValue, MakesObjectsThatAreDeletedThroughTheBase)
{
    const vexa::CClassInfor& shape = vexa::ClassInforOf<Shape>();
    for (const std::string& value : vexa::TagValuesOf(shape)) {
        const vexa::CDerivedClass found = vexa::FindByTagValue(shape, value);
        void* const object = found.Infor->Factory();
        auto* const part = static_cast<Shape*>(static_cast<void*>(static_cast<char*>(object) + found.Offset));
        const std::unique_ptr<Shape> owner(part);
        const void* whole = nullptr;
        EXPECT_EQ(&vexa::DynamicClassOf(shape, part, whole), found.Infor);
        EXPECT_EQ(whole, object);
    }
}

/// Of a class that is not polymorphic only its own objects are known: it is for the alternatives of a variant.
struct Plain {
    int a = 0;
};
VEXA_DESCRIBE_CLASS(Plain)
{
    about.Tag("what");
    about.Attrib("a", &Plain::a);
}
struct FromPlain : Plain {
    virtual ~FromPlain() = default;
    int b = 0;
};
VEXA_DESCRIBE_CLASS(FromPlain)
{
    about.Base<Plain>();
    about.Attrib("b", &FromPlain::b);
}

TEST(TagOfAPlainClass, IsThatOfItsOwnObjects)
{
    EXPECT_EQ(vexa::TagValuesOf(vexa::ClassInforOf<Plain>()), Values({"derived_classes::Plain"}));
    EXPECT_EQ(vexa::FindByTagValue(vexa::ClassInforOf<Plain>(), "derived_classes::Plain").Infor,
              &vexa::ClassInforOf<Plain>());
    EXPECT_EQ(ThroughPointer<Plain>(FromPlain()), "derived_classes::Plain at pointer");
    EXPECT_EQ(vexa::MetadataOf(vexa::ClassInforOf<FromPlain>()).Tag, "what");
    EXPECT_EQ(vexa::TagValuesOf(vexa::ClassInforOf<FromPlain>()), Values({"derived_classes::FromPlain"}));
}

struct Plainer {
    int a = 0;
};
struct FromPlainer : Plainer {
    virtual ~FromPlainer() = default;
};
struct OfItsOwn : Plainer {
    virtual ~OfItsOwn() = default;
};

} // namespace derived_classes

template<>
struct vexa::Describes<derived_classes::Plainer> {
    static void Describe(vexa::CDescription<derived_classes::Plainer>& about) { about.Tag("what"); }
};
template<>
struct vexa::Describes<derived_classes::FromPlainer> {
    static constexpr const char* NAME = "FromPlainer";
    static void Describe(vexa::CDescription<derived_classes::FromPlainer>& about)
    {
        about.Base<derived_classes::Plainer>();
    }
};
template<>
struct vexa::Describes<derived_classes::OfItsOwn> {
    static void Describe(vexa::CDescription<derived_classes::OfItsOwn>& about)
    {
        about.Base<derived_classes::Plainer>();
        about.Tag("what");
    }
};

namespace derived_classes {

TEST(TagOfAPlainClass, IsComplainedOfInAPolymorphicClass)
{
    EXPECT_EQ(vexa_test::LoggedLines([] { vexa::ClassInforOf<FromPlainer>(); }),
              "The class FromPlainer has the tag what of a base that is not polymorphic, as the class is: it tells the "
              "class in a std::variant, but not behind a pointer; give the base a virtual destructor, or the class a "
              "tag of its own\n");
    EXPECT_EQ(vexa_test::LoggedLines([] { vexa::ClassInforOf<OfItsOwn>(); }), "");
}

/// The base's description is asked for while it is itself in progress: it holds pointers to what is derived from it.
struct Leaf;
struct Node {
    virtual ~Node() = default;
    std::vector<std::unique_ptr<Node>> children;
    Leaf* leaf = nullptr;
};
struct Leaf : Node {
    int value = 0;
};
VEXA_DESCRIBE_CLASS(Node)
{
    about.Attrib("leaf", &Node::leaf);
    about.Attrib("children", &Node::children).Key("nodes");
    about.Tag("node");
}
VEXA_DESCRIBE_CLASS(Leaf)
{
    about.Base<Node>();
    about.Attrib("value", &Leaf::value);
}

TEST(DynamicClass, IsFoundOfClassesThatLeadBackToOneAnother)
{
    EXPECT_EQ(ThroughPointer<Node>(Leaf()), "derived_classes::Leaf at pointer at object");
    EXPECT_EQ(
        vexa::MetadataOf(vexa::ClassInforOf<Leaf>(), *std::next(vexa::ClassInforOf<Leaf>().AttribList.begin())).Key,
        "nodes");
}

struct Animal {
    virtual ~Animal() = default;
};
VEXA_DESCRIBE_CLASS(Animal)
{
    about.Tag("is");
    about.TagValue("animal");
}
struct Dog : Animal {};
VEXA_DESCRIBE_CLASS(Dog)
{
    about.Base<Animal>();
    about.TagValue("pet");
}
struct Cat : Animal {};
VEXA_DESCRIBE_CLASS(Cat)
{
    about.Base<Animal>();
    about.TagValue("pet");
}

TEST(TagValue, OfTwoClassesStaysWithTheFirst)
{
    EXPECT_EQ(vexa_test::LoggedLines([] { vexa::TagValuesOf(vexa::ClassInforOf<Animal>()); }),
              "The tag value pet of derived_classes::Animal means two classes, derived_classes::Cat and "
              "derived_classes::Dog: it stays with the first\n");
    EXPECT_EQ(vexa::TagValuesOf(vexa::ClassInforOf<Animal>()), Values({"animal", "pet"}));
    EXPECT_EQ(vexa::FindByTagValue(vexa::ClassInforOf<Animal>(), "pet").Infor, &vexa::ClassInforOf<Cat>());
}

// Classes that come later.

struct Growing {
    virtual ~Growing() = default;
};
VEXA_DESCRIBE_CLASS(Growing) { about.Tag("stage"); }
struct Early : Growing {};
VEXA_DESCRIBE_CLASS(Early)
{
    about.Base<Growing>();
    about.TagValue("early");
}

template<int NUMBER>
struct Late : Growing {
};
template<int NUMBER>
void VexaDescribe(vexa::CDescription<Late<NUMBER>>& about)
{
    about.template Base<Growing>();
}
template<int NUMBER>
constexpr const char* VexaNameOf(const vexa::CDescription<Late<NUMBER>>*)
{
    return "Late";
}

template<int... NUMBERS>
void UseLate(std::integer_sequence<int, NUMBERS...>)
{
    const auto use = [](const auto& object, int number) {
        EXPECT_EQ(ThroughPointer<Growing>(object), "derived_classes::Growing at pointer at object");
        vexa::ClassInforOf<std::decay_t<decltype(object)>>();
        EXPECT_EQ(ThroughPointer<Growing>(object),
                  "derived_classes::Late<" + std::to_string(number) + "> at pointer at object");
        EXPECT_EQ(ThroughPointer<Growing>(Early()), "derived_classes::Early at pointer at object");
    };
    (use(Late<NUMBERS>(), NUMBERS), ...);
}

TEST(DynamicClass, IsFoundOfClassesThatAreDescribedLaterConcurrently)
{
    std::vector<std::thread> readers;
    for (int i = 0; i < 3; ++i) {
        readers.emplace_back([] {
            for (int round = 0; round < 500; ++round) {
                EXPECT_EQ(ThroughPointer<Growing>(Early()), "derived_classes::Early at pointer at object");
                EXPECT_EQ(vexa::FindByTagValue(vexa::ClassInforOf<Growing>(), "early").Infor,
                          &vexa::ClassInforOf<Early>());
            }
        });
    }
    UseLate(std::make_integer_sequence<int, 20>());
    for (std::thread& reader : readers)
        reader.join();
}

} // namespace derived_classes
