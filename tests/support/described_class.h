#ifndef VEXA_TESTS_SUPPORT_DESCRIBED_CLASS_H
#define VEXA_TESTS_SUPPORT_DESCRIBED_CLASS_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <vexa/class_infor.h>

/// Class descriptors registered by hand, without the description templates.

namespace vexa_test {

using Describer = std::function<void(vexa::CClassInfor&)>;

/// A describing function is a plain function; this one calls the describer that its thread pushed last.
inline thread_local std::vector<Describer> t_describers;

inline void CallDescriber(vexa::CClassInfor& about, vexa::Enum::AccessSpecifierEnum) { t_describers.back()(about); }

/// A registered class of the test's own, whose descriptor goes away with it. Where descriptors refer to one another,
/// declare the one that is referred to first.
class DescribedClass {
public:
    DescribedClass(const char* name, unsigned long size, Describer describe)
    {
        t_describers.push_back(std::move(describe));
        vexa::CClassInfor::InitClassInfor(m_slot, name, size, nullptr, nullptr, &CallDescriber);
        t_describers.pop_back();
    }
    DescribedClass(const char* name, unsigned long size, Describer describe, const DescribedClass& base,
                   unsigned long baseOffset)
    {
        t_describers.push_back(std::move(describe));
        vexa::CClassInfor::InitClassInforWithBaseClass(m_slot, name, size, nullptr, nullptr, &CallDescriber, *base,
                                                       baseOffset);
        t_describers.pop_back();
    }
    DescribedClass(const DescribedClass&) = delete;
    DescribedClass& operator=(const DescribedClass&) = delete;
    ~DescribedClass() { delete m_slot; }

    const vexa::CClassInfor& operator*() const { return *m_slot; }
    const vexa::CClassInfor* operator->() const { return m_slot; }
    /// For a test that gives the class a factory and a deleter, or breaks the descriptor on purpose.
    vexa::CClassInfor& Writable() { return *m_slot; }

private:
    vexa::CClassInfor* m_slot = nullptr;
};

/// Adds a complete public attribute record.
inline vexa::CAttribInfor& Add(vexa::CClassInfor& about, const char* name, std::size_t offset,
                               const vexa::CGnlTypeInfor& type, short attribID = -1)
{
    vexa::CAttribInfor& record =
        about.AddAttribInfor(vexa::Enum::AS_PUBLIC, static_cast<unsigned short>(offset), name, attribID);
    record.TypeInfor = type;
    return record;
}

/// Adds a complete union member, which is active while the selector holds the value.
inline vexa::CAttribInfor& AddUnionMember(vexa::CClassInfor& about, const char* name, std::size_t offset,
                                          const vexa::CGnlTypeInfor& type, const vexa::CAttribInfor& selector,
                                          short value)
{
    vexa::CAttribInfor& record = Add(about, name, offset, type);
    record.UnionSelector = &selector;
    record.UnionAttribEnum = value;
    return record;
}

/// The record at a 0-based place in the class's list.
inline const vexa::CAttribInfor& RecordAt(const vexa::CClassInfor& infor, std::size_t place)
{
    auto position = infor.AttribList.begin();
    while (place-- > 0)
        ++position;
    return *position;
}

/// "name@offset " for every record, in list order; "+" behind the name of an inherited one.
inline std::string ListOf(const vexa::CClassInfor& infor)
{
    std::string list;
    for (const vexa::CAttribInfor& record : infor.AttribList) {
        list += record.Name + (record.IsInherited ? "+@" : "@") + std::to_string(record.Offset) + ' ';
    }
    return list;
}

} // namespace vexa_test

#endif
