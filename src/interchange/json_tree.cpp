// The life of a tree. Its depth is that of a text or whatever the application has built, so nothing here recurses.

#include <vexa/json_tree.h>

#include <new>

namespace vexa {

CJsonTree::CJsonTree(const char* text)
{
    if (text != nullptr) Become(JsonKind::TEXT, text);
}

CJsonTree::CJsonTree(std::string_view text) { Become(JsonKind::TEXT, std::string(text)); }

CJsonTree::CJsonTree(std::string text) noexcept { Become(JsonKind::TEXT, std::move(text)); }

CJsonTree::CJsonTree(const CJsonTree& other) : CJsonTree() { CopyFrom(other); }

CJsonTree::CJsonTree(CJsonTree&& other) noexcept { TakeFrom(other); }

CJsonTree& CJsonTree::operator=(const CJsonTree& other)
{
    CJsonTree copy(other);
    Swap(copy);
    return *this;
}

CJsonTree& CJsonTree::operator=(CJsonTree&& other) noexcept
{
    CJsonTree moved(std::move(other));
    Swap(moved);
    return *this;
}

CJsonTree::~CJsonTree()
{
    if (Size() != 0) ReleaseInside();
    DestroyContents();
}

void CJsonTree::Swap(CJsonTree& other) noexcept
{
    CJsonTree held;
    held.TakeFrom(other);
    other.TakeFrom(*this);
    TakeFrom(held);
}

CJsonTree CJsonTree::Array(std::initializer_list<CJsonTree> elements)
{
    CJsonTree array;
    array.Become(JsonKind::ARRAY);
    array.m_elements.assign(elements);
    return array;
}

CJsonTree CJsonTree::Object(std::initializer_list<CMember> members)
{
    CJsonTree object;
    object.Become(JsonKind::OBJECT);
    for (const CMember& member : members)
        object.Set(member.Key(), member.Value);
    return object;
}

void CJsonTree::Clear() noexcept
{
    CJsonTree held;
    held.TakeFrom(*this);
}

void CJsonTree::Become(JsonKind kind) noexcept
{
    Clear();
    if (kind == JsonKind::TEXT || kind == JsonKind::NUMBER) new (&m_text) std::string();
    if (kind == JsonKind::ARRAY) new (&m_elements) std::vector<CJsonTree>();
    if (kind == JsonKind::OBJECT) new (&m_members) std::vector<CMember>();
    m_kind = kind;
}

void CJsonTree::Become(JsonKind kind, std::string text) noexcept
{
    Clear();
    new (&m_text) std::string(std::move(text));
    m_kind = kind;
}

void CJsonTree::SetBool(bool value) noexcept
{
    Become(JsonKind::BOOL);
    m_bool = value;
}

/// This one is null; \p other becomes so.
void CJsonTree::TakeFrom(CJsonTree& other) noexcept
{
    switch (other.m_kind) {
    case JsonKind::NULL_VALUE: return;
    case JsonKind::BOOL: m_bool = other.m_bool; break;
    case JsonKind::NUMBER:
    case JsonKind::TEXT: new (&m_text) std::string(std::move(other.m_text)); break;
    case JsonKind::ARRAY: new (&m_elements) std::vector<CJsonTree>(std::move(other.m_elements)); break;
    case JsonKind::OBJECT: new (&m_members) std::vector<CMember>(std::move(other.m_members)); break;
    }
    m_kind = other.m_kind;
    other.DestroyContents();
}

/// Nothing lies inside, or only what ends by itself.
void CJsonTree::DestroyContents() noexcept
{
    switch (m_kind) {
    case JsonKind::NULL_VALUE:
    case JsonKind::BOOL: break;
    case JsonKind::NUMBER:
    case JsonKind::TEXT: m_text.~basic_string(); break;
    case JsonKind::ARRAY: m_elements.~vector(); break;
    case JsonKind::OBJECT: m_members.~vector(); break;
    }
    m_kind = JsonKind::NULL_VALUE;
}

CJsonTree& CJsonTree::Inside(std::size_t index) noexcept
{
    return IsArray() ? m_elements[index] : m_members[index].Value;
}

/// Releases what is inside from the last to the first, without recursion and without memory. On the way into a value
/// the rest of its holder is hung in the place of the value's first, which goes where the value was.
void CJsonTree::ReleaseInside() noexcept
{
    CJsonTree current;
    current.TakeFrom(*this);
    while (current.Size() != 0) {
        CJsonTree& last = current.Inside(current.Size() - 1);
        if (last.Size() == 0) {
            current.IsArray() ? current.m_elements.pop_back() : current.m_members.pop_back();
            continue;
        }
        CJsonTree inner;
        inner.TakeFrom(last);
        if (current.Size() != 1) {
            CJsonTree& first = inner.Inside(0);
            last.TakeFrom(first);
            first.TakeFrom(current);
        } else {
            current.Inside(0).DestroyContents();
            current.DestroyContents();
        }
        current.TakeFrom(inner);
    }
    current.DestroyContents();
}

namespace {

/// A value of which the copy is still empty.
struct CCopy {
    const CJsonTree* From;
    CJsonTree* To;
};

} // namespace

void CJsonTree::CopyFrom(const CJsonTree& other)
{
    std::vector<CCopy> left{{&other, this}};
    while (!left.empty()) {
        const auto [from, to] = left.back();
        left.pop_back();
        switch (from->m_kind) {
        case JsonKind::NULL_VALUE: break;
        case JsonKind::BOOL: to->SetBool(from->m_bool); break;
        case JsonKind::NUMBER:
        case JsonKind::TEXT: to->Become(from->m_kind, from->m_text); break;
        case JsonKind::ARRAY:
            to->Become(JsonKind::ARRAY);
            to->m_elements.resize(from->m_elements.size());
            for (std::size_t i = 0; i < to->m_elements.size(); ++i)
                left.push_back({&from->m_elements[i], &to->m_elements[i]});
            break;
        case JsonKind::OBJECT:
            to->Become(JsonKind::OBJECT);
            to->m_members.reserve(from->m_members.size());
            for (const CMember& member : from->m_members)
                left.push_back({&member.Value, &to->m_members.emplace_back(member.Key()).Value});
            break;
        }
    }
}

} // namespace vexa
