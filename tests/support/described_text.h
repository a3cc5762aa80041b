#ifndef VEXA_TESTS_SUPPORT_DESCRIBED_TEXT_H
#define VEXA_TESTS_SUPPORT_DESCRIBED_TEXT_H

#include <cstdio>
#include <string>

#include <vexa/describe.h>

/// Descriptors and values as text, so that a test compares a whole one at once.

namespace vexa_test {

/// "type name, code, flags" of a general descriptor; with the two offsets of a MayNull behind them.
inline std::string TypeText(const vexa::CGnlTypeInfor& type)
{
    char numbers[32];
    std::snprintf(numbers, sizeof numbers, ", %u, 0x%02x", type.DataType, type.HoldingFlags);
    std::string text = type.TypeName() + numbers;
    if (type.NullFlagOffset != 0 || type.ValueOffset != 0) {
        text += ", " + std::to_string(type.NullFlagOffset) + "/" + std::to_string(type.ValueOffset);
    }
    return text;
}

/// A line "name@offset: type" for every attribute, in list order.
inline std::string MembersOf(const vexa::CClassInfor& infor)
{
    std::string lines;
    for (const vexa::CAttribInfor& record : infor.AttribList) {
        lines += record.Name + '@' + std::to_string(record.Offset) + ": " + TypeText(record.TypeInfor) + '\n';
    }
    return lines;
}

/// What MembersOf says of one member, which \p object shows the place of.
template<class Object, class Member>
std::string Line(const Object& object, const Member& member, const std::string& name, const std::string& type)
{
    const auto offset = reinterpret_cast<const char*>(&member) - reinterpret_cast<const char*>(&object);
    return name + '@' + std::to_string(offset) + ": " + type + '\n';
}

/// "name@offset " for every flat entry, in key order; "*" behind one that is reached through a pointer.
inline std::string FlatNamesOf(const vexa::CClassInfor& infor)
{
    std::string names;
    for (const auto& [name, entry] : infor.FlatAttribMap) {
        names += name + '@' + std::to_string(entry.Offset) + (entry.PointerPath != nullptr ? "* " : " ");
    }
    return names;
}

/// The JSON text, or "code <n>".
template<class T>
std::string Json(const T& object)
{
    std::string text;
    const int code = vexa::ToJson(text, object);
    return code == 0 ? text : "code " + std::to_string(code);
}

/// Reads the text into an object of its own and says what it then is: its JSON text, or the code alone.
template<class T>
std::string ReadBack(const std::string& text)
{
    T object{};
    const int code = vexa::FromJson(object, text);
    return code == 0 ? Json(object) : "code " + std::to_string(code);
}

} // namespace vexa_test

#endif
