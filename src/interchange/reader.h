#ifndef VEXA_INTERCHANGE_READER_H
#define VEXA_INTERCHANGE_READER_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <vexa/json_tree.h>
#include <vexa/table.h>
#include <vexa/value.h>

#include "interchange/event_reader.h"
#include "interchange/form.h"
#include "interchange/loose_element.h"
#include "interchange/read_context.h"
#include "interchange/read_number.h"
#include "interchange/replay.h"
#include "interchange/source.h"

/// \file
/// The one walk that reads values of any form from a source. It is compiled for the JSON of a whole text and for the
/// events of any format; what is read again is events too. The functions give false where the source has failed, which
/// ends the reading; a problem of meaning is added to the report, and the walk goes on behind the value.

namespace vexa::interchange {

/// A value that is read later, perhaps more than once.
struct CHeldValue {
    std::unique_ptr<CEventRecord> Own; ///< null where it lies in a record that is being replayed
    CEventRecord* Record = nullptr;
    std::size_t First = 0; ///< the event that it begins with

    const CEvent& Begin() const { return Record->At(First); }
};

/// A member of a union whose selector may come later.
struct CLateMember {
    CPathStep Step; ///< as the text names it
    CHeldValue Value;
};

/// What FirstOf gives for a place that is too far for it.
inline constexpr std::uint32_t FIRST_IS_FAR = 0xFFFFFFFF;
/// A key's place plus 1, so that it is not 0.
inline std::uint32_t FirstOf(std::size_t offset) noexcept
{
    return offset < 0xFFFFFFFE ? static_cast<std::uint32_t>(offset + 1) : FIRST_IS_FAR;
}

/// What few objects need while they are read.
struct CSeldomState {
    bool IsKeeperOpen = false; ///< the member that keeps unknown keys has been emptied
    CLateElements Kept;        ///< what it gets at the end
    std::optional<CProblem> WrongTag;
};

/// An object that is being read.
struct CObjectFrame {
    const CClassForm& Form;
    char* Object;
    std::size_t Brace = 0;           ///< where it begins in the text
    std::size_t Base = 0;            ///< where its part of CReadContext::Firsts begins
    std::size_t Before = 0;          ///< so many problems there were
    std::string_view Tag = {};       ///< the key that has told the class; empty for none
    std::uint32_t FirstTag = 0;      ///< where it stands, plus 1; 0 until it has been met
    std::uint32_t FirstOwnTag = 0;   ///< likewise the tag of a class that is known without
    CPathStep& Step;                 ///< where the walk is inside
    std::vector<CLateMember> Late{}; ///< what waits for a selector
    std::unique_ptr<CSeldomState> Seldom{};
    const CObjectFrame* Outer = nullptr;

    CSeldomState& SeldomState()
    {
        if (Seldom == nullptr) Seldom = std::make_unique<CSeldomState>();
        return *Seldom;
    }
};

/// Enters an object among those that are open, as long as it lives.
class COpenScope {
public:
    COpenScope(CReadContext& context, CObjectFrame& frame) noexcept : m_context(context)
    {
        frame.Outer = std::exchange(context.Frame, &frame);
    }
    COpenScope(const COpenScope&) = delete;
    COpenScope& operator=(const COpenScope&) = delete;
    ~COpenScope() { m_context.Frame = m_context.Frame->Outer; }

private:
    CReadContext& m_context;
};

/// Whether an object is open already, or lies in one that is: a pointer inside leads back to it. What the text says
/// there could destroy what is being read.
inline bool IsOpen(const CReadContext& context, const void* object) noexcept
{
    if (object == nullptr) return false;
    const auto place = reinterpret_cast<std::uintptr_t>(object);
    for (const CObjectFrame* frame = context.Frame; frame != nullptr; frame = frame->Outer)
        if (place - reinterpret_cast<std::uintptr_t>(frame->Object) < frame->Form.Infor->Size) return true;
    return false;
}

struct COldSelector;
class CMadeObject;
struct CInstant;

/// What a pointer or a std::shared_ptr holds: an object of a class or of one derived from it.
struct CTaggedTarget {
    /// Null where there is none.
    virtual const void* Object() const = 0;
    /// Puts a new object of a class there, whose sub-object of the base lies at \p offset.
    virtual void Adopt(CMadeObject& made, const CClassInfor& infor, unsigned long offset) = 0;

protected:
    ~CTaggedTarget() = default;
};

/// An object as what it is.
struct CWholeObject {
    const CClassInfor* Infor = nullptr;
    char* Object = nullptr; ///< where it begins
    bool IsNew = false;
};

template<class Source>
class CReader {
public:
    CReader(CReadContext& context, Source& source) : m_context(context), m_source(source) {}
    CReader(const CReader&) = delete;
    CReader& operator=(const CReader&) = delete;

