// Classes that need each other: their descriptors are complete, whichever is asked for first.
//
// Each arrangement is a template, so that there is one pair of classes for each order. What is asked for first, is
// asked before the descriptions below take effect by themselves.

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

namespace registration_order {

enum Order { FIRST, SECOND };

/// Refer to each other.
template<Order>
struct Right;
template<Order ORDER>
struct Left {
    int l = 1;
    Right<ORDER>* right = nullptr;
    std::vector<Right<ORDER>> rights;
};
template<Order ORDER>
struct Right {
    int r = 2;
    Left<ORDER>* left = nullptr;
    std::map<std::string, Left<ORDER>> lefts;
};

/// Holds a container of itself.
template<Order>
struct Tree {
    int t = 3;
    std::list<Tree> children;
    std::map<std::string, Tree> named;
    std::unique_ptr<Tree> next;
};

/// The base points to a class derived from it.
template<Order>
struct Group;
template<Order ORDER>
struct Node {
    int n = 4;
    Group<ORDER>* parent = nullptr;
};
template<Order ORDER>
struct Group : Node<ORDER> {
    int g = 5;
};

/// The part points back to the whole that holds it by value.
template<Order>
struct Whole;
template<Order ORDER>
struct Part {
    int p = 6;
    Whole<ORDER>* whole = nullptr;
};
template<Order ORDER>
struct Whole {
    int w = 7;
    Part<ORDER> part;
    vexa::MayNull<Part<ORDER>> mayNull;
};

/// Three in a ring: a base, a whole and a pointer.
template<Order>
struct Ring;
template<Order ORDER>
struct Link {
    int k = 8;
    std::vector<Ring<ORDER>> rings;
};
template<Order ORDER>
struct Holds {
    Link<ORDER> link;
    int h = 9;
};
template<Order ORDER>
struct Ring : Holds<ORDER> {
    int r = 10;
};

// What is first, before the descriptions.
const vexa::CClassInfor& g_left = vexa::ClassInforOf<Left<FIRST>>();
const vexa::CClassInfor& g_right = vexa::ClassInforOf<Right<SECOND>>();
const vexa::CClassInfor& g_tree = vexa::ClassInforOf<Tree<FIRST>>();
const vexa::CGnlTypeInfor& g_trees = vexa::TypeInforOf<std::list<Tree<SECOND>>>();
const vexa::CClassInfor& g_node = vexa::ClassInforOf<Node<FIRST>>();
const vexa::CClassInfor& g_group = vexa::ClassInforOf<Group<SECOND>>();
const vexa::CClassInfor& g_part = vexa::ClassInforOf<Part<FIRST>>();
const vexa::CClassInfor& g_whole = vexa::ClassInforOf<Whole<SECOND>>();
const vexa::CClassInfor& g_link = vexa::ClassInforOf<Link<FIRST>>();
const vexa::CClassInfor& g_ring = vexa::ClassInforOf<Ring<SECOND>>();

VEXA_DESCRIBE(Left<FIRST>, l, right, rights)
VEXA_DESCRIBE(Left<SECOND>, l, right, rights)
VEXA_DESCRIBE(Right<FIRST>, r, left, lefts)
VEXA_DESCRIBE(Right<SECOND>, r, left, lefts)
VEXA_DESCRIBE(Tree<FIRST>, t, children, named, next)
VEXA_DESCRIBE(Tree<SECOND>, t, children, named, next)
VEXA_DESCRIBE(Node<FIRST>, n, parent)
VEXA_DESCRIBE(Node<SECOND>, n, parent)
VEXA_DESCRIBE(Part<FIRST>, p, whole)
VEXA_DESCRIBE(Part<SECOND>, p, whole)
VEXA_DESCRIBE(Whole<FIRST>, w, part, mayNull)
VEXA_DESCRIBE(Whole<SECOND>, w, part, mayNull)
VEXA_DESCRIBE(Link<FIRST>, k, rings)
VEXA_DESCRIBE(Link<SECOND>, k, rings)
VEXA_DESCRIBE(Holds<FIRST>, link, h)
VEXA_DESCRIBE(Holds<SECOND>, link, h)

VEXA_DESCRIBE_CLASS(Group<FIRST>)
{
    about.Base<Node<FIRST>>();
    about.Attrib("g", &Group<FIRST>::g);
}
VEXA_DESCRIBE_CLASS(Group<SECOND>)
{
    about.Base<Node<SECOND>>();
    about.Attrib("g", &Group<SECOND>::g);
}
VEXA_DESCRIBE_CLASS(Ring<FIRST>)
{
    about.Base<Holds<FIRST>>();
    about.Attrib("r", &Ring<FIRST>::r);
}
VEXA_DESCRIBE_CLASS(Ring<SECOND>)
{
    about.Base<Holds<SECOND>>();
    about.Attrib("r", &Ring<SECOND>::r);
}

} // namespace registration_order

