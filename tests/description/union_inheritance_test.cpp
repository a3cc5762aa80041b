// Unions that are inherited: each member follows its own selector, through bases of bases and behind names that are
// taken.

#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

namespace union_inheritance {

struct Tagged {
    short kind = 2;
    long tag = 1;
};
VEXA_DESCRIBE(Tagged, kind, tag)

struct Choice {
    long before = 0;
    short kind = 0;
    union {
        int code = 5;
        double rate;
    };
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("before", &Choice::before);
    about.Attrib("kind", &Choice::kind);
    about.Attrib("code", &Choice::code).ActiveWhen("kind", 0);
    about.Attrib("rate", &Choice::rate).ActiveWhen("kind", 1);
}

struct Nearer : Choice {
    int nearer = 6;
};
VEXA_DESCRIBE_CLASS(Nearer)
{
    about.Base<Choice>();
    about.Attrib("nearer", &Nearer::nearer);
}

struct Other {
    long other = 7;
};
VEXA_DESCRIBE(Other, other)

/// The union comes through a base that has it from its own base.
struct TwiceOver : Other, Nearer {};
VEXA_DESCRIBE_CLASS(TwiceOver)
{
    about.Base<Other>();
    about.Base<Nearer>();
}

/// The first base takes the name of the selector that the second one brings.
struct Hidden : Tagged, Choice {};
VEXA_DESCRIBE_CLASS(Hidden)
{
    about.Base<Tagged>();
    about.Base<Choice>();
}
struct HiddenFurther : Other, Hidden {};
VEXA_DESCRIBE_CLASS(HiddenFurther)
{
    about.Base<Other>();
    about.Base<Hidden>();
}

/// The class's own union is selected by the class's own attribute, though a base has taken its name.
struct OwnHidden : Tagged {
    short kind = 1;
    union {
        int own = 8;
        double real;
    };
};
VEXA_DESCRIBE_CLASS(OwnHidden)
{
    about.Base<Tagged>();
    about.Attrib("kind", &OwnHidden::kind);
    about.Attrib("own", &OwnHidden::own).ActiveWhen("kind", 1);
    about.Attrib("real", &OwnHidden::real).ActiveWhen("kind", 2);
}

// Random graphs: each class is chosen by a seed, its name in the graph, and its height over the leaves. It has up to
// three bases, a filler of some size, and most have a union; their names are drawn from few.

constexpr unsigned Mix(unsigned seed, unsigned salt)
{
    unsigned mixed = (seed ^ (salt * 0x9E3779B9U)) * 0x85EBCA6BU;
    mixed = (mixed ^ (mixed >> 13U)) * 0xC2B2AE35U;
    return mixed ^ (mixed >> 16U);
}

template<unsigned SEED, int HEIGHT>
struct Class;

struct Nothing {};
template<unsigned SEED, int HEIGHT, unsigned PLACE>
struct CBaseAt {
    static constexpr bool EXISTS = HEIGHT > 0 && Mix(SEED, 1) % 4 >= PLACE;
    using Type = Class<Mix(SEED, 10 + PLACE), HEIGHT - 1>;
};
template<unsigned SEED, int HEIGHT, unsigned PLACE, bool = CBaseAt<SEED, HEIGHT, PLACE>::EXISTS>
struct BaseHolder : CBaseAt<SEED, HEIGHT, PLACE>::Type {
};
template<unsigned SEED, int HEIGHT, unsigned PLACE>
struct BaseHolder<SEED, HEIGHT, PLACE, false> {
};

template<unsigned SEED, int HEIGHT>
struct Class : BaseHolder<SEED, HEIGHT, 1>, BaseHolder<SEED, HEIGHT, 2>, BaseHolder<SEED, HEIGHT, 3> {
    static constexpr bool HAS_UNION = Mix(SEED, 2) % 4 != 0;

    char filler[1 + Mix(SEED, 3) % 20];
    short sort = 0;
    union {
        int whole;
        long real;
        short small;
    };
    short last = 0;

    static const char* NameAt(unsigned place)
    {
        // Drawn without repetition inside a class.
        static constexpr std::array<const char*, 9> NAMES{"kind", "sort", "type", "code", "rate",
                                                          "size", "last", "next", "more"};
        return NAMES[(Mix(SEED, 4) + place * (1 + Mix(SEED, 5) % 2)) % NAMES.size()];
    }
};

template<unsigned SEED, int HEIGHT, unsigned PLACE>
void AddBaseAt(vexa::CDescription<Class<SEED, HEIGHT>>& about)
{
    using Base = CBaseAt<SEED, HEIGHT, PLACE>;
    if constexpr (Base::EXISTS) about.template Base<typename Base::Type>();
}

template<unsigned SEED, int HEIGHT>
constexpr const char* VexaNameOf(const vexa::CDescription<Class<SEED, HEIGHT>>*)
{
    return "Class";
}

template<unsigned SEED, int HEIGHT>
void VexaDescribe(vexa::CDescription<Class<SEED, HEIGHT>>& about)
{
    using Described = Class<SEED, HEIGHT>;
    AddBaseAt<SEED, HEIGHT, 1>(about);
    AddBaseAt<SEED, HEIGHT, 2>(about);
    AddBaseAt<SEED, HEIGHT, 3>(about);
    if constexpr (Described::HAS_UNION) {
        about.Attrib(Described::NameAt(0), &Described::sort);
        about.Attrib(Described::NameAt(1), &Described::whole).ActiveWhen(Described::NameAt(0), 1);
        about.Attrib(Described::NameAt(2), &Described::real).ActiveWhen(Described::NameAt(0), 2);
        about.Attrib(Described::NameAt(3), &Described::small).ActiveWhen(Described::NameAt(0), 3);
    }
    about.Attrib(Described::NameAt(4), &Described::last);
}

/// What the language says of an object: the attributes in order of description, a name that is taken left out.
class CTruth {
public:
    template<unsigned SEED, int HEIGHT>
    void Add(Class<SEED, HEIGHT>& object)
    {
        AddBase<SEED, HEIGHT, 1>(object);
        AddBase<SEED, HEIGHT, 2>(object);
        AddBase<SEED, HEIGHT, 3>(object);
        if constexpr (Class<SEED, HEIGHT>::HAS_UNION) {
            object.sort = static_cast<short>(Mix(m_next++, 6) % 5);
            Add(object.NameAt(0), &object.sort, true);
            Add(object.NameAt(1), &object.whole, object.sort == 1);
            Add(object.NameAt(2), &object.real, object.sort == 2);
            Add(object.NameAt(3), &object.small, object.sort == 3);
            object.real = 0;
        }
        Add(object.NameAt(4), &object.last, true);
    }
    explicit CTruth(unsigned kinds) : m_next(kinds) {}

