// Tables from containers of described objects, and back.

#include <algorithm>

#include <vexa/table.h>

#include "core/basic_types.h"
#include "core/type_table.h"
#include "record/leaf.h"
#include "reference/custom_value.h"
#include "reference/union_member.h"
#include "reference/union_watch.h"

namespace vexa {

using namespace Enum;

namespace {

/// One attribute that a column can stand for, and the member objects on the way to it.
struct CLeaf {
    std::string Name;
    std::vector<const CAttribInfor*> Members;
    const CClassInfor* Owner;
    const CAttribInfor* Attrib;
    bool IsMasked;
};

class CLeafList {
public:
    explicit CLeafList(const CClassInfor& infor) { Collect(infor, {}, {}, false); }

    const std::vector<CLeaf>& All() const { return m_leaves; }
    const CLeaf* Find(const std::string& name) const
    {
        const auto found =
            std::find_if(m_leaves.begin(), m_leaves.end(), [&](const CLeaf& leaf) { return leaf.Name == name; });
        return found != m_leaves.end() ? &*found : nullptr;
    }

private:
    void Collect(const CClassInfor& infor, const std::string& prefix, const std::vector<const CAttribInfor*>& members,
                 bool isMasked)
    {
        for (const CAttribInfor& attrib : infor.AttribList) {
            const bool isMaskedHere = isMasked || attrib.IsMasked != 0;
            const std::string name = prefix + attrib.Name;
            if (attrib.TypeInfor.DataType == DT_CLASS && !attrib.TypeInfor.Has(HF_POINTER)) {
                auto path = members;
                path.push_back(&attrib);
                Collect(*static_cast<const CClassInfor*>(attrib.TypeInfor.DetailInfor), name + "_", path, isMaskedHere);
            } else if (record::IsLeaf(attrib.TypeInfor)) {
                Add({name, members, &infor, &attrib, isMaskedHere});
            }
        }
    }
    /// Of two leaves of one name the one in the outer object stays, as in the flat index.
    void Add(const CLeaf& leaf)
    {
        const auto same =
            std::find_if(m_leaves.begin(), m_leaves.end(), [&](const CLeaf& other) { return other.Name == leaf.Name; });
        if (same == m_leaves.end())
            m_leaves.push_back(leaf);
        else if (leaf.Members.size() < same->Members.size())
            *same = leaf;
    }

