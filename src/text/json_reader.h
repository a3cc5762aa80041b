#ifndef VEXA_TEXT_JSON_READER_H
#define VEXA_TEXT_JSON_READER_H

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>

#include "text/json_cursor.h"

namespace vexa::typeinfo {
class CPlan;
class CContainerPlan;
struct CRecordPlan;
struct CValuePlan;
} // namespace vexa::typeinfo

namespace vexa::text {

struct CObjectCodes;

/// Reads one text: the description of the target and the text are walked together. Every function gives 0 or a code,
/// and stands then where the text could not be read on.
class CJsonReader {
public:
    explicit CJsonReader(const std::string& text) : m_cursor(text) {}

    int ReadDocument(CRefrence& target) { return m_cursor.SkipBlanks() ? ReadValue(target) : 0; }

private:
    /// A target without address takes nothing from the text.
    int ReadValue(CRefrence& target);
    int ReadNesting(CRefrence& target);
    int ReadString(CRefrence& target);
    int ReadCustom(CRefrence& target);
    int ReadNumber(CRefrence& target);
    int ReadBool(CRefrence& target);
    int ReadTruth(bool& truth);
    long long ReadInteger();

    int ReadClass(CRefrence& target);
    int ReadGeneric(const CRefrence& target);
    template<class Keys>
    int ReadMembers(Keys keys, const CObjectCodes& codes);
    template<class Keys>
    int ReadMember(CRefrence& member, const Keys& keys);
    template<class Keys>
    int ReadKey(CRefrence& member, Keys& keys, const CObjectCodes& codes);

    int ReadArray(CRefrence& target);
    int ReadOpenArray(CRefrence& target);
    template<class ReadElement>
    int ReadElements(ReadElement&& readElement);
    int ReadAppended(const CContainerConstRefrence& container);
    int ReadSlots(const CContainerConstRefrence& array);
    int ReadInserted(const CContainerConstRefrence& container);
    int ReadInsertedPointers(const CContainerConstRefrence& container);

    // Along plans, in json_plan_reader.cpp. Each takes its place in the text and gives the next one, or null after it
    // has set m_code.
    int ReadAlongPlan(const typeinfo::CPlan& plan, char* object);
    int ReadAlongPlan(const typeinfo::CContainerPlan& plan, char* container);
    const char* ReadPlannedObject(const char* next, const typeinfo::CPlan& plan, char* object);
    const char* ReadPlannedKey(const char* next, const typeinfo::CPlan& plan, const typeinfo::CRecordPlan*& record);
    const char* ReadAnyKey(const char* next, const typeinfo::CPlan& plan, const typeinfo::CRecordPlan*& record);
    const char* ReadPlannedValue(const char* next, const typeinfo::CValuePlan& value, char* object);
    const char* ReadFlaggedValue(const char* next, const typeinfo::CValuePlan& value, char* object);
    const char* ReadPlannedClass(const char* next, const typeinfo::CValuePlan& value, char* object);
    const char* ReadPlannedArray(const char* next, const typeinfo::CValuePlan& value, char* object);
    const char* ReadPlannedElements(const char* next, const typeinfo::CContainerPlan& plan, char* container);
    template<class ReadElement>
    const char* ReadElementsAlong(const char* next, const CContainerInfor& infor, char* container, ReadElement readOne);
    const char* ReadPlannedString(const char* next, std::string& out);
    const char* ReadPlannedBool(const char* next, char* value);
    const char* ReadPlainly(const char* next, const CRefrence& target, int (CJsonReader::*read)(CRefrence& target));
    const char* Fail(int code)
    {
        m_code = code;
        return nullptr;
    }

    CJsonCursor m_cursor;
    int m_code = 0;
    unsigned long m_depth = 0;
};

} // namespace vexa::text

#endif