    /// Reads a value into its place in \p object, however it is held there.
    bool ReadValue(const CForm& form, char* object)
    {
        if (__builtin_expect(form.How == Held::DIRECT && !form.IsConst, 1))
            return ReadAt(form, object + form.ValueOffset);
        return ReadHeld(form, object);
    }
    /// The same of the outermost value; there may be no object.
    bool ReadRoot(const CForm& form, char* object)
    {
        return object != nullptr ? ReadValue(form, object) : Refuse(ProblemCode::CANNOT_BE_MADE);
    }
    /// The same where nothing is in the way of the value at \p place.
    bool ReadAt(const CForm& form, char* place);
    /// Whether nothing follows the value; tells the problem otherwise.
    bool TakeEnd() { return m_source.AtEnd() || Broken(); }

private:
    template<class Other>
    friend class CReader;

    static constexpr bool IS_JSON = !std::is_same_v<Source, CEventReader>; ///< of a whole text

    // read_problem.h
    bool Broken();
    void Tell(CProblem problem, std::size_t begin, std::size_t end, Secrecy secrecy = Secrecy::VALUE);
    void Tell(ProblemCode code, std::size_t begin, std::size_t end, std::string expected = {}, std::string found = {},
              Secrecy secrecy = Secrecy::VALUE);
    bool WrongKind(std::string expected);
    bool Refuse(ProblemCode code, std::string expected = {}, std::string found = {});
    bool RefuseOpen() { return Refuse(ProblemCode::CANNOT_BE_MADE, "an object that is not being read already"); }
    bool CountOne();
    bool TooManyElements();
    bool TellNumber(NumberVerdict verdict, const CNumber& number, std::size_t begin, std::string range);

    // read_basic.h
    bool ReadBasic(const CForm& form, char* place);
    template<class T>
    bool ReadNumber(char* place);
    bool ReadBool(char* place);
    bool ReadString(std::string& string);
    bool ReadDateTime(CDateTime& time);
    bool ReadTm(tm& fields);
    bool ReadBinary(CBinary& bytes);
    bool TakeDigits(CNumber& number, bool& isGood);
    bool ReadNumeric(CNumeric& number);
    bool ReadEnumeration(const CForm& form, char* place);
    bool ReadEnumerator(const CForm& form, char* place);
    bool TakeInstant(CInstant& instant, bool& isGood);
    bool IsInYears(const CInstant& instant, std::size_t begin, std::string_view text);

    // read_held.h
    bool ReadHeld(const CForm& form, char* object);
    bool ReadNull(const CForm& form, char* object);
    bool ReadFlagged(const CForm& form, char* object);
    bool ReadNoLongerNull(const CForm& form, char* object);
    bool ReadPointee(const CForm& form, char* holder);
    bool ReadNewPointee(const CForm& form, char* holder);
    bool Hold(CHeldValue& held);
    template<class Add>
    bool Record(CHeldValue& held, Add add);
    template<class Read>
    bool Replay(const CHeldValue& held, Read read);

    // read_polymorphic.h
    static bool IsPolymorphic(const CForm& form);
    bool ReadPolymorphic(const CClassInfor& base, CTaggedTarget& target);
    bool ReadPolymorphicAgain(const CClassInfor& base, CTaggedTarget& target);
    bool ReadTagged(const CClassInfor& base, CTaggedTarget& target, std::size_t brace);
    void Settle(CObjectFrame& frame);
    bool ReadRest(const CWholeObject& whole, std::size_t brace, std::string_view tag, std::uint32_t firstTag = 0);
    bool SkipRest();
    bool FindByTag(const CClassInfor& base, CTaggedTarget& target, EventKind kind, std::string_view value,
                   const CTextPlace& place, CWholeObject& whole);
    bool FindWithoutTag(const CClassInfor& base, CTaggedTarget& target, CWholeObject& whole);
    void TellUnknownTag(const CClassInfor& base, EventKind kind, std::string_view value, const CTextPlace& place);

    // read_plain.h
    bool IsPlainReading() const noexcept;
    const CMember* ReadPlainMembers(const CObjectFrame& frame, const CMember*& next, const CMember* last);
    template<class T>
    std::size_t TakePlainElements(std::vector<T>& vector);