    std::vector<std::pair<std::string, const void*>> Active;

private:
    template<unsigned SEED, int HEIGHT, unsigned PLACE>
    void AddBase(Class<SEED, HEIGHT>& object)
    {
        using Base = CBaseAt<SEED, HEIGHT, PLACE>;
        if constexpr (Base::EXISTS) Add(static_cast<typename Base::Type&>(object));
    }
    void Add(const char* name, const void* address, bool isActive)
    {
        if (m_taken.insert(name).second && isActive) Active.emplace_back(name, address);
    }

    std::set<std::string> m_taken;
    unsigned m_next;
};

} // namespace union_inheritance

namespace {

using namespace union_inheritance;

template<class T>
std::vector<std::pair<std::string, const void*>> AttribsOf(T& object)
{
    std::vector<std::pair<std::string, const void*>> attribs;
    for (const auto& attrib : vexa::RefOf(object).AsClass().Attribs())
        attribs.emplace_back(attrib.Name(), attrib.Value().Address);
    return attribs;
}

TEST(UnionInheritance, ThroughABaseOfABaseFollowsTheSelectorInTheObject)
{
    TwiceOver object;
    EXPECT_EQ(vexa_test::Json(object), R"({"other":7,"before":0,"kind":0,"code":5,"nearer":6})");
    object.kind = 1;
    object.rate = 0.5;
    EXPECT_EQ(vexa_test::Json(object), R"({"other":7,"before":0,"kind":1,"rate":0.500000,"nearer":6})");
    vexa::RefOf(object).Clear();
    EXPECT_EQ(vexa_test::Json(object), R"({"other":0,"before":0,"kind":0,"code":0,"nearer":0})");
}

TEST(UnionInheritance, AtTheStartOfTheObjectTheSelectorIsTheClasssOwnRecord)
{
    const vexa::CClassInfor& infor = vexa::ClassInforOf<Nearer>();
    EXPECT_EQ(infor.AttribNameMap.at("code")->UnionSelector, infor.AttribNameMap.at("kind"));
}

TEST(UnionInheritance, FollowsASelectorWhoseNameAnotherBaseHasTaken)
{
    Hidden object;
    EXPECT_EQ(vexa_test::Json(object), R"({"kind":2,"tag":1,"before":0,"code":5})");
    object.Choice::kind = 1;
    object.Tagged::kind = 0;
    object.rate = 0.5;
    EXPECT_EQ(vexa_test::Json(object), R"({"kind":0,"tag":1,"before":0,"rate":0.500000})");

    HiddenFurther further;
    EXPECT_EQ(vexa_test::Json(further), R"({"other":7,"kind":2,"tag":1,"before":0,"code":5})");
    further.Choice::kind = 1;
    further.rate = 0.5;
    EXPECT_EQ(vexa_test::Json(further), R"({"other":7,"kind":2,"tag":1,"before":0,"rate":0.500000})");
}

TEST(UnionInheritance, AnOwnUnionFollowsTheClasssOwnAttributeOfAName)
{
    OwnHidden object;
    EXPECT_EQ(vexa_test::Json(object), R"({"kind":2,"tag":1,"own":8})");
    object.kind = 2;
    object.real = 0.5;
    EXPECT_EQ(vexa_test::Json(object), R"({"kind":2,"tag":1,"real":0.500000})");
}

template<unsigned SEED>
void ExpectTruth()
{
    for (unsigned kinds = 0; kinds < 40; ++kinds) {
        Class<SEED, 3> object;
        CTruth truth(SEED + kinds * 1000);
        truth.Add(object);
        EXPECT_EQ(AttribsOf(object), truth.Active) << "seed " << SEED << ", kinds " << kinds;
        const std::string json = vexa_test::Json(object);
        for (int round = 0; round < 2; ++round) {
            ASSERT_EQ(vexa::FromJson(object, json), 0) << json;
            EXPECT_EQ(vexa_test::Json(object), json) << "seed " << SEED << ", kinds " << kinds;
        }
    }
}

template<unsigned... SEEDS>
void ExpectTruthOfAll(std::integer_sequence<unsigned, SEEDS...>)
{
    (ExpectTruth<Mix(SEEDS, 77)>(), ...);
}

TEST(UnionInheritance, InRandomGraphsOfClassesAgreesWithTheLanguage)
{
    ExpectTruthOfAll(std::make_integer_sequence<unsigned, 24>());
}

} // namespace
