// What lies inside arrays and objects: looking for it, changing it.

#include <vexa/json_tree.h>

#include <algorithm>
#include <charconv>
#include <numeric>

#include "interchange/tree_access.h"

namespace vexa {

std::size_t CJsonTree::Size() const noexcept
{
    if (IsArray()) return m_elements.size();
    return IsObject() ? m_members.size() : 0;
}

CJsonRange<CJsonTree> CJsonTree::Elements() noexcept
{
    if (!IsArray()) return {};
    return {m_elements.data(), m_elements.size()};
}

CJsonRange<const CJsonTree> CJsonTree::Elements() const noexcept
{
    if (!IsArray()) return {};
    return {m_elements.data(), m_elements.size()};
}

CJsonRange<CJsonTree::CMember> CJsonTree::Members() noexcept
{
    if (!IsObject()) return {};
    return {m_members.data(), m_members.size()};
}

CJsonRange<const CJsonTree::CMember> CJsonTree::Members() const noexcept
{
    if (!IsObject()) return {};
    return {m_members.data(), m_members.size()};
}

const CJsonTree* CJsonTree::Member(std::string_view key) const noexcept
{
    for (const CMember& member : Members())
        if (member.Key() == key) return &member.Value;
    return nullptr;
}

CJsonTree* CJsonTree::Member(std::string_view key) noexcept
{
    return const_cast<CJsonTree*>(static_cast<const CJsonTree&>(*this).Member(key));
}

CJsonTree& CJsonTree::operator[](std::string_view key)
{
    if (!IsObject()) Become(JsonKind::OBJECT);
    if (CJsonTree* const value = Member(key)) return *value;
    return m_members.emplace_back(key).Value;
}

const CJsonTree& CJsonTree::operator[](std::string_view key) const noexcept
{
    static const CJsonTree NOTHING;
    const CJsonTree* const value = Member(key);
    return value != nullptr ? *value : NOTHING;
}

CJsonTree& CJsonTree::Set(std::string_view key, CJsonTree value)
{
    CJsonTree& place = (*this)[key];
    place.Swap(value);
    return place;
}

CJsonTree& CJsonTree::Append(CJsonTree value)
{
    if (!IsArray()) Become(JsonKind::ARRAY);
    return m_elements.emplace_back(std::move(value));
}

bool CJsonTree::Remove(std::string_view key) noexcept
{
    CJsonTree* const value = Member(key);
    if (value == nullptr) return false;
    const auto isIt = [&](const CMember& member) { return &member.Value == value; };
    m_members.erase(std::find_if(m_members.begin(), m_members.end(), isIt));
    return true;
}

bool CJsonTree::Remove(std::size_t index) noexcept
{
    if (!IsArray() || index >= m_elements.size()) return false;
    m_elements.erase(m_elements.begin() + static_cast<std::ptrdiff_t>(index));
    return true;
}

namespace {

using Node = const CJsonTree*;

/// The element of a number without leading zeros, which is all of the text.
Node ElementAt(Node node, std::string_view number) noexcept
{
    std::size_t index = 0;
    const char* const end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, index);
    const bool isPlain = number.size() < 2 || number[0] != '0';
    const bool isIndex = error == std::errc() && stop == end && isPlain && node->IsArray();
    return isIndex && index < node->Size() ? &(*node)[index] : nullptr;
}

/// Whether a key is what a token of a JSON Pointer says, which has ~1 for / and ~0 for ~.
bool IsToken(std::string_view key, std::string_view token) noexcept
{
    std::size_t at = 0;
    for (std::size_t i = 0; i < token.size(); ++i, ++at) {
        char wanted = token[i];
        if (wanted == '~') {
            if (++i == token.size() || (token[i] != '0' && token[i] != '1')) return false;
            wanted = token[i] == '1' ? '/' : '~';
        }
        if (at >= key.size() || key[at] != wanted) return false;
    }
    return at == key.size();
}

Node StepByToken(Node node, std::string_view token) noexcept
{
    if (node->IsArray()) return ElementAt(node, token);
    for (const CJsonTree::CMember& member : node->Members())
        if (IsToken(member.Key(), token)) return &member.Value;
    return nullptr;
}

Node FindByPointer(Node node, std::string_view pointer) noexcept
{
    while (node != nullptr && !pointer.empty()) {
        const std::size_t end = std::min(pointer.find('/', 1), pointer.size());
        node = StepByToken(node, pointer.substr(1, end - 1));
        pointer.remove_prefix(end);
    }
    return node;
}

/// `a.b[0].c`: names with dots between them, each followed by any number of indexes.
Node FindByNames(Node node, std::string_view path) noexcept
{
    bool isFirst = true;
    while (node != nullptr && !path.empty()) {
        if (path[0] == '[') {
            const std::size_t end = path.find(']');
            if (end == path.npos) return nullptr;
            node = ElementAt(node, path.substr(1, end - 1));
            path.remove_prefix(end + 1);
        } else {
            if (!isFirst && path[0] != '.') return nullptr;
            path.remove_prefix(isFirst ? 0 : 1);
            const std::size_t end = std::min(path.find_first_of(".["), path.size());
            node = node->Member(path.substr(0, end));
            path.remove_prefix(end);
        }
        isFirst = false;
    }
    return node;
}

} // namespace

const CJsonTree* CJsonTree::Find(std::string_view path) const noexcept
{
    return !path.empty() && path[0] == '/' ? FindByPointer(this, path) : FindByNames(this, path);
}

CJsonTree* CJsonTree::Find(std::string_view path) noexcept
{
    return const_cast<CJsonTree*>(static_cast<const CJsonTree&>(*this).Find(path));
}

namespace {

using Members = std::vector<CJsonTree::CMember>;

/// Looks at each pair of members: for few of them.
bool HasDuplicate(const Members& members) noexcept
{
    for (std::size_t i = 1; i < members.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (members[i].Key() == members[j].Key()) return true;
    return false;
}

/// Moves the last value of each key to its first place. \return which members are left over. After sorting those of one
/// key stand together in their order.
std::vector<bool> MoveLastToFirst(Members& members)
{
    std::vector<std::size_t> order(members.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        const int difference = members[left].Key().compare(members[right].Key());
        return difference != 0 ? difference < 0 : left < right;
    });
    std::vector<bool> isLeft(members.size());
    std::size_t first = 0;
    for (std::size_t i = 1; i < order.size(); ++i) {
        isLeft[order[i]] = members[order[i]].Key() == members[order[first]].Key();
        if (isLeft[order[i]])
            members[order[first]].Value.Swap(members[order[i]].Value);
        else
            first = i;
    }
    return isLeft;
}

} // namespace

void detail::CTreeAccess::DropDuplicates(CJsonTree& object)
{
    constexpr std::size_t FEW = 16;
    Members& members = object.m_members;
    if (members.size() <= FEW && !HasDuplicate(members)) return;
    const std::vector<bool> isLeft = MoveLastToFirst(members);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (isLeft[i]) continue;
        if (kept != i) members[kept] = std::move(members[i]);
        ++kept;
    }
    members.erase(members.begin() + static_cast<std::ptrdiff_t>(kept), members.end());
}

} // namespace vexa