    // read_class.h
    bool ReadClass(const CClassInfor& infor, char* object, std::string_view tag = {});
    bool ReadKeys(CObjectFrame& frame);
    bool NextKeyIs(const CMember& member);
    bool ReadMember(CObjectFrame& frame, const CMember& member);
    bool ReadNotedMember(CObjectFrame& frame, const CMember& member);
    bool TakeUnknownKey(CObjectFrame& frame, const CText& key);
    bool TellUnknownKey(CObjectFrame& frame, const CText& key);
    bool KeepUnknown(CObjectFrame& frame, const CText& key);
    bool TakeTag(CObjectFrame& frame, const CText& key, std::uint32_t& first);
    bool TakeOwnTag(CObjectFrame& frame);
    bool TellDuplicate(CProblem problem, std::uint32_t first, std::size_t shortest);
    void TellMissing(const CObjectFrame& frame);
    void CheckMember(const CMember& member, char* object, std::size_t begin);
    void CheckObject(const CObjectFrame& frame);

    // read_union.h
    bool ReadUnionMember(CObjectFrame& frame, const CMember& member);
    bool ReadIfActive(CObjectFrame& frame, const CMember& member);
    bool ReadBesideUnions(CObjectFrame& frame, const CMember& member);
    bool ReadLateMembers(CObjectFrame& frame);
    bool SelectorMayCome(const CObjectFrame& frame, const CMember& member) const;
    bool NoteSelector(CObjectFrame& frame, const CMember& member, const std::shared_ptr<COldSelector>& old);
    bool TakeOldMembers(CObjectFrame& frame, const CMember& selector, short from);

    // read_container.h
    bool ReadSequence(const CForm& form, char* container);
    template<class T>
    bool ReadNumbers(std::vector<T>& vector);
    bool ReadStrings(std::vector<std::string>& vector);
    bool ReadPlainElements(const CForm& element, char* container, bool& isDone);
    bool ReadInserted(const CForm& form, char* container);
    bool ReadInsertedElements(const CForm& form, char* container, CLateElements& late);
    bool ReadOneInserted(const CForm& form, const CForm& element, char* container);
    bool ReadOneLate(const CForm& element, CLateElements& late);
    bool ReadLoose(const CForm& form, CLooseElement& made, bool& isGood);
    bool ReadArray(const CForm& form, char* array);
    bool ReadCharArray(const CForm& form, char* array);
    bool ReadBitset(const CForm& form, char* bits);
    bool ReadPair(const CForm& form, char* pair);
    template<class ReadPart>
    bool ReadEachPlace(std::size_t count, std::size_t& index, ReadPart readPart);
    template<class ReadPart>
    bool ReadPlaces(std::size_t count, ReadPart readPart);
    bool SetAside(const CForm& form, char* container);

    // read_map.h
    bool ReadMap(const CForm& form, char* container);
    bool ReadMapEntries(const CForm& form, char* container, CLateElements& late);
    bool ReadMapEntry(const CForm& form, char* container, const CText& key, CPathStep& step, CLateElements& late);
    bool ReadLooseEntry(const CContainerForm& parts, CLooseElement& entry, std::string_view key,
                        const CTextPlace& place, bool& isGood);
    bool SetKey(const CForm& form, char* key, std::string_view text, const CTextPlace& place);

    // read_shape.h
    bool ReadShape(const CForm& form, char* place);
    bool ReadSignedByte(const CForm& form, char* place);
    bool ReadOptional(const CForm& form, char* optional);
    bool ReadNoValue(const CForm& form, char* optional);
    bool ReadTuple(const CForm& form, char* tuple);
    bool ReadBits(const CForm& form, char* bits);
    bool ReadAtomic(const CForm& form, char* atomic);
    bool ReadTimePoint(const CForm& form, char* time);
    bool ReadText(const CForm& form, char* place);
    bool ReadRawJson(CRawJson& raw);
    bool ReadJsonTree(CJsonTree& tree);

    // read_variant.h
    bool ReadVariant(const CForm& form, char* variant);
    bool ReadAlternative(const CForm& form, char* variant, unsigned int number);
    unsigned int ChooseAlternative(const CForm& form, const CHeldValue& held, std::size_t begin);
    unsigned int FittingAlternative(const CShapeForm& shape, const CHeldValue& held, bool& isDoubtful);
    bool Fits(const CForm& part, const CHeldValue& held);
    void TellNoAlternative(const CShapeForm& shape, const CHeldValue& held, bool isDoubtful, std::size_t begin);

    // read_record.h
    bool ReadCustom(const CForm& form, char* place);
    bool TakeScalar(CValue& value, bool& isTaken);
    bool ReadAnyValue(CValue& value);
    bool ReadRow(CRow& row);
    bool ReadTable(CTable& table);
    bool ReadTableRow(CTable& table);
    template<class Entries>
    bool ReadEntries(Entries& entries);
    template<class Entries>
    bool TellNoEntry(const Entries& entries, const CText& name);

    CReadContext& m_context;
    Source& m_source;
    bool m_isTold = false; ///< that the source has failed
};

extern template class CReader<CEventReader>;

} // namespace vexa::interchange

#endif