namespace {

using namespace registration_order;

std::string NamesOf(const vexa::CClassInfor& infor)
{
    std::string names;
    for (const vexa::CAttribInfor& record : infor.AttribList)
        names += record.Name + ' ';
    return names;
}

/// The detailed descriptor that an attribute designates.
const vexa::CTypeInforBase* DetailOf(const vexa::CClassInfor& infor, const char* name)
{
    return infor.AttribNameMap.at(name)->TypeInfor.DetailInfor;
}
const vexa::CGnlTypeInfor& ElementOf(const vexa::CClassInfor& infor, const char* name)
{
    return static_cast<const vexa::CContainerInfor*>(DetailOf(infor, name))->ElementType;
}

/// The class of a map's values.
const vexa::CTypeInforBase* MappedOf(const vexa::CClassInfor& infor, const char* name)
{
    return DetailOf(*static_cast<const vexa::CClassInfor*>(ElementOf(infor, name).DetailInfor), "second");
}

/// The offset of a member.
template<class Object, class Member>
std::string At(const Object& object, const Member& member)
{
    return '@' + std::to_string(reinterpret_cast<const char*>(&member) - reinterpret_cast<const char*>(&object));
}

template<Order ORDER>
void ExpectMutualIsComplete()
{
    const vexa::CClassInfor& left = vexa::ClassInforOf<Left<ORDER>>();
    const vexa::CClassInfor& right = vexa::ClassInforOf<Right<ORDER>>();
    EXPECT_EQ(NamesOf(left), "l right rights ");
    EXPECT_EQ(NamesOf(right), "r left lefts ");
    EXPECT_EQ(DetailOf(left, "right"), &right);
    EXPECT_EQ(ElementOf(left, "rights").DetailInfor, &right);
    EXPECT_EQ(DetailOf(right, "left"), &left);
    EXPECT_EQ(MappedOf(right, "lefts"), &left);
    Left<ORDER> object;
    EXPECT_EQ(vexa::FromJson(object, R"({"rights":[{"r":1,"lefts":[{"first":"a","second":{"l":2}}]}]})"), 0);
    EXPECT_EQ(object.rights.at(0).lefts.at("a").l, 2);
}

TEST(RegistrationOrder, OfTwoThatReferToEachOther)
{
    EXPECT_EQ(&g_left, &vexa::ClassInforOf<Left<FIRST>>());
    EXPECT_EQ(&g_right, &vexa::ClassInforOf<Right<SECOND>>());
    ExpectMutualIsComplete<FIRST>();
    ExpectMutualIsComplete<SECOND>();
}

template<Order ORDER>
void ExpectTreeIsComplete()
{
    const vexa::CClassInfor& tree = vexa::ClassInforOf<Tree<ORDER>>();
    EXPECT_EQ(NamesOf(tree), "t children named next ");
    EXPECT_EQ(vexa_test::FlatNamesOf(tree), "children@8 named@32 t@0 ");
    EXPECT_EQ(ElementOf(tree, "children").DetailInfor, &tree);
    EXPECT_EQ(MappedOf(tree, "named"), &tree);
    EXPECT_EQ(DetailOf(tree, "next"), &tree);
    EXPECT_EQ(vexa::TypeInforOf<std::list<Tree<ORDER>>>().DetailInfor, DetailOf(tree, "children"));
    const std::string text = R"({"t":1,"children":[{"t":2,"children":[],"named":[]}],)"
                             R"("named":[{"first":"a","second":{"t":3,"children":[],"named":[]}}],)"
                             R"("next":{"t":4,"children":[],"named":[]}})";
    EXPECT_EQ(vexa_test::ReadBack<Tree<ORDER>>(text), text);
}

TEST(RegistrationOrder, OfAClassWithContainersOfItself)
{
    EXPECT_EQ(&g_tree, &vexa::ClassInforOf<Tree<FIRST>>());
    EXPECT_EQ(g_trees.TypeName(), "std::list<Tree<SECOND>>");
    ExpectTreeIsComplete<FIRST>();
    ExpectTreeIsComplete<SECOND>();
}

template<Order ORDER>
void ExpectBaseAndDerivedAreComplete()
{
    const vexa::CClassInfor& node = vexa::ClassInforOf<Node<ORDER>>();
    const vexa::CClassInfor& group = vexa::ClassInforOf<Group<ORDER>>();
    EXPECT_EQ(NamesOf(node), "n parent ");
    EXPECT_EQ(NamesOf(group), "n parent g ");
    EXPECT_EQ(DetailOf(node, "parent"), &group);
    EXPECT_EQ(DetailOf(group, "parent"), &group);
    const Group<ORDER> object;
    EXPECT_EQ(vexa_test::FlatNamesOf(group), "g" + At(object, object.g) + " n@0 ");
    EXPECT_NE(node.FindAttribInforByFlatName("n"), nullptr);
}

TEST(RegistrationOrder, OfABaseThatPointsToAClassDerivedFromIt)
{
    EXPECT_EQ(&g_node, &vexa::ClassInforOf<Node<FIRST>>());
    EXPECT_EQ(&g_group, &vexa::ClassInforOf<Group<SECOND>>());
    ExpectBaseAndDerivedAreComplete<FIRST>();
    ExpectBaseAndDerivedAreComplete<SECOND>();
}

template<Order ORDER>
void ExpectWholeAndPartAreComplete()
{
    const vexa::CClassInfor& part = vexa::ClassInforOf<Part<ORDER>>();
    const vexa::CClassInfor& whole = vexa::ClassInforOf<Whole<ORDER>>();
    EXPECT_EQ(NamesOf(part), "p whole ");
    EXPECT_EQ(NamesOf(whole), "w part mayNull ");
    EXPECT_EQ(DetailOf(part, "whole"), &whole);
    EXPECT_EQ(DetailOf(whole, "part"), &part);
    EXPECT_EQ(DetailOf(whole, "mayNull"), &part);
    const Whole<ORDER> object;
    // The flat index takes no account of where the value lies inside its wrapper.
    EXPECT_EQ(whole.FindAttribInforByFlatName("part.p")->Offset, std::stoul(At(object, object.part.p).substr(1)));
    EXPECT_EQ(whole.FindAttribInforByFlatName("mayNull.p")->Offset, std::stoul(At(object, object.mayNull).substr(1)));
}

TEST(RegistrationOrder, OfAPartThatPointsBackToItsWhole)
{
    EXPECT_EQ(&g_part, &vexa::ClassInforOf<Part<FIRST>>());
    EXPECT_EQ(&g_whole, &vexa::ClassInforOf<Whole<SECOND>>());
    ExpectWholeAndPartAreComplete<FIRST>();
    ExpectWholeAndPartAreComplete<SECOND>();
}

template<Order ORDER>
void ExpectRingIsComplete()
{
    const vexa::CClassInfor& ring = vexa::ClassInforOf<Ring<ORDER>>();
    EXPECT_EQ(NamesOf(vexa::ClassInforOf<Link<ORDER>>()), "k rings ");
    EXPECT_EQ(NamesOf(vexa::ClassInforOf<Holds<ORDER>>()), "link h ");
    EXPECT_EQ(NamesOf(ring), "link h r ");
    EXPECT_EQ(ElementOf(vexa::ClassInforOf<Link<ORDER>>(), "rings").DetailInfor, &ring);
    const Ring<ORDER> object;
    EXPECT_EQ(vexa_test::FlatNamesOf(ring), "h" + At(object, object.h) + " link_k" + At(object, object.link.k) +
                                                " link_rings" + At(object, object.link.rings) + " r" +
                                                At(object, object.r) + ' ');
}

TEST(RegistrationOrder, OfThreeInARing)
{
    EXPECT_EQ(&g_link, &vexa::ClassInforOf<Link<FIRST>>());
    EXPECT_EQ(&g_ring, &vexa::ClassInforOf<Ring<SECOND>>());
    ExpectRingIsComplete<FIRST>();
    ExpectRingIsComplete<SECOND>();
}

} // namespace
