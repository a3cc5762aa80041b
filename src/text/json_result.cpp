#include <algorithm>
#include <iterator>

#include <vexa/json.h>

#include "text/json_code.h"

namespace vexa {
namespace {

using namespace text;

struct CResultText {
    int Code;
    const char* Text;
};

/// In ascending order of codes.
constexpr CResultText TEXTS[] = {
    {0, "Success."},
    {WRITE_UNSUPPORTED, "A value of this type cannot be written as JSON."},
    {STRING_NO_QUOTE, "A string was expected, which begins with a quotation mark."},
    {STRING_ENDS_IN_ESCAPE, "The text ends right after a backslash inside a string."},
    {STRING_NOT_CLOSED, "The text ends inside a string."},
    {BOOL_TOO_SHORT, "The text ends where true or false was expected."},
    {BOOL_UNKNOWN, "Neither true nor false stands where one of them was expected."},
    {BASIC_UNREADABLE, "A value of this basic type cannot be read from JSON."},
    {CLASS_NO_BRACE, "An object was expected, which begins with an opening brace."},
    {CLASS_NO_KEY, "A key in quotation marks was expected in an object; an empty object is not accepted."},
    {CLASS_KEY_NOT_CLOSED, "The text ends inside a key of an object."},
    {CLASS_NO_COLON, "A colon was expected after a key of an object."},
    {CLASS_NO_VALUE, "The text ends after the colon of an object."},
    {CLASS_ENDS_AFTER_VALUE, "The text ends after a value of an object."},
    {CLASS_NO_SEPARATOR,
     "A comma or a closing brace was expected in an object, or the class has no attribute of this key."},
    {CLASS_ENDS_BEFORE_KEY, "The text ends where a key of an object was expected."},
    {GENERIC_NO_BRACE, "A generic object was expected, which begins with an opening brace."},
    {GENERIC_NO_KEY, "A key in quotation marks was expected in a generic object; an empty one is not accepted."},
    {GENERIC_KEY_NOT_CLOSED, "The text ends inside a key of a generic object."},
    {GENERIC_NO_COLON, "A colon was expected after a key of a generic object."},
    {GENERIC_NO_VALUE, "The text ends after the colon of a generic object."},
    {GENERIC_ENDS_AFTER_VALUE, "The text ends after a value of a generic object."},
    {GENERIC_NO_SEPARATOR,
     "A comma or a closing brace was expected in a generic object, or it has no entry of this key."},
    {GENERIC_ENDS_BEFORE_KEY, "The text ends where a key of a generic object was expected."},
    {ARRAY_NO_BRACKET, "An array was expected, which begins with an opening bracket."},
    {ARRAY_ENDS_AFTER_BRACKET, "The text ends right after the opening bracket of an array."},
    {ARRAY_ENDS_BEFORE_ELEMENT, "The text ends after a comma and blanks in an array."},
    {ARRAY_ENDS_AFTER_ELEMENT, "The text ends after an element of an array."},
    {ARRAY_NO_SEPARATOR, "A comma or a closing bracket was expected in an array, or a fixed array has no more slots."},
    {ARRAY_NO_ELEMENT, "The text ends where an element of an array was expected."},
    {CUSTOM_STRING_UNREADABLE, "The string of a custom type could not be read."},
    {KIND_UNREADABLE, "A value of this kind cannot be read from JSON."},
    {TARGET_READ_ONLY, "The target is read-only."},
    {VALUE_MISSING, "There is no value to read into: it could not be made, or its container does not take elements."},
    {UNION_MEMBER_INACTIVE,
     "A member of a union that holds pointers or objects is read only while it is the active one."},
    {NESTED_TOO_DEEP, "The value is nested too deep, or in itself."},
};

} // namespace

const char* JsonResultText(int code)
{
    const auto* const found = std::lower_bound(std::begin(TEXTS), std::end(TEXTS), code,
                                               [](const CResultText& text, int wanted) { return text.Code < wanted; });
    return found != std::end(TEXTS) && found->Code == code ? found->Text : "This is not a result code of JSON text.";
}

} // namespace vexa
