#ifndef VEXA_INTERCHANGE_WRITE_CONTAINER_H
#define VEXA_INTERCHANGE_WRITE_CONTAINER_H

#include <algorithm>
#include <utility>
#include <vector>

#include "core/decimal.h"
#include "interchange/write_basic.h"

/// \file
/// Containers: arrays, and objects of what maps hold by text, integer and enumeration keys.

namespace vexa::interchange {

/// Elements of a container, where its own operation can be relied on. For once out of line: GCC 12 sees a null
/// descriptor where there is none.
__attribute__((noinline)) inline std::size_t SizeOf(const CContainerConstRefrence& container)
{
    const bool isOurs = typeinfo::FinishedContainer(container.ContainerInfor()) != nullptr;
    return isOurs ? container.Count() : CEvent::UNKNOWN_SIZE;
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Container(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    CWriteFrame frame(outer, value, form.Type->DetailInfor);
    if (!IsEntered(frame, form.How == Held::POINTER)) return NotEntered(at, frame);
    const CContainerForm& inner = m_forms.Of(form.ContainerInfor());
    if (inner.IsVector || inner.IsSlots) return Contiguous(at, inner, form.ContainerInfor(), value, frame);
    return Elements(at, inner.Element, ContainerAt(form, value), frame);
}

/// The elements that the container's operations lead to.
template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Elements(Cursor at, const CForm& element,
                                                   const CContainerConstRefrence& container, CWriteFrame& frame)
{
    at = m_sink.BeginArray(at, SizeOf(container));
    std::size_t number = 0;
    for (const CConstRefrence& each : container) {
        frame.To(number++);
        at = Holder(m_sink.Element(at), element, each.Address, frame);
    }
    return m_sink.EndArray(at);
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Contiguous(Cursor at, const CContainerForm& form,
                                                     const CContainerInfor& infor, const char* container,
                                                     CWriteFrame& frame)
{
    const auto [first, last] = detail::ElementsOf(form.IsVector, infor.Size, container);
    at = m_sink.BeginArray(at, static_cast<unsigned long>(last - first) / form.Stride);
    const CForm& element = form.Element;
    const bool isDirect = element.How == Held::DIRECT;
    if (isDirect && element.Kind == FormKind::BASIC)
        at = BasicElements(at, element, first, last, form.Stride, frame);
    else if (isDirect && element.Kind == FormKind::CLASS)
        at = Objects(at, element, first, last, form.Stride, frame);
    else
        for (const char* next = first; next != last; next += form.Stride) {
            frame.To(static_cast<unsigned long>(next - first) / form.Stride);
            at = Holder(m_sink.Element(at), element, next, frame);
        }
    return m_sink.EndArray(at);
}

/// What the elements are is asked once. Integers need no way for a problem.
template<class Sink>
__attribute__((noinline)) typename Sink::Cursor
CWritingWalk<Sink>::BasicElements(Cursor at, const CForm& element, const char* first, const char* last,
                                  unsigned long stride, CWriteFrame& frame)
{
    first += element.ValueOffset;
    last += element.ValueOffset;
    frame.To(0);
    core::VisitBasicType(element.Code, [&](auto type) {
        using T = typename decltype(type)::Type;
        if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
            if (stride == sizeof(T)) {
                at = m_sink.Integers(at, first, last, T());
                return;
            }
        }
        for (; first != last; first += stride, ++frame.Index)
            at = Basic(type, m_sink.Element(at), first, frame);
    });
    return at;
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::Objects(Cursor at, const CForm& element,
                                                                            const char* first, const char* last,
                                                                            unsigned long stride, CWriteFrame& frame)
{
    const CClassForm& form = m_forms.Of(element.ClassInfor());
    frame.To(0);
    for (; first != last; first += stride, ++frame.Index) {
        const char* const object = first + element.ValueOffset;
        at = m_sink.Element(at);
        CWriteFrame inner(frame, object, form.Infor);
        if (!IsEntered(inner, false))
            at = NotEntered(at, inner);
        else if (IsPlain(form))
            at = PlainObject(at, form, object, inner);
        else
            at = NotedObject(at, form, object, inner, nullptr);
    }
    return at;
}

/// The key of a map's entry as a text, and as a number where a long long holds it.
template<class Sink>
struct CWritingWalk<Sink>::CMapKey {
    StepKind Step = StepKind::TEXT_KEY;
    bool IsNumber = false;
    long long Number = 0;
    std::string_view Text;
    char Digits[core::DECIMAL_ROOM];
    std::string Memory; ///< of a text that its type does not hold

    template<class T>
    void SetNumber(T value)
    {
        Step = StepKind::OTHER_KEY;
        Number = static_cast<long long>(value);
        IsNumber = std::is_signed_v<T> || Number >= 0;
        Text = {Digits, static_cast<std::size_t>(core::WriteDecimal(Digits, value) - Digits)};
    }
    void SetName(std::string_view name)
    {
        Step = StepKind::OTHER_KEY;
        IsNumber = false;
        Text = name;
    }
};

/// The text of a key of the kinds that make a map an object.
template<class Sink>
void CWritingWalk<Sink>::ReadKey(CMapKey& key, const CForm& form, const char* pair)
{
    const char* const value = form.Value(pair);
    if (form.Enumeration != nullptr) {
        const long long number =
            form.Kind == FormKind::SHAPE ? core::Load<signed char>(value) : IntegerOf(form.Code, value);
        if (const std::string_view name = NameOfValue(*form.Enumeration, number); !name.empty())
            return key.SetName(name);
    }
    if (form.Kind == FormKind::SHAPE && form.Shape->Kind == detail::ShapeKind::TEXT) {
        key.Text = form.ShapeOperations<detail::CTextOperations>().Get(value, key.Memory);
    } else if (form.Kind == FormKind::SHAPE) {
        key.SetNumber(core::Load<signed char>(value));
    } else if (form.Code == Enum::DT_STD_STRING) {
        key.Text = *reinterpret_cast<const std::string*>(value);
    } else {
        core::VisitBasicType(form.Code, [&](auto type) {
            using T = typename decltype(type)::Type;
            if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) key.SetNumber(core::Load<T>(value));
        });
    }
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::KeyOf(Cursor at, const CMapKey& key, CWriteFrame& frame)
{
    frame.To(key.Step, key.Text);
    return key.IsNumber ? m_sink.IntegerKey(at, key.Number, key.Text, frame) : m_sink.Key(at, key.Text, frame);
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Map(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    CWriteFrame frame(outer, value, form.Type->DetailInfor);
    if (!IsEntered(frame, form.How == Held::POINTER)) return NotEntered(at, frame);
    const CContainerForm& inner = m_forms.Of(form.ContainerInfor());
    const CContainerConstRefrence map = ContainerAt(form, value);
    at = m_sink.BeginObject(at, SizeOf(map));
    at = m_context.Policy().SortKeys ? SortedEntries(at, inner, map, frame) : Entries(at, inner, map, frame);
    return m_sink.EndObject(at);
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Entries(Cursor at, const CContainerForm& form,
                                                  const CContainerConstRefrence& map, CWriteFrame& frame)
{
    CMapKey key;
    for (const CConstRefrence& pair : map) {
        ReadKey(key, form.Key, static_cast<const char*>(pair.Address));
        at = Holder(KeyOf(at, key, frame), form.Mapped, pair.Address, frame);
    }
    return at;
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::SortedEntries(Cursor at, const CContainerForm& form,
                                                        const CContainerConstRefrence& map, CWriteFrame& frame)
{
    std::vector<std::pair<std::string, const void*>> pairs;
    CMapKey key;
    for (const CConstRefrence& pair : map) {
        ReadKey(key, form.Key, static_cast<const char*>(pair.Address));
        pairs.emplace_back(key.Text, pair.Address);
    }
    std::stable_sort(pairs.begin(), pairs.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    for (const auto& [text, pair] : pairs) {
        ReadKey(key, form.Key, static_cast<const char*>(pair));
        at = Holder(KeyOf(at, key, frame), form.Mapped, pair, frame);
    }
    return at;
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Pair(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    CWriteFrame frame(outer, value, form.Type->DetailInfor);
    if (!IsEntered(frame, form.How == Held::POINTER)) return NotEntered(at, frame);
    const CClassForm& pair = m_forms.Of(form.ClassInfor());
    at = m_sink.BeginArray(at, pair.Members.size());
    for (const CMember& member : pair.Members) {
        frame.To(member.Number);
        at = Holder(m_sink.Element(at), member, value, frame);
    }
    return m_sink.EndArray(at);
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::CharArray(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    return m_sink.Text(at, std::string_view(value, strnlen(value, form.ContainerInfor().Size)), outer);
}

/// The highest bit first, as std::bitset::to_string has it.
template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Bitset(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    std::string bits;
    for (const CConstRefrence& bit : ContainerAt(form, value))
        bits += core::Load<bool>(bit.Address) ? '1' : '0';
    std::reverse(bits.begin(), bits.end());
    return m_sink.Text(at, bits, outer);
}

} // namespace vexa::interchange

#endif
