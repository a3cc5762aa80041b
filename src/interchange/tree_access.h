#ifndef VEXA_INTERCHANGE_TREE_ACCESS_H
#define VEXA_INTERCHANGE_TREE_ACCESS_H

#include <string>
#include <string_view>

#include <vexa/json_tree.h>

/// \file
/// What filling raw JSON and trees from a checked source needs beside their public functions.

namespace vexa::detail {

struct CRawJsonAccess {
    /// To hold one JSON value that has been checked.
    static std::string& TextOf(CRawJson& raw) noexcept { return raw.m_text; }
};

struct CTreeAccess {
    /// An empty array or object, or a null, a text or a number of JSON's grammar.
    static void Become(CJsonTree& tree, JsonKind kind) noexcept { tree.Become(kind); }
    static void Become(CJsonTree& tree, JsonKind kind, std::string_view text) { tree.Become(kind, std::string(text)); }
    static CJsonTree& AddElement(CJsonTree& array) { return array.m_elements.emplace_back(); }
    /// Without a look whether the object has the key.
    static CJsonTree& AddMember(CJsonTree& object, std::string_view key)
    {
        return object.m_members.emplace_back(key).Value;
    }
    /// Leaves each key once, in its first place with its last value.
    static void DropDuplicates(CJsonTree& object);
};

} // namespace vexa::detail

#endif
