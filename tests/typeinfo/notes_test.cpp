// What descriptions say of a class for the standard formats.

#include <vexa/class_metadata.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>
#include <vexa/json_tree.h>

#include "support/captured_log.h"
#include "support/described_text.h"
#include "typeinfo/notes.h"

namespace notes {

using vexa::KeyStyle;
using vexa::UnknownKeys;

struct Part {
    int depth = 0;
};
VEXA_DESCRIBE(Part, depth)

struct Server {
    int serverPort = 80;
    std::string hostName;
    double loadFactor = 0;
    std::vector<int> openSockets;
    Part part;
    int secret = 0;
};
VEXA_DESCRIBE_CLASS(Server)
{
    about.KeyStyle(KeyStyle::SNAKE);
    about.UnknownKeys(UnknownKeys::SKIP);
    about.Attrib("serverPort", &Server::serverPort)
        .ID(4)
        .Key("port")
        .Alias("port_no")
        .Alias("portNumber")
        .Required()
        .Range(1, 65535u)
        .Doc("where it listens")
        .Unit("tcp");
    about.Attrib("hostName", &Server::hostName).Length(1, 64).OmitIfDefault();
    about.Attrib("loadFactor", &Server::loadFactor).Range(-0.5, 1).ReadOnly();
    about.Attrib("openSockets", &Server::openSockets).WriteOnly();
    about.Attrib("part", &Server::part).Flatten();
    about.Attrib("secret", &Server::secret).Masked();
}

std::string BoundText(const std::optional<vexa::CBound>& bound)
{
    if (!bound) return "none";
    if (!bound->IsInteger) return std::to_string(bound->Floating);
    return (bound->IsUnsigned ? "u" : "") + std::to_string(bound->Integer);
}

/// One line for each attribute: its key, and then what is said of it.
std::string TextOf(const vexa::CClassInfor& infor)
{
    std::string text;
    for (const vexa::CAttribInfor& record : infor.AttribList) {
        const vexa::CAttribMetadata* const notes = &vexa::MetadataOf(infor, record);
        text += (notes->Key.empty() ? record.Name : notes->Key) + ':';
        {
            for (const std::string& alias : notes->Aliases)
                text += " =" + alias;
            if (notes->IsRequired) text += " required";
            if (notes->IsFlattened) text += " flat";
            if (notes->IsReadOnly) text += " readonly";
            if (notes->IsWriteOnly) text += " writeonly";
            if (notes->IsOmittedIfDefault) text += " omit";
            if (notes->Least) text += " >=" + BoundText(notes->Least);
            if (notes->Most) text += " <=" + BoundText(notes->Most);
            if (notes->ShortestLength) text += " from " + std::to_string(*notes->ShortestLength);
            if (notes->LongestLength) text += " to " + std::to_string(*notes->LongestLength);
            if (!notes->Doc.empty()) text += " \"" + notes->Doc + '"';
            if (!notes->Unit.empty()) text += " [" + notes->Unit + ']';
        }
        text += '\n';
    }
    return text;
}

TEST(Notes, TellWhatADescriptionSays)
{
    const vexa::CClassInfor& infor = vexa::ClassInforOf<Server>();
    EXPECT_EQ(TextOf(infor), "port: =port_no =portNumber required >=1 <=u65535 \"where it listens\" [tcp]\n"
                             "host_name: omit from 1 to 64\n"
                             "load_factor: readonly >=-0.500000 <=1\n"
                             "open_sockets: writeonly\n"
                             "part: flat\n"
                             "secret:\n");
    const vexa::CClassMetadata& metadata = vexa::MetadataOf(infor);
    EXPECT_EQ(metadata.Unknown, UnknownKeys::SKIP);
    EXPECT_EQ(metadata.Style, KeyStyle::SNAKE);
    EXPECT_EQ(metadata.Tag, "");
    EXPECT_EQ(metadata.TagValue, "");
    EXPECT_EQ(vexa::CheckObject(infor, nullptr), "");
}

/// The same class, of which nothing is said.
struct Plain {
    int serverPort = 80;
    std::string hostName;
    double loadFactor = 0;
    std::vector<int> openSockets;
    Part part;
    int secret = 0;
};
VEXA_DESCRIBE_CLASS(Plain)
{
    about.Attrib("serverPort", &Plain::serverPort).ID(4);
    about.Attrib("hostName", &Plain::hostName);
    about.Attrib("loadFactor", &Plain::loadFactor);
    about.Attrib("openSockets", &Plain::openSockets);
    about.Attrib("part", &Plain::part);
    about.Attrib("secret", &Plain::secret).Masked();
}

TEST(Notes, ChangeNothingOfTheDescriptorAndOfTheRequiredFunctions)
{
    const vexa::CClassInfor& said = vexa::ClassInforOf<Server>();
    const vexa::CClassInfor& plain = vexa::ClassInforOf<Plain>();
    EXPECT_EQ(vexa_test::MembersOf(said), vexa_test::MembersOf(plain));
    EXPECT_EQ(vexa_test::FlatNamesOf(said), vexa_test::FlatNamesOf(plain));
    EXPECT_EQ(said.AttribIDMap().FindAttrib(4)->Name, "serverPort");
    const Server server;
    const Plain other;
    EXPECT_EQ(vexa::AsString(server), vexa::AsString(other));
    std::string json, otherJson;
    EXPECT_EQ(vexa::ToJson(json, server), vexa::ToJson(otherJson, other));
    EXPECT_EQ(json, otherJson);
    EXPECT_EQ(vexa::typeinfo::NotesOf(plain), nullptr);
    EXPECT_EQ(TextOf(plain), "serverPort:\nhostName:\nloadFactor:\nopenSockets:\npart:\nsecret:\n");
}

struct Derived : Server {
    int ownValue = 1;
    int hostName = 2; // hidden by that of the base
};
VEXA_DESCRIBE_CLASS(Derived)
{
    about.KeyStyle(KeyStyle::KEBAB);
    about.Base<Server>();
    about.Attrib("ownValue", &Derived::ownValue);
    about.Attrib("hostName", &Derived::hostName).Key("never").Required();
}
struct Pad {
    long pad[3] = {};
};
struct Second : Pad, Derived {
    int another = 0;
};
VEXA_DESCRIBE_CLASS(Second)
{
    about.Attrib("another", &Second::another).Key("x");
    about.Base<Derived>();
    about.UnknownKeys(UnknownKeys::PROBLEM);
}

TEST(Notes, AreInheritedWithTheRecords)
{
    const std::string ofServer = "port: =port_no =portNumber required >=1 <=u65535 \"where it listens\" [tcp]\n"
                                 "host_name: omit from 1 to 64\n"
                                 "load_factor: readonly >=-0.500000 <=1\n"
                                 "open_sockets: writeonly\n"
                                 "part: flat\n"
                                 "secret:\n";
    const vexa::CClassInfor& derived = vexa::ClassInforOf<Derived>();
    EXPECT_EQ(TextOf(derived), ofServer + "own-value:\n");
    EXPECT_EQ(vexa::MetadataOf(derived).Unknown, UnknownKeys::SKIP);
    EXPECT_EQ(vexa::typeinfo::NotesOf(derived)->Members.size(), 6u);
    const vexa::CClassInfor& second = vexa::ClassInforOf<Second>();
    EXPECT_EQ(TextOf(second), "x:\n" + ofServer + "own-value:\n");
    EXPECT_EQ(vexa::MetadataOf(second).Unknown, UnknownKeys::PROBLEM);
}

struct Silent : Plain {
    int own = 0;
};
VEXA_DESCRIBE_CLASS(Silent)
{
    about.Base<Plain>();
    about.Attrib("own", &Silent::own);
}

TEST(Notes, AreNotThereWhereNothingIsSaid)
{
    EXPECT_EQ(vexa::typeinfo::NotesOf(vexa::ClassInforOf<Silent>()), nullptr);
    EXPECT_EQ(vexa::typeinfo::NotesOf(vexa::ClassInforOf<Part>()), nullptr);
    const vexa::CClassInfor byHand;
    EXPECT_EQ(vexa::typeinfo::NotesOf(byHand), nullptr);
    EXPECT_EQ(vexa::MetadataOf(byHand).Unknown, UnknownKeys::PROBLEM);
    EXPECT_EQ(vexa::MetadataOf(byHand).Tag, "");
}

vexa::CClassInfor* s_byHand = nullptr;

TEST(Notes, GoWithTheRecordsOfABaseThatAClassRegisteredByHandTakesOver)
{
    vexa::CClassInfor::InitClassInforWithBaseClass(
        s_byHand, "ByHand", sizeof(Server) + 8, nullptr, nullptr,
        [](vexa::CClassInfor& about, vexa::Enum::AccessSpecifierEnum access) {
            about.AddAttribInfor(access, 0, "first", -1).TypeInfor = vexa::CGnlTypeInfor(vexa::Enum::DT_INT);
        },
        vexa::ClassInforOf<Server>(), 8);
    EXPECT_EQ(TextOf(*s_byHand), TextOf(vexa::ClassInforOf<Server>()) + "first:\n");
}

struct Hidden {
    char far[65530] = {};
    int serverPort = 0;
};
struct FarBase {
    int first = 0;
    int second = 0;
};
VEXA_DESCRIBE_CLASS(FarBase)
{
    about.Attrib("first", &FarBase::first).Key("a");
    about.Attrib("second", &FarBase::second).Key("b").Required();
}
struct Far : Hidden, FarBase {
    int last = 0;
};
VEXA_DESCRIBE_CLASS(Far)
{
    about.Base<FarBase>();
    about.Attrib("far", &Hidden::far);
}

TEST(Notes, GoWithARecordThatIsOutOfReach)
{
    const vexa::CClassInfor& far = vexa::ClassInforOf<Far>();
    EXPECT_EQ(TextOf(far), "far:\n");
    EXPECT_TRUE(vexa::typeinfo::NotesOf(far)->Members.empty());
}

// Checks.

struct Low {
    int low = 1;
};
VEXA_DESCRIBE_CLASS(Low)
{
    about.Attrib("low", &Low::low);
    about.Check([](const Low& object) { return object.low >= 0; }, "low is negative");
}

std::string ComplaintOf(const struct Range& range);

struct Range : Pad, Low {
    int high = 2;
};
VEXA_DESCRIBE_CLASS(Range)
{
    about.Base<Low>();
    about.Attrib("high", &Range::high);
    about.Check(&ComplaintOf);
    about.Check([](const Range& object) noexcept { return object.high < 100 ? "" : "high is too high"; });
    about.Check([](const Range& object) { return object.high != 99; });
}

std::string ComplaintOf(const Range& range)
{
    if (range.low <= range.high) return {};
    return "low " + std::to_string(range.low) + " is above high " + std::to_string(range.high);
}

TEST(Checks, LookAtAnObjectAndItsBasesInOrder)
{
    const vexa::CClassInfor& infor = vexa::ClassInforOf<Range>();
    Range range;
    EXPECT_EQ(CheckObject(infor, &range), "");
    range.low = 3;
    EXPECT_EQ(CheckObject(infor, &range), "low 3 is above high 2");
    range.low = -1;
    EXPECT_EQ(CheckObject(infor, &range), "low is negative");
    range.high = -2;
    EXPECT_EQ(CheckObject(infor, &range), "low is negative");
    range.low = 1;
    range.high = 100;
    EXPECT_EQ(CheckObject(infor, &range), "high is too high");
    range.high = 99;
    EXPECT_EQ(CheckObject(infor, &range), "it is not right");
    EXPECT_EQ(CheckObject(vexa::ClassInforOf<Part>(), &range), "");
}

// Pointers to what belongs to someone else.

struct Tree {
    int value = 0;
    Tree* child = nullptr;
    Tree* parent = nullptr;
    int* number = nullptr;
    const int* fixed = nullptr;
};
VEXA_DESCRIBE_CLASS(Tree)
{
    about.Attrib("value", &Tree::value);
    about.Attrib("child", &Tree::child);
    about.Attrib("parent", &Tree::parent).NotOwned();
    about.Attrib("number", &Tree::number).NotOwned().Key("n");
    about.Attrib("fixed", &Tree::fixed).NotOwned();
}

TEST(NotOwned, TakesTheFormOfAPointerToConst)
{
    const auto type = [](const char* name) {
        return vexa::ClassInforOf<Tree>().AttribNameMap.at(name)->TypeInfor.TypeName();
    };
    EXPECT_EQ(type("child"), "Tree*");
    EXPECT_EQ(type("parent"), "const Tree*");
    EXPECT_EQ(type("number"), "const int*");
    EXPECT_EQ(type("fixed"), "const int*");
}

TEST(NotOwned, IsNeverMadeFreedOrWrittenThrough)
{
    Tree root, leaf;
    leaf.parent = &root;
    EXPECT_NE(vexa::FromJson(leaf, R"({"parent":{"value":7}})"), 0);
    EXPECT_EQ(root.value, 0);
    vexa::RefOf(leaf).Clear();
    EXPECT_EQ(leaf.parent, nullptr);
    EXPECT_NE(vexa::FromJson(leaf, R"({"parent":{"value":7}})"), 0);
    EXPECT_EQ(leaf.parent, nullptr);
}

struct Misused {
    std::unique_ptr<int> unique;
    int value = 0;
    vexa::NonNullPointer<Part> never;
    std::vector<int*> pointers;
    Part* pointer = nullptr;
    vexa::MayNull<Part> wrapped;
    std::map<std::string, int> numbers;
};

// Before the description takes effect by itself.
const std::string g_misused = vexa_test::LoggedLines([] { vexa::ClassInforOf<Misused>(); });

VEXA_DESCRIBE_CLASS(Misused)
{
    about.Attrib("unique", &Misused::unique).NotOwned();
    about.Attrib("value", &Misused::value).NotOwned().Flatten().KeepsUnknown();
    about.Attrib("never", &Misused::never).NotOwned();
    about.Attrib("pointers", &Misused::pointers).NotOwned();
    about.Attrib("pointer", &Misused::pointer).Flatten();
    about.Attrib("wrapped", &Misused::wrapped).Flatten();
    about.Attrib("numbers", &Misused::numbers).KeepsUnknown();
}

TEST(Notes, ThatDoNotFitAreLoggedAndIgnored)
{
    const auto line = [](const std::string& attrib, const std::string& call, const std::string& what) {
        return "The class Misused's attribute " + attrib + " cannot have " + call + ": it is no " + what + '\n';
    };
    const std::string object = "object of a described class that is held by value";
    const std::string map = "map of std::string to vexa::CRawJson";
    EXPECT_EQ(g_misused, line("unique", "NotOwned", "raw pointer") + line("value", "NotOwned", "raw pointer") +
                             line("value", "Flatten", object) + line("value", "KeepsUnknown", map) +
                             line("never", "NotOwned", "raw pointer") + line("pointers", "NotOwned", "raw pointer") +
                             line("pointer", "Flatten", object) + line("wrapped", "Flatten", object) +
                             line("numbers", "KeepsUnknown", map));
    EXPECT_EQ(vexa::typeinfo::NotesOf(vexa::ClassInforOf<Misused>()), nullptr);
    EXPECT_EQ(vexa::ClassInforOf<Misused>().AttribNameMap.at("unique")->TypeInfor.TypeName(), "int*");
}

// What becomes of unknown keys.

struct Skipping {
    int a = 0;
};
VEXA_DESCRIBE_CLASS(Skipping)
{
    about.UnknownKeys(UnknownKeys::SKIP);
    about.Attrib("a", &Skipping::a);
}
struct Keeping : Skipping {
    std::map<std::string, vexa::CRawJson> kept;
};
VEXA_DESCRIBE_CLASS(Keeping)
{
    about.Base<Skipping>();
    about.Attrib("kept", &Keeping::kept).KeepsUnknown();
}
struct KeepingStill : Keeping {
    int b = 0;
};
VEXA_DESCRIBE_CLASS(KeepingStill)
{
    about.Base<Keeping>();
    about.Attrib("b", &KeepingStill::b);
}
struct SkippingAgain : Keeping {
    int c = 0;
};
VEXA_DESCRIBE_CLASS(SkippingAgain)
{
    about.UnknownKeys(UnknownKeys::SKIP);
    about.Base<Keeping>();
    about.Attrib("more", &SkippingAgain::kept).KeepsUnknown();
}

TEST(UnknownKeysOfAClass, AreAsTheNearestDescriptionSays)
{
    EXPECT_EQ(vexa::MetadataOf(vexa::ClassInforOf<Skipping>()).Unknown, UnknownKeys::SKIP);
    EXPECT_EQ(vexa::MetadataOf(vexa::ClassInforOf<Keeping>()).Unknown, UnknownKeys::KEEP);
    EXPECT_EQ(vexa::MetadataOf(vexa::ClassInforOf<KeepingStill>()).Unknown, UnknownKeys::KEEP);
    EXPECT_EQ(vexa::MetadataOf(vexa::ClassInforOf<SkippingAgain>()).Unknown, UnknownKeys::SKIP);
}

// A description is first looked at without a descriptor when classes lead back to one another.

struct Ring;
struct Link {
    Ring* ring = nullptr;
};
struct Ring {
    Link link;
    int value = 0;
};
VEXA_DESCRIBE_CLASS(Link)
{
    about.KeyStyle(KeyStyle::CAMEL);
    about.UnknownKeys(UnknownKeys::SKIP);
    about.Tag("kind");
    about.TagValue("link");
    about.Check([](const Link&) { return true; }, "never");
    about.Attrib("ring", &Link::ring)
        .Key("r")
        .Alias("s")
        .Required()
        .Range(1, 2)
        .Length(1, 2)
        .Doc("d")
        .Unit("u")
        .Flatten()
        .ReadOnly()
        .WriteOnly()
        .OmitIfDefault()
        .NotOwned()
        .KeepsUnknown();
}
VEXA_DESCRIBE(Ring, link, value)

TEST(Notes, AreTakenOnceOfClassesThatLeadBackToOneAnother)
{
    const vexa::typeinfo::CClassNotes& notes = *vexa::typeinfo::NotesOf(vexa::ClassInforOf<Link>());
    EXPECT_EQ(notes.Checks.size(), 1u);
    EXPECT_EQ(notes.Tag, "kind");
    EXPECT_EQ(notes.TagValue, "link");
    EXPECT_EQ(TextOf(vexa::ClassInforOf<Link>()),
              "r: =s required readonly writeonly omit >=1 <=2 from 1 to 2 \"d\" [u]\n");
}

} // namespace notes
