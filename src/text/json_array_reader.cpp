// Reading JSON arrays: into containers that are appended to, that are inserted into, and whose elements stay in place.

#include <vexa/json.h>

#include "reference/emptying.h"
#include "text/json_code.h"
#include "text/json_plan.h"
#include "text/json_reader.h"

namespace vexa::text {

using namespace Enum;

namespace {

/// Something that the reader made through a descriptor, destroyed unless it is given away.
class CMade {
public:
    explicit CMade(const CGnlTypeInfor& type) : Object(type.New()), m_type(type) {}
    CMade(const CMade&) = delete;
    CMade& operator=(const CMade&) = delete;
    ~CMade()
    {
        if (Object != nullptr) m_type.Delete(Object);
    }

    void* Object;

private:
    const CGnlTypeInfor& m_type;
};

} // namespace

int CJsonReader::ReadArray(CRefrence& target)
{
    if (!m_cursor.Take('[')) return ARRAY_NO_BRACKET;
    if (!m_cursor.SkipBlanks()) return ARRAY_ENDS_AFTER_BRACKET;
    if (m_cursor.Take(']')) return 0;
    if (!reference::SetNotNullAndEmpty(target) || target.ValueAddress() == nullptr) return VALUE_MISSING;
    return ReadOpenArray(target);
}

/// How a container takes elements is told by its code, and then by the operations that it has.
int CJsonReader::ReadOpenArray(CRefrence& target)
{
    const CContainerRefrence& container = target.AsContainer();
    const CContainerInfor& infor = container.ContainerInfor();
    if (const typeinfo::CContainerPlan* const plan = ReadablePlanOf(target.TypeInfor))
        return ReadAlongPlan(*plan, static_cast<char*>(container.ValueAddress()));
    if (!container.TypeInfor.IsAssociative()) {
        if (infor.Append != nullptr) return ReadAppended(container);
        return container.TypeInfor.DataType == DT_ARRAY ? ReadSlots(container) : static_cast<int>(VALUE_MISSING);
    }
    if (infor.Insert == nullptr || infor.ElementType.WrapperKind() == HF_MAY_NULL) return VALUE_MISSING;
    return infor.ElementType.Has(HF_POINTER) ? ReadInsertedPointers(container) : ReadInserted(container);
}

/// Reads what stands between the brackets, each element with \p readElement, which gives 0 or a code.
template<class ReadElement>
int CJsonReader::ReadElements(ReadElement&& readElement)
{
    do {
        if (m_cursor.AtEnd()) return ARRAY_NO_ELEMENT;
        if (!m_cursor.SkipBlanks()) return ARRAY_ENDS_BEFORE_ELEMENT;
        if (const int code = readElement()) return code;
        if (!m_cursor.SkipBlanks()) return ARRAY_ENDS_AFTER_ELEMENT;
        if (m_cursor.Take(']')) return 0;
    } while (m_cursor.Take(','));
    return ARRAY_NO_SEPARATOR;
}

int CJsonReader::ReadAppended(const CContainerConstRefrence& container)
{
    const CContainerInfor& infor = container.ContainerInfor();
    void* const address = container.ValueAddress();
    return ReadElements([&] {
        CRefrence element(infor.ElementType, infor.Append(address));
        return ReadValue(element);
    });
}

/// A fixed array keeps its elements where they are: there is no room for one more than its slots.
int CJsonReader::ReadSlots(const CContainerConstRefrence& array)
{
    CContainerConstIterator slot(array);
    return ReadElements([&] {
        if (slot.IsEnd()) return static_cast<int>(ARRAY_NO_SEPARATOR);
        CRefrence element(slot.Current.TypeInfor, slot.Current.Address);
        ++slot;
        return ReadValue(element);
    });
}

/// One scratch element serves for all: the container takes its contents, or refuses it, and it is emptied for the next.
int CJsonReader::ReadInserted(const CContainerConstRefrence& container)
{
    const CContainerInfor& infor = container.ContainerInfor();
    void* const address = container.ValueAddress();
    const CMade made(infor.ElementType);
    if (made.Object == nullptr) return VALUE_MISSING;
    CRefrence scratch(infor.ElementType, made.Object);
    if (!reference::Empty(scratch)) return VALUE_MISSING;
    return ReadElements([&] {
        const int code = ReadValue(scratch);
        if (code != 0) return code;
        infor.Insert(address, scratch.Address);
        return reference::Empty(scratch) ? 0 : static_cast<int>(VALUE_MISSING);
    });
}

/// The pointee of each element belongs to the container, so each is read into a pointer of its own.
int CJsonReader::ReadInsertedPointers(const CContainerConstRefrence& container)
{
    const CContainerInfor& infor = container.ContainerInfor();
    void* const address = container.ValueAddress();
    return ReadElements([&] {
        CMade pointee(infor.ElementType);
        CRefrence element(infor.ElementType, &pointee.Object);
        const int code = ReadValue(element);
        if (code != 0) return code;
        infor.Insert(address, &pointee.Object);
        pointee.Object = nullptr;
        return 0;
    });
}

} // namespace vexa::text
