#ifndef VEXA_TESTS_SUPPORT_TEXT_MODEL_H
#define VEXA_TESTS_SUPPORT_TEXT_MODEL_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/custom_type_infor.h>
#include <vexa/describe.h>

/// What the tests of texts and JSON share: a few described classes, a custom type, and the JSON text of a value.

namespace vexa_test {

struct Address {
    std::string city;
};

struct Person {
    std::string name;
    int age = 0;
    Address address;
    std::vector<int> tags;
    std::unique_ptr<Person> next;
};

struct Empty {};

VEXA_DESCRIBE(Address, city)
VEXA_DESCRIBE(Person, name, age, address, tags, next)
VEXA_DESCRIBE_CLASS(Empty) {}

inline Person Ann()
{
    Person ann;
    ann.name = "Ann";
    ann.age = 30;
    ann.address.city = "Oslo";
    ann.tags = {1, 2};
    return ann;
}

/// The JSON text of anything that ToJson takes; it must be written without a failure.
template<class T>
std::string Json(const T& value)
{
    std::string out = "what was there before";
    EXPECT_EQ(vexa::ToJson(out, value), 0);
    return out;
}

/// An application type that is handled as the one value it holds.
template<class T>
struct Custom {
    char Other = 'o';
    T Value{};
};

/// The descriptor of a Custom<T>, whose T is described as `underlying`.
template<class T>
vexa::CCustomBasicTypeInfor CustomType(const char* name, const vexa::CGnlTypeInfor& underlying)
{
    vexa::CCustomBasicTypeInfor infor;
    infor.SetBaseTypeInfor(
        name, sizeof(Custom<T>), []() -> void* { return new Custom<T>(); },
        [](void* object) { delete static_cast<Custom<T>*>(object); }, 0);
    infor.ValueOffset = offsetof(Custom<T>, Value);
    infor.Underlying = underlying;
    return infor;
}

} // namespace vexa_test

#endif
