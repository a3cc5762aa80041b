#ifndef VEXA_TESTS_SUPPORT_PLAIN_DESCRIPTOR_H
#define VEXA_TESTS_SUPPORT_PLAIN_DESCRIPTOR_H

#include <deque>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <vexa/class_infor.h>
#include <vexa/container_infor.h>
#include <vexa/refrence.h>

/// Copies of finished descriptors, made through the public fields: they say the same, but no registration has finished
/// them, so that the library walks them plainly, without a plan. What it does for both must be the same.

namespace vexa_test {

/// Owns the copies it makes, of a type and of everything that it leads to. Not for several threads at once.
class PlainDescriptors {
public:
    vexa::CGnlTypeInfor Of(const vexa::CGnlTypeInfor& type)
    {
        const vexa::CGnlTypeInfor copy = CopyOf(type);
        for (const vexa::CClassInfor* original : std::exchange(m_withoutIndex, {}))
            CopyIndexes(*original, *m_classes.at(original));
        return copy;
    }
    /// A reference to the same value.
    vexa::CRefrence Of(const vexa::CRefrence& ref) { return {Of(ref.TypeInfor), ref.Address}; }
    vexa::CConstRefrence Of(const vexa::CConstRefrence& ref) { return {Of(ref.TypeInfor), ref.Address}; }

private:
    vexa::CGnlTypeInfor CopyOf(const vexa::CGnlTypeInfor& type)
    {
        vexa::CGnlTypeInfor copy = type;
        if (type.DataType == vexa::Enum::DT_CLASS)
            copy.DetailInfor = &ClassOf(*static_cast<const vexa::CClassInfor*>(type.DetailInfor));
        else if (type.IsContainer())
            copy.DetailInfor = &ContainerOf(*static_cast<const vexa::CContainerInfor*>(type.DetailInfor));
        return copy;
    }

    const vexa::CContainerInfor& ContainerOf(const vexa::CContainerInfor& original)
    {
        auto& copy = m_containers[&original];
        if (copy == nullptr) {
            copy = std::make_unique<vexa::CContainerInfor>(original);
            copy->ElementType = CopyOf(original.ElementType);
        }
        return *copy;
    }

    const vexa::CClassInfor& ClassOf(const vexa::CClassInfor& original)
    {
        auto& made = m_classes[&original];
        if (made != nullptr) return *made;
        made = std::make_unique<vexa::CClassInfor>();
        vexa::CClassInfor& copy = *made;
        copy.SetBaseTypeInfor(original.Name, original.Size, original.Factory, original.Deleter, original.CustomTypeID);
        for (const vexa::CAttribInfor& record : original.AttribList) {
            copy.AttribList.push_back(record);
            m_records[&record] = &copy.AttribList.back();
        }
        for (vexa::CAttribInfor& record : copy.AttribList) {
            record.TypeInfor = CopyOf(record.TypeInfor);
            record.UnionSelector = RecordOf(record.UnionSelector);
        }
        m_withoutIndex.push_back(&original);
        return copy;
    }

    /// The copy of a record; a selector that is in no class's list is taken as it is.
    const vexa::CAttribInfor* RecordOf(const vexa::CAttribInfor* original) const
    {
        const auto found = m_records.find(original);
        return found != m_records.end() ? found->second : original;
    }

    void CopyIndexes(const vexa::CClassInfor& original, vexa::CClassInfor& copy) const
    {
        for (const auto& [name, record] : original.AttribNameMap)
            copy.AttribNameMap[name] = RecordOf(record);
        for (const auto& [name, flat] : original.FlatAttribMap) {
            vexa::CFlatAttribInfor& entry = copy.FlatAttribMap[name];
            entry = flat;
            entry.AttribInfor = RecordOf(flat.AttribInfor);
            if (entry.PointerPath == nullptr) continue;
            for (const vexa::CAttribInfor*& step : *entry.PointerPath)
                step = RecordOf(step);
        }
        copy.IDMap = CopyOf(original.IDMap);
        copy.UnionEnumMap = CopyOf(original.UnionEnumMap);
    }
    vexa::CAttribIDMap* CopyOf(const vexa::CAttribIDMap* original) const
    {
        if (original == nullptr) return nullptr;
        auto* const copy = new vexa::CAttribIDMap(*original);
        for (const vexa::CAttribInfor*& record : copy->DirectTable)
            record = RecordOf(record);
        for (auto& [id, record] : copy->OtherIDs)
            record = RecordOf(record);
        return copy;
    }

    std::map<const vexa::CClassInfor*, std::unique_ptr<vexa::CClassInfor>> m_classes;
    std::map<const vexa::CContainerInfor*, std::unique_ptr<vexa::CContainerInfor>> m_containers;
    std::map<const vexa::CAttribInfor*, const vexa::CAttribInfor*> m_records;
    std::vector<const vexa::CClassInfor*> m_withoutIndex;
};

} // namespace vexa_test

#endif
