#ifndef VEXA_TESTS_SUPPORT_RESIDENT_LIST_H
#define VEXA_TESTS_SUPPORT_RESIDENT_LIST_H

#include <cstddef>
#include <list>
#include <string>

#include <gtest/gtest.h>

#include <vexa/container_refrence.h>

#include "support/described_class.h"
#include "support/described_container.h"
#include "support/type_of.h"

namespace vexa_test {

struct Residence {
    int Number = 0;
    int Code = 0;
};

struct Resident {
    int Age = 0;
    int Height = 0;
    std::string Name;
    const char* Nick = nullptr;
    Wrapped<std::string> Title{1, ""};
    Residence Home;
    Residence* Office = nullptr;
};

inline Resident MakeResident(int age, const char* name, const char* nick)
{
    Resident resident;
    resident.Age = age;
    resident.Height = 100 + age;
    resident.Name = name;
    resident.Nick = nick;
    resident.Home.Code = 1000 + age;
    return resident;
}

/// A list of two objects of a described class.
class ResidentList : public testing::Test {
protected:
    const DescribedClass m_residence{"Residence", sizeof(Residence), [](vexa::CClassInfor& about) {
                                         Add(about, "number", offsetof(Residence, Number), Plain(vexa::Enum::DT_INT));
                                         Add(about, "code", offsetof(Residence, Code), Plain(vexa::Enum::DT_INT));
                                     }};
    const DescribedClass m_resident{
        "Resident", sizeof(Resident), [this](vexa::CClassInfor& about) {
            Add(about, "age", offsetof(Resident, Age), Plain(vexa::Enum::DT_INT));
            Add(about, "height", offsetof(Resident, Height), Plain(vexa::Enum::DT_INT));
            Add(about, "name", offsetof(Resident, Name), Plain(vexa::Enum::DT_STD_STRING));
            Add(about, "nick", offsetof(Resident, Nick), ConstPointer(vexa::Enum::DT_CONST_CHAR_PTR));
            Add(about, "title", offsetof(Resident, Title), MayNull<std::string>(vexa::Enum::DT_STD_STRING));
            Add(about, "home", offsetof(Resident, Home), Plain(vexa::Enum::DT_CLASS, &*m_residence));
            Add(about, "office", offsetof(Resident, Office), OwnedPointer(vexa::Enum::DT_CLASS, &*m_residence));
        }};
    std::list<Resident> m_people = {MakeResident(30, "Ann", "an"), MakeResident(40, "Bob", "bo")};
    const vexa::CContainerInfor m_infor =
        SequenceContainer<std::list<Resident>>("std::list", Plain(vexa::Enum::DT_CLASS, &*m_resident));
    const vexa::CContainerConstRefrence m_ref{Plain(vexa::Enum::DT_SEQUENCE_B, &m_infor), &m_people};
};

} // namespace vexa_test

#endif
