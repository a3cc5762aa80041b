#ifndef VEXA_TEXT_JSON_READER_H
#define VEXA_TEXT_JSON_READER_H

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>

#include "text/json_cursor.h"

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
    int ReadOpenArray(CContainerRefrence& container);
    template<class ReadElement>
    int ReadElements(ReadElement&& readElement);
    int ReadAppended(const CContainerConstRefrence& container);
    int ReadSlots(const CContainerConstRefrence& array);
    int ReadInserted(const CContainerConstRefrence& container);
    int ReadInsertedPointers(const CContainerConstRefrence& container);

    CJsonCursor m_cursor;
    unsigned long m_depth = 0;
};

} // namespace vexa::text

#endif
