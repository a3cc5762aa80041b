#ifndef VEXA_TESTS_SUPPORT_PERSON_LIST_H
#define VEXA_TESTS_SUPPORT_PERSON_LIST_H

#include <cstddef>
#include <list>
#include <string>

#include <gtest/gtest.h>

#include <vexa/container_refrence.h>

#include "support/described_class.h"
#include "support/described_container.h"
#include "support/type_of.h"

namespace vexa_test {

struct Address {
    int Number = 0;
    int Code = 0;
};

struct Person {
    int Age = 0;
    int Height = 0;
    std::string Name;
    const char* Nick = nullptr;
    Wrapped<std::string> Title{1, ""};
    Address Home;
    Address* Office = nullptr;
};

inline Person MakePerson(int age, const char* name, const char* nick)
{
    Person person;
    person.Age = age;
    person.Height = 100 + age;
    person.Name = name;
    person.Nick = nick;
    person.Home.Code = 1000 + age;
    return person;
}

/// A list of two objects of a described class.
class PersonList : public testing::Test {
protected:
    const DescribedClass m_address{"Address", sizeof(Address), [](vexa::CClassInfor& about) {
                                       Add(about, "number", offsetof(Address, Number), Plain(vexa::Enum::DT_INT));
                                       Add(about, "code", offsetof(Address, Code), Plain(vexa::Enum::DT_INT));
                                   }};
    const DescribedClass m_person{
        "Person", sizeof(Person), [this](vexa::CClassInfor& about) {
            Add(about, "age", offsetof(Person, Age), Plain(vexa::Enum::DT_INT));
            Add(about, "height", offsetof(Person, Height), Plain(vexa::Enum::DT_INT));
            Add(about, "name", offsetof(Person, Name), Plain(vexa::Enum::DT_STD_STRING));
            Add(about, "nick", offsetof(Person, Nick), ConstPointer(vexa::Enum::DT_CONST_CHAR_PTR));
            Add(about, "title", offsetof(Person, Title), MayNull<std::string>(vexa::Enum::DT_STD_STRING));
            Add(about, "home", offsetof(Person, Home), Plain(vexa::Enum::DT_CLASS, &*m_address));
            Add(about, "office", offsetof(Person, Office), OwnedPointer(vexa::Enum::DT_CLASS, &*m_address));
        }};
    std::list<Person> m_people = {MakePerson(30, "Ann", "an"), MakePerson(40, "Bob", "bo")};
    const vexa::CContainerInfor m_infor =
        SequenceContainer<std::list<Person>>("std::list", Plain(vexa::Enum::DT_CLASS, &*m_person));
    const vexa::CContainerConstRefrence m_ref{Plain(vexa::Enum::DT_SEQUENCE_B, &m_infor), &m_people};
};

} // namespace vexa_test

#endif
