// Whatever the description headers do, an application can do by hand through the compiled interface: one class is
// described both ways, and nobody can tell the two apart.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <vexa/vexa.h>

#include "acceptance/hand_made_class.h"

namespace {

using namespace vexa::Enum;
using namespace hand_made;

std::string TypeText(const CGnlTypeInfor& type)
{
    return type.TypeName() + ' ' + std::to_string(type.DataType) + ' ' + std::to_string(type.HoldingFlags) + ' ' +
           std::to_string(type.NullFlagOffset) + ' ' + std::to_string(type.ValueOffset) +
           (type.DetailInfor != nullptr ? " detail" : "") + ' ' + std::to_string(type.Sizeof());
}

/// Every field of a record; of pointers to other records, their names.
std::string RecordText(const CAttribInfor& record)
{
    return record.Name + ": " + TypeText(record.TypeInfor) + " @" + std::to_string(record.Offset) + " #" +
           std::to_string(record.Sequence) + " id " + std::to_string(record.AttribID) + " union " +
           std::to_string(record.UnionAttribEnum) + ' ' +
           (record.UnionSelector != nullptr ? record.UnionSelector->Name : "none") + " inherited " +
           std::to_string(unsigned{record.IsInherited}) + " access " + std::to_string(unsigned{record.Access}) +
           " masked " + std::to_string(unsigned{record.IsMasked}) + '\n';
}

std::string ListText(const CClassInfor& infor)
{
    std::string text = infor.Name + ' ' + std::to_string(infor.Size) + ' ' + std::to_string(infor.CustomTypeID) + '\n';
    for (const CAttribInfor& record : infor.AttribList)
        text += RecordText(record);
    return text;
}

std::string FlatText(const CClassInfor& infor)
{
    std::string text;
    for (const auto& [key, entry] : infor.FlatAttribMap) {
        text +=
            key + ' ' + entry.FlatName + " @" + std::to_string(entry.Offset) + ' ' + entry.AttribInfor->Name + " path";
        if (entry.PointerPath != nullptr) {
            for (const CAttribInfor* const pointer : *entry.PointerPath)
                text += ' ' + pointer->Name;
        }
        text += '\n';
    }
    return text;
}

std::string MapText(const vexa::CAttribIDMap& map)
{
    std::string text;
    for (const CAttribInfor* const record : map.DirectTable)
        text += (record != nullptr ? record->Name : "-") + ' ';
    for (const auto& [key, record] : map.OtherIDs)
        text += std::to_string(key) + '=' + record->Name + ' ';
    return text;
}

/// A filled object of the class.
std::unique_ptr<Whole> Filled(const Part& seen)
{
    auto object = std::make_unique<Whole>();
    object->owned = std::make_unique<Part>();
    object->seen = &seen;
    object->kind = 1;
    object->rate = 0.5;
    return object;
}

TEST(HandMadeEqualsDescribed, EveryRecord)
{
    const std::string described = ListText(vexa::ClassInforOf<Whole>());
    EXPECT_EQ(ListText(WholeByHand()), described);
    EXPECT_NE(described.find("secret: std::string 41 0 0 0 32 @"), std::string::npos);
    EXPECT_EQ(ListText(PartByHand()), ListText(vexa::ClassInforOf<Part>()));
    EXPECT_EQ(ListText(BaseByHand()), ListText(vexa::ClassInforOf<Base>()));
}

TEST(HandMadeEqualsDescribed, EveryIndex)
{
    const CClassInfor& described = vexa::ClassInforOf<Whole>();
    EXPECT_EQ(FlatText(WholeByHand()), FlatText(described));
    EXPECT_NE(FlatText(described).find("owned_x owned_x @0 x path owned\n"), std::string::npos);
    EXPECT_EQ(MapText(WholeByHand().AttribIDMap()), MapText(described.AttribIDMap()));
    EXPECT_EQ(MapText(described.AttribIDMap()), "- name 70=mayNull ");
    EXPECT_EQ(MapText(WholeByHand().UnionAttribEnumMap()), MapText(described.UnionAttribEnumMap()));
    EXPECT_EQ(MapText(described.UnionAttribEnumMap()), "code rate ");
}

TEST(HandMadeEqualsDescribed, EveryContainerOperation)
{
    const CGnlTypeInfor& type = vexa::TypeInforOf<Numbers>();
    const auto& described = *static_cast<const CContainerInfor*>(type.DetailInfor);
    const CContainerInfor& made = NumbersByHand();
    EXPECT_EQ(made.TypeName(), described.TypeName());
    EXPECT_EQ(made.Size, described.Size);
    EXPECT_EQ(TypeText(made.ElementType), TypeText(described.ElementType));
    const auto slots = [](const CContainerInfor& infor) {
        return std::string{infor.Append != nullptr ? 'x' : '-',   infor.Reserved2 != nullptr ? 'x' : '-',
                           infor.Insert != nullptr ? 'x' : '-',   infor.Clear != nullptr ? 'x' : '-',
                           infor.Count != nullptr ? 'x' : '-',    infor.Begin != nullptr ? 'x' : '-',
                           infor.Release != nullptr ? 'x' : '-',  infor.Reserved8 != nullptr ? 'x' : '-',
                           infor.Next != nullptr ? 'x' : '-',     infor.RBegin != nullptr ? 'x' : '-',
                           infor.RRelease != nullptr ? 'x' : '-', infor.RNext != nullptr ? 'x' : '-'};
    };
    EXPECT_EQ(slots(made), slots(described));
    EXPECT_EQ(slots(described), "x--xxxx-xxxx");
}

TEST(HandMadeEqualsDescribed, TheText)
{
    const Part seen;
    const auto object = Filled(seen);
    for (const auto format : {ASF_VALUE, ASF_TYPE_AND_VALUE, ASF_TYPE_ONLY}) {
        EXPECT_EQ(vexa::AsString(ByHand(*object), format), vexa::AsString(*object, format));
    }
    EXPECT_EQ(vexa::AsString(*object),
              "\nid: 2\nname: whole\nmayNull: 3\npart: \n  x: 1\n  text: t\nowned: \n  x: 1\n  text: t\nseen: \n  x: 1"
              "\n  text: t\nnext: NULL\nnumbers: \n  - 4\n  - 5\nkind: 1\nrate: 0.500000\nsecret: ***");
}

TEST(HandMadeEqualsDescribed, TheJson)
{
    const Part seen;
    const auto object = Filled(seen);
    std::string made;
    std::string described;
    EXPECT_EQ(vexa::ToJson(made, ByHand(*object)), 0);
    EXPECT_EQ(vexa::ToJson(described, *object), 0);
    EXPECT_EQ(made, described);
    EXPECT_EQ(described, R"({"id":2,"name":"whole","mayNull":3,"part":{"x":1,"text":"t"},"owned":{"x":1,"text":"t"},)"
                         R"("seen":{"x":1,"text":"t"},"numbers":[4,5],"kind":1,"rate":0.500000,"secret":"s"})");
}

/// The code, and what the object then is.
std::string ReadText(Whole& object, int code)
{
    std::string text = std::to_string(code) + vexa::AsString(object);
    if (object.next != nullptr) text += vexa::AsString(*object.next);
    vexa::RefOf(object).Clear(); // frees the raw pointer, too
    return text;
}

TEST(HandMadeEqualsDescribed, ReadingJson)
{
    for (const char* const text :
         {R"({"id":9,"name":"n","mayNull":8,"part":{"text":"p"},"owned":{"x":7},"numbers":[1,2,3],"kind":1,"rate":4})",
          R"({"next":{"name":"inner","next":{"id":1}},"secret":"z"})", R"({"seen":{"x":1}})", R"({"name":1})",
          R"({"numbers":[1,}])", R"({"unknown":1})", "[]", "", R"({"mayNull":1} more)"}) {
        Whole first;
        Whole second;
        vexa::CRefrence ref = ByHand(first);
        const int code = vexa::FromJson(ref, text);
        const std::string made = ReadText(first, code);
        EXPECT_EQ(made, ReadText(second, vexa::FromJson(second, text))) << text;
    }
}

TEST(HandMadeEqualsDescribed, EveryLookup)
{
    Whole object;
    const vexa::CRefrence made = ByHand(object);
    const vexa::CRefrence described = vexa::RefOf(object);
    vexa::CConstRefrence first;
    vexa::CConstRefrence second;
    for (const char* const name : {"id", "name", "numbers", "secret", "rate"}) {
        ASSERT_TRUE(made.AsClass().FindAttribByName(first, name));
        ASSERT_TRUE(described.AsClass().FindAttribByName(second, name));
        EXPECT_EQ(first.Address, second.Address);
        EXPECT_EQ(TypeText(first.TypeInfor), TypeText(second.TypeInfor));
    }
    for (const char* const name : {"part.x", "part_text", "owned.text", "kind"}) {
        ASSERT_TRUE(made.AsClass().FindAttribByFlatName(first, name));
        ASSERT_TRUE(described.AsClass().FindAttribByFlatName(second, name));
        EXPECT_EQ(first.Address, second.Address);
    }
    for (short id = -1; id < 100; ++id) {
        EXPECT_EQ(made.AsClass().FindAttribByID(first, id), described.AsClass().FindAttribByID(second, id)) << id;
        EXPECT_EQ(made.AsClass().FindAttribByUnionAttribEnum(first, id),
                  described.AsClass().FindAttribByUnionAttribEnum(second, id))
            << id;
    }
    EXPECT_FALSE(made.AsClass().FindAttribByName(first, "nowhere"));
    EXPECT_FALSE(described.AsClass().FindAttribByName(second, "nowhere"));
}

TEST(HandMadeEqualsDescribed, ClearingAndMaking)
{
    const Part seen;
    const auto first = Filled(seen);
    const auto second = Filled(seen);
    vexa::CRefrence made = ByHand(*first);
    made.Clear();
    vexa::RefOf(*second).Clear();
    EXPECT_EQ(vexa::AsString(*first), vexa::AsString(*second));

    const CGnlTypeInfor type(DT_CLASS, 0, &WholeByHand());
    void* object = type.New();
    EXPECT_EQ(vexa::AsString(vexa::CConstRefrence(type, object)), vexa::AsString(Whole()));
    type.Delete(object);
    EXPECT_EQ(object, nullptr);
}

} // namespace
