// Comparing trees, without recursion.

#include <vexa/json_tree.h>

#include <algorithm>

#include "interchange/tree_number.h"

namespace vexa {
namespace {

using Tree = CJsonTree;
using Member = CJsonTree::CMember;

/// Pairs of values that are still to be compared.
struct CPair {
    const Tree* Left;
    const Tree* Right;
};
using Pairs = std::vector<CPair>;

/// Of two values without looking inside.
bool IsSameOutside(const Tree& left, const Tree& right, bool isExact)
{
    if (left.Kind() != right.Kind() || left.Size() != right.Size()) return false;
    if (left.AsBool() != right.AsBool() || left.AsText() != right.AsText()) return false;
    if (!left.IsNumber() || left.AsDigits() == right.AsDigits()) return true;
    return !isExact && interchange::IsSameNumber(*left.AsDigits(), *right.AsDigits());
}

bool AddMembers(Pairs& pairs, const Member* const* left, const Member* const* right, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i) {
        if (left[i]->Key() != right[i]->Key()) return false;
        pairs.push_back({&left[i]->Value, &right[i]->Value});
    }
    return true;
}

std::vector<const Member*> MembersOf(const Tree& object, bool isSorted)
{
    std::vector<const Member*> members;
    members.reserve(object.Size());
    for (const Member& member : object.Members())
        members.push_back(&member);
    const auto isBefore = [](const Member* left, const Member* right) { return left->Key() < right->Key(); };
    if (isSorted) std::sort(members.begin(), members.end(), isBefore);
    return members;
}

bool IsSame(const Tree& leftRoot, const Tree& rightRoot, bool isExact)
{
    Pairs pairs{{&leftRoot, &rightRoot}};
    while (!pairs.empty()) {
        const auto [left, right] = pairs.back();
        pairs.pop_back();
        if (!IsSameOutside(*left, *right, isExact)) return false;
        for (std::size_t i = 0; i < left->Elements().size(); ++i)
            pairs.push_back({&(*left)[i], &(*right)[i]});
        if (!left->IsObject()) continue;
        const auto leftMembers = MembersOf(*left, !isExact);
        if (!AddMembers(pairs, leftMembers.data(), MembersOf(*right, !isExact).data(), left->Size())) return false;
    }
    return true;
}

} // namespace

bool operator==(const CJsonTree& left, const CJsonTree& right) { return IsSame(left, right, false); }
bool CJsonTree::IsIdenticalTo(const CJsonTree& other) const { return IsSame(*this, other, true); }

} // namespace vexa
