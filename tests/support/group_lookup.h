#ifndef VEXA_TESTS_SUPPORT_GROUP_LOOKUP_H
#define VEXA_TESTS_SUPPORT_GROUP_LOOKUP_H

#include <string>

#include <vexa/describe.h>
#include <vexa/group.h>

/// Classes to be designated by groups, and the lookups of both kinds of group under common names.

namespace group_model {

struct Inner {
    int b = 11;
};
VEXA_DESCRIBE(Inner, b)

struct Outer {
    Inner inner;
    std::string name = "Ann";
};
VEXA_DESCRIBE(Outer, inner, name)

} // namespace group_model

namespace vexa_test {

template<class Out>
bool ByName(const vexa::CReferenceGroup& group, Out& out, const std::string& name)
{
    return group.FindReferenceByName(out, name);
}
inline bool ByName(const vexa::CGnlClass& group, vexa::CConstRefrence& out, const std::string& name)
{
    return group.FindAttribByName(out, name);
}
template<class Out>
bool ByPath(const vexa::CReferenceGroup& group, Out& out, const std::string& path)
{
    return group.FindReferenceByFlatName(out, path);
}
inline bool ByPath(const vexa::CGnlClass& group, vexa::CConstRefrence& out, const std::string& path)
{
    return group.FindAttribByFlatName(out, path);
}
template<class Out>
bool ByIndex(const vexa::CReferenceGroup& group, Out& out, unsigned long index)
{
    return group.FindReferenceByIndex(out, index);
}
inline bool ByIndex(const vexa::CGnlClass& group, vexa::CConstRefrence& out, unsigned long index)
{
    return group.FindAttribByIndex(out, index);
}

} // namespace vexa_test

#endif
