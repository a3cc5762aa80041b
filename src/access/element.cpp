#include "access/element.h"

#include <cstring>

#include "core/basic_types.h"
#include "interchange/nearest.h"
#include "interchange/path.h"
#include "interchange/read_key.h"
#include "interchange/read_phrase.h"

namespace vexa::access {

using detail::ShapeKind;

CCursor::CCursor(const CContainerInfor& infor, char* container) : m_infor(infor), m_container(container)
{
    if (infor.Begin == nullptr || infor.Next == nullptr || infor.Release == nullptr) return;
    m_cursor = infor.Begin(container, &m_element);
    if (m_cursor == nullptr) m_element = nullptr;
}

CCursor::~CCursor()
{
    if (m_cursor != nullptr) m_infor.Release(m_cursor);
}

char* ElementAt(const interchange::CContainerForm& form, const CContainerInfor& infor, char* container,
                unsigned long index, unsigned long& count)
{
    if (form.IsVector || form.IsSlots) {
        const auto [first, last] = detail::ElementsOf(form.IsVector, infor.Size, container);
        count = static_cast<unsigned long>(last - first) / form.Stride;
        return index < count ? first + index * form.Stride : nullptr;
    }
    count = 0;
    CCursor cursor(infor, container);
    for (; cursor.Element() != nullptr && count < index; cursor.Next())
        ++count;
    return cursor.Element();
}

bool IsTextKey(const CForm& key) noexcept
{
    if (key.Kind == FormKind::SHAPE) return key.Shape->Kind == ShapeKind::TEXT;
    return key.Code == Enum::DT_STD_STRING;
}

namespace {

/// \p memory holds it where the type does not itself.
std::string_view TextAt(const CForm& key, const char* entry, std::string& memory)
{
    const char* const place = entry + key.ValueOffset;
    if (key.Kind == FormKind::SHAPE) return key.ShapeOperations<detail::CTextOperations>().Get(place, memory);
    return *reinterpret_cast<const std::string*>(place);
}

unsigned long SizeOfKey(const CForm& key) { return key.Kind == FormKind::SHAPE ? 1 : key.Type->Sizeof(); }

bool FailName(const CForm& form, const CPathPart& part, CProblem& problem)
{
    const std::vector<std::string> names = interchange::NamesOf(*form.Enumeration);
    problem.Code = ProblemCode::UNKNOWN_NAME;
    problem.Expected = interchange::OneOf(names);
    problem.Found = interchange::ShownText(part.Text);
    problem.Nearest = interchange::NearestName(part.Text, names);
    return false;
}

} // namespace

bool CMapKey::Set(const CForm& form, const CPathPart& part, CProblem& problem)
{
    m_form = &form;
    problem.Code = ProblemCode::WRONG_KIND;
    if (IsTextKey(form)) {
        m_text = part.Text;
        problem.Expected = "a key in quotation marks";
        return part.Kind == PartKind::TEXT;
    }
    if (part.Kind == PartKind::NUMBER) {
        const ProblemCode code = interchange::SetIntegerKey(form, m_bytes, part.Text);
        problem.Expected.clear();
        problem.Code = ProblemCode::NO_ENTRY; // no key of the type can be that number
        return code == ProblemCode::NONE;
    }
    problem.Expected = "an integer key";
    const bool isName = part.Kind == PartKind::WORD || part.Kind == PartKind::TEXT;
    if (form.Enumeration == nullptr || !isName) return false;
    long long value = 0;
    if (!interchange::FindEnumerator(*form.Enumeration, part.Text, value)) return FailName(form, part, problem);
    std::memcpy(m_bytes, &value, sizeof value); // the least bytes come first
    return true;
}

bool CMapKey::IsOf(const char* entry) const
{
    if (!IsTextKey(*m_form)) return std::memcmp(entry + m_form->ValueOffset, m_bytes, SizeOfKey(*m_form)) == 0;
    std::string memory;
    return TextAt(*m_form, entry, memory) == m_text;
}

const void* CMapKey::Address() const noexcept
{
    if (m_form->Code == Enum::DT_STD_STRING) return &m_text;
    return IsTextKey(*m_form) ? nullptr : m_bytes;
}

std::string TextOfKey(const CForm& key, const char* entry)
{
    std::string text;
    if (IsTextKey(key)) {
        std::string memory;
        interchange::AppendQuoted(text, TextAt(key, entry, memory));
        return text;
    }
    long long number = key.Kind == FormKind::SHAPE ? core::Load<signed char>(entry + key.ValueOffset) : 0;
    core::VisitBasicType(key.Kind == FormKind::SHAPE ? 0 : key.Code, [&](auto type) {
        using T = typename decltype(type)::Type;
        if constexpr (std::is_integral_v<T>) {
            const T value = core::Load<T>(entry + key.ValueOffset);
            number = static_cast<long long>(value);
            if (std::is_unsigned_v<T>) text = std::to_string(value);
        }
    });
    if (key.Enumeration != nullptr) {
        const std::string_view name = detail::NameOfValue(*key.Enumeration, number);
        if (!name.empty()) return std::string(name);
    }
    return text.empty() ? std::to_string(number) : text;
}

char* EntryOf(const CContainerInfor& infor, char* map, const CMapKey& key)
{
    const typeinfo::CFinishedContainer* const finished = typeinfo::FinishedContainer(infor);
    const bool canFind = finished != nullptr && finished->FindKey != nullptr && key.Address() != nullptr;
    if (canFind) return static_cast<char*>(finished->FindKey(map, key.Address()));
    CCursor cursor(infor, map);
    while (cursor.Element() != nullptr && !key.IsOf(cursor.Element()))
        cursor.Next();
    return cursor.Element();
}

std::string NearestKey(const CContainerInfor& infor, char* map, const CForm& key, const std::string& wanted)
{
    constexpr int MOST = 1000;
    interchange::CNearestName nearest(wanted);
    if (!IsTextKey(key)) return {};
    CCursor cursor(infor, map);
    for (int i = 0; i < MOST && cursor.Element() != nullptr; cursor.Next(), ++i) {
        std::string memory;
        nearest.Offer(TextAt(key, cursor.Element(), memory));
    }
    return nearest.Name();
}

} // namespace vexa::access