    std::vector<CLeaf> m_leaves;
};

/// An attribute of one object; without address when there is no object, or when the attribute is not the active member
/// of its union: what lies there then is of another type.
CRefrence AttribOf(void* object, const CAttribInfor& attrib)
{
    const bool isThere = object != nullptr && reference::IsActiveWithSelectors(attrib, object);
    return {attrib.TypeInfor, isThere ? static_cast<char*>(object) + attrib.Offset : nullptr};
}

/// The object that the leaf is an attribute of; null when a member on the way is null or not the active one of its
/// union. \param isToBeSet makes the members on the way not null.
void* OwnerOf(void* object, const CLeaf& leaf, bool isToBeSet)
{
    for (const CAttribInfor* const member : leaf.Members) {
        CRefrence ref = AttribOf(object, *member);
        if (isToBeSet) ref.SetNotNull();
        object = ref.ValueAddress();
    }
    return object;
}

DataTypeEnum ColumnType(const CGnlTypeInfor& type)
{
    if (type.DataType == DT_CUSTOM_BASIC) {
        return reference::HasOwnLayout(type) ? DT_STD_STRING : ColumnType(type.GetStdTypeInforFromCustomType());
    }
    return type.DataType == DT_CONST_CHAR_PTR ? DT_STD_STRING : static_cast<DataTypeEnum>(type.DataType);
}

/// The value has the column's type.
void ReadLeaf(CValue& value, const CConstRefrence& leaf)
{
    if (leaf.TypeInfor.DataType != DT_CUSTOM_BASIC) {
        value.ReadFrom(leaf.AsStdBasicType());
    } else if (!reference::HasOwnLayout(leaf.TypeInfor)) {
        value.ReadFrom(reference::StandardValueInPlace(leaf).AsStdBasicType());
    } else if (leaf.ValueAddress() != nullptr) {
        value.ReadFrom(reference::CustomInfor(leaf.TypeInfor).AsString(leaf.ValueAddress()));
    }
}

/// A leaf that is the selector of a union hands it over; where that cannot be done, it keeps its value.
void WriteCell(void* object, const CLeaf& leaf, const CValue& value)
{
    void* const owner = OwnerOf(object, leaf, !value.IsNull());
    const CRefrence attrib = AttribOf(owner, *leaf.Attrib);
    if (attrib.Address == nullptr) return;
    const reference::CUnionWatch watch(*leaf.Owner, owner);
    record::WriteLeaf(attrib, value);
}

const CClassInfor* ElementClass(const CContainerConstRefrence& container)
{
    const CGnlTypeInfor& element = container.ContainerInfor().ElementType;
    return element.DataType == DT_CLASS ? static_cast<const CClassInfor*>(element.DetailInfor) : nullptr;
}

/// \return whether all that was asked for is there.
bool SelectLeaves(const CLeafList& leaves, const std::vector<std::string>& names, std::vector<const CLeaf*>& selected)
{
    if (names.empty()) {
        for (const CLeaf& leaf : leaves.All()) {
            if (!leaf.IsMasked) selected.push_back(&leaf);
        }
    }
    for (const std::string& name : names) {
        if (const CLeaf* const leaf = leaves.Find(name)) selected.push_back(leaf);
    }
    return names.empty() || selected.size() == names.size();
}

} // namespace

bool TableFromObjects(CTable& table, const CContainerConstRefrence& container, const std::vector<std::string>& columns)
{
    table.Clear();
    const CClassInfor* const infor = ElementClass(container);
    if (infor == nullptr) return false;
    const CLeafList leaves(*infor);
    std::vector<const CLeaf*> selected;
    const bool isComplete = SelectLeaves(leaves, columns, selected);
    for (const CLeaf* const leaf : selected)
        table.AddColumn(ColumnType(leaf->Attrib->TypeInfor), leaf->Name);
    table.Reserve(container.Count());
    for (const CConstRefrence& element : container) {
        CRow& row = table.AddRow();
        void* const object = element.ValueAddress();
        for (std::size_t i = 0; i < selected.size(); ++i)
            ReadLeaf(row[i], AttribOf(OwnerOf(object, *selected[i], false), *selected[i]->Attrib));
    }
    return isComplete;
}

bool ObjectsFromTable(CContainerRefrence& container, const CTable& table, std::vector<std::string>* unknown)
{
    const CClassInfor* const infor = ElementClass(container);
    if (infor == nullptr || container.ContainerInfor().Append == nullptr || container.IsNull()) return false;
    if (container.TypeInfor.Has(HF_CONST)) return false;
    const CLeafList leaves(*infor);
    if (unknown != nullptr) unknown->clear();
    for (const CColumn& column : table.Columns) {
        if (unknown != nullptr && leaves.Find(column.Name) == nullptr) unknown->push_back(column.Name);
    }
    // In the order of the class, so that a union's selector is set before its members are.
    std::vector<std::pair<const CLeaf*, unsigned long>> filled;
    for (const CLeaf& leaf : leaves.All()) {
        const unsigned long column = table.ColumnIndex(leaf.Name);
        if (column != CTable::NO_COLUMN) filled.emplace_back(&leaf, column);
    }
    for (const CRow& row : table.Rows) {
        CRefrence element = container.Append();
        element.SetNotNull();
        void* const object = element.ValueAddress();
        for (const auto& [leaf, column] : filled) {
            if (column < row.Size()) WriteCell(object, *leaf, row[column]);
        }
    }
    return true;
}

} // namespace vexa
