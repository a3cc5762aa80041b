#ifndef VEXA_INTERCHANGE_READ_CONTAINER_H
#define VEXA_INTERCHANGE_READ_CONTAINER_H

#include "interchange/read_basic.h"
#include "interchange/read_held.h"
#include "interchange/read_plain.h"

/// \file
/// Reading sequences, sets and fixed arrays. Containers are emptied first, and their elements are new.

namespace vexa::interchange {

/// Empties a container that is read into.
template<class Source>
bool CReader<Source>::SetAside(const CForm& form, char* container)
{
    const CContainerInfor& infor = form.ContainerInfor();
    if (m_context.Undo != nullptr) return m_context.Undo->TakeContents(infor, container);
    if (infor.Clear == nullptr) return false;
    infor.Clear(container);
    return true;
}

template<class Source>
bool CReader<Source>::ReadSequence(const CForm& form, char* container)
{
    if (m_source.Peek() != EventKind::BEGIN_ARRAY) return WrongKind("an array");
    const CContainerInfor& infor = form.ContainerInfor();
    if (infor.Append == nullptr || !SetAside(form, container)) return Refuse(ProblemCode::CANNOT_BE_MADE);
    const CContainerForm& parts = m_context.Forms.Of(infor);
    if (!m_source.EnterArray()) return Broken();
    const CFreshScope fresh(m_context);
    bool isDone = false;
    if (parts.IsVector && parts.Element.Kind == FormKind::BASIC && parts.Element.How == Held::DIRECT) {
        if (!ReadPlainElements(parts.Element, container, isDone)) return false;
        if (isDone) return true;
    }
    CPathScope path(m_context);
    for (std::size_t index = 0; m_source.NextElement(); ++index) {
        path.Step.To(index);
        if (!CountOne()) return false;
        auto* const slot = static_cast<char*>(infor.Append(container));
        if (!(slot != nullptr ? ReadValue(parts.Element, slot) : Refuse(ProblemCode::CANNOT_BE_MADE))) return false;
    }
    return !m_source.HasFailed() || Broken();
}

/// Elements of the commonest types go straight into the vector. \param isDone whether these are such.
template<class Source>
bool CReader<Source>::ReadPlainElements(const CForm& element, char* container, bool& isDone)
{
    using namespace Enum;
    isDone = true;
    switch (element.Code) {
    case DT_INT: return ReadNumbers(*reinterpret_cast<std::vector<int>*>(container));
    case DT_UNSIGNED_INT: return ReadNumbers(*reinterpret_cast<std::vector<unsigned int>*>(container));
    case DT_LONG:
    case DT_LONG_LONG: return ReadNumbers(*reinterpret_cast<std::vector<long>*>(container));
    case DT_UNSIGNED_LONG:
    case DT_UNSIGNED_LONG_LONG: return ReadNumbers(*reinterpret_cast<std::vector<unsigned long>*>(container));
    case DT_FLOAT: return ReadNumbers(*reinterpret_cast<std::vector<float>*>(container));
    case DT_DOUBLE: return ReadNumbers(*reinterpret_cast<std::vector<double>*>(container));
    case DT_CHAR:
    case DT_UNSIGNED_CHAR: return ReadNumbers(*reinterpret_cast<std::vector<unsigned char>*>(container));
    case DT_STD_STRING: return ReadStrings(*reinterpret_cast<std::vector<std::string>*>(container));
    default: isDone = false; return true;
    }
}

template<class Source>
template<class T>
bool CReader<Source>::ReadNumbers(std::vector<T>& vector)
{
    CPathScope path(m_context);
    path.Step.To(std::size_t{0});
    if (const std::size_t hint = m_source.SizeHint()) vector.reserve(hint);
    std::size_t index = TakePlainElements(vector);
    if (index != 0) path.Step.Index = index - 1;
    for (; m_source.NextElement(); ++index) {
        path.Step.Index = index;
        T value{};
        if (!CountOne()) return false;
        if (!ReadNumber<T>(reinterpret_cast<char*>(&value))) return false;
        vector.push_back(value);
    }
    return !m_source.HasFailed() || Broken();
}

template<class Source>
bool CReader<Source>::ReadStrings(std::vector<std::string>& vector)
{
    CPathScope path(m_context);
    path.Step.To(std::size_t{0});
    if (const std::size_t hint = m_source.SizeHint()) vector.reserve(hint);
    std::size_t index = TakePlainElements(vector);
    if (index != 0) path.Step.Index = index - 1;
    for (; m_source.NextElement(); ++index) {
        path.Step.Index = index;
        if (!CountOne() || !ReadString(vector.emplace_back())) return false;
    }
    return !m_source.HasFailed() || Broken();
}

inline bool IsPlainForm(const CForm& form) noexcept { return form.How == Held::DIRECT && IsAllOrNothing(form); }

/// What could not be read is not inserted.
template<class Source>
bool CReader<Source>::ReadInserted(const CForm& form, char* container)
{
    if (m_source.Peek() != EventKind::BEGIN_ARRAY) return WrongKind("an array");
    const CContainerInfor& infor = form.ContainerInfor();
    if (infor.Insert == nullptr || !SetAside(form, container)) return Refuse(ProblemCode::CANNOT_BE_MADE);
    if (!m_source.EnterArray()) return Broken();
    const CFreshScope fresh(m_context);
    CLateElements late;
    const bool isWhole = ReadInsertedElements(form, container, late);
    late.InsertInto(infor, container);
    return isWhole;
}

/// Stands behind the bracket. Where of equal keys the last one counts, the elements are left in \p late.
template<class Source>
bool CReader<Source>::ReadInsertedElements(const CForm& form, char* container, CLateElements& late)
{
    const CContainerForm& parts = m_context.Forms.Of(form.ContainerInfor());
    const bool isLate = m_context.Policy.LastDuplicateWins && form.Kind == FormKind::PAIR_MAP && !IsMultiMap(form);
    CPathScope path(m_context);
    for (std::size_t index = 0; m_source.NextElement(); ++index) {
        path.Step.To(index);
        if (!CountOne()) return false;
        if (!(isLate ? ReadOneLate(parts.Element, late) : ReadOneInserted(form, parts.Element, container)))
            return false;
    }
    return !m_source.HasFailed() || Broken();
}

template<class Source>
bool CReader<Source>::ReadOneInserted(const CForm& form, const CForm& element, char* container)
{
    const CContainerInfor& infor = form.ContainerInfor();
    CLooseElement made(element);
    m_source.Peek();
    const std::size_t begin = m_source.Offset();
    bool isGood = false;
    if (!ReadLoose(element, made, isGood)) return false;
    if (!isGood) return true;
    const unsigned long count = infor.Count(container);
    made.InsertInto(infor, container);
    if (form.Kind == FormKind::PAIR_MAP && infor.Count(container) == count)
        Tell(ProblemCode::DUPLICATE_KEY, begin, begin + 1, {}, {}, Secrecy::PLAIN);
    return true;
}

/// \p isGood tells whether the element could be read.
template<class Source>
bool CReader<Source>::ReadLoose(const CForm& form, CLooseElement& made, bool& isGood)
{
    if (!made.IsThere()) return Refuse(ProblemCode::CANNOT_BE_MADE);
    const std::size_t before = m_context.Problems;
    const bool isWhole = ReadValue(form, made.Holder());
    isGood = isWhole && m_context.Problems == before;
    return isWhole;
}

template<class Source>
bool CReader<Source>::ReadOneLate(const CForm& element, CLateElements& late)
{
    bool isGood = false;
    const bool isWhole = ReadLoose(element, late.Add(element), isGood);
    if (!isGood) late.DropLast();
    return isWhole;
}

/// Stands behind the bracket.
template<class Source>
template<class ReadPart>
bool CReader<Source>::ReadEachPlace(std::size_t count, std::size_t& index, ReadPart readPart)
{
    CPathScope path(m_context);
    for (; m_source.NextElement(); ++index) {
        path.Step.To(index);
        if (!CountOne()) return false;
        if (index < count) {
            if (!readPart(index)) return false;
        } else if (!(index == count ? Refuse(ProblemCode::TOO_MANY_ELEMENTS, CountText(count)) : m_source.Skip())) {
            return Broken();
        }
    }
    return !m_source.HasFailed() || Broken();
}

/// Reads an array into places that are there. \param readPart reads the element of a number.
template<class Source>
template<class ReadPart>
bool CReader<Source>::ReadPlaces(std::size_t count, ReadPart readPart)
{
    if (m_source.Peek() != EventKind::BEGIN_ARRAY) return WrongKind("an array");
    if (!m_source.EnterArray()) return Broken();
    std::size_t index = 0;
    if (!ReadEachPlace(count, index, readPart)) return false;
    const std::size_t end = m_source.EndOffset();
    if (index < count)
        Tell(ProblemCode::TOO_FEW_ELEMENTS, end - 1, end, CountText(count), std::to_string(index), Secrecy::PLAIN);
    return true;
}

template<class Source>
bool CReader<Source>::ReadArray(const CForm& form, char* array)
{
    const CContainerInfor& infor = form.ContainerInfor();
    const CContainerForm& parts = m_context.Forms.Of(infor);
    if (parts.IsSlots) {
        const std::size_t stride = parts.Stride;
        return ReadPlaces(infor.Size / stride,
                          [&](std::size_t i) { return ReadValue(parts.Element, array + i * stride); });
    }
    std::vector<char*> places;
    if (infor.Begin != nullptr) {
        void* place = nullptr;
        if (void* const cursor = infor.Begin(array, &place)) {
            for (; place != nullptr; place = infor.Next(array, cursor))
                places.push_back(static_cast<char*>(place));
            infor.Release(cursor);
        }
    }
    return ReadPlaces(places.size(), [&](std::size_t i) { return ReadValue(parts.Element, places[i]); });
}

template<class Source>
bool CReader<Source>::ReadPair(const CForm& form, char* pair)
{
    const CClassForm& parts = m_context.Forms.Of(form.ClassInfor());
    return ReadPlaces(parts.Members.size(), [&](std::size_t i) { return ReadValue(parts.Members[i], pair); });
}

/// A text that fills the array has no NUL behind it; one with a NUL inside would be cut there.
template<class Source>
bool CReader<Source>::ReadCharArray(const CForm& form, char* array)
{
    if (m_source.Peek() != EventKind::STRING) return WrongKind("a string");
    const std::size_t begin = m_source.Offset();
    const std::size_t size = form.ContainerInfor().Size;
    CText text;
    if (!m_source.String(text)) return Broken();
    if (text.Text.size() > size) {
        Tell(ProblemCode::TOO_MANY_ELEMENTS, begin, m_source.EndOffset(), AtMost(size, "byte"),
             std::to_string(text.Text.size()));
        return true;
    }
    if (text.Text.find('\0') != std::string_view::npos) {
        Tell(ProblemCode::BAD_TEXT, begin, m_source.EndOffset(), "a string without NUL");
        return true;
    }
    if (m_context.Undo != nullptr) m_context.Undo->SaveBytes(array, size);
    std::memset(array, 0, size);
    text.Text.copy(array, size);
    return true;
}

/// A std::bitset lies in words, the lowest bit first.
template<class Source>
bool CReader<Source>::ReadBitset(const CForm& form, char* bits)
{
    if (m_source.Peek() != EventKind::STRING) return WrongKind("a string of 0 and 1");
    const CContainerInfor& infor = form.ContainerInfor();
    const std::size_t begin = m_source.Offset();
    const std::size_t count = infor.Count != nullptr ? infor.Count(bits) : 0;
    CText text;
    if (!m_source.String(text)) return Broken();
    if (text.Text.size() != count || text.Text.find_first_not_of("01") != std::string_view::npos) {
        Tell(ProblemCode::BAD_TEXT, begin, m_source.EndOffset(), std::to_string(count) + " bits, each 0 or 1",
             ShownText(text.Text));
        return true;
    }
    if (m_context.Undo != nullptr) m_context.Undo->SaveBytes(bits, infor.Size);
    std::vector<unsigned long> words((count + 63) / 64);
    for (std::size_t i = 0; i < count; ++i)
        if (text.Text[count - 1 - i] == '1') words[i / 64] |= 1UL << (i % 64);
    std::memcpy(bits, words.data(), std::min(words.size() * sizeof(unsigned long), infor.Size));
    return true;
}

} // namespace vexa::interchange

#endif
