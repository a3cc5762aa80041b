#ifndef VEXA_JSON_H
#define VEXA_JSON_H

#include <string>

#include <vexa/export.h>
#include <vexa/refrence.h>
#include <vexa/text.h>

/// \file
/// Any described value to and from compact JSON text.
///
/// Strings are bytes: every byte outside printable ASCII is written as \\u00XX, so that any string comes back byte for
/// byte. CBinary, CNumeric, tm and CDateTime are written without quotes and cannot be read back.

namespace vexa {

/// Writes \p ref as JSON into \p out.
///
/// An attribute that is null is left out; the comma before an attribute goes by its place in the class, so an object
/// whose first attribute is null begins `{,`. A nested value of a kind that JSON does not hold is logged and left out.
/// \return 0; 262 when \p ref itself is of such a kind; 999 when the value nests deeper than MAX_NESTING_DEPTH or holds
/// itself through pointers. After 262 \p out has the length that was measured, which is 0 for a kind that cannot be
/// written; after 999 it is empty. A null, vexa::NullType included, gives an empty text and 0.
///
/// The memory of \p out is used again where it suffices. \p ref must not change meanwhile; \p out may be part of it,
/// and texts in it may point into \p out: then, and where a converter or a container operation of the application's own
/// is asked, a string of its own is written and swapped in. Throws std::bad_alloc; \p out then holds anything.
VEXA_API int ToJson(std::string& out, const CConstRefrence& ref);

/// Reads JSON text into \p target, which is cleared first; an empty text leaves it cleared. Bytes after the value are
/// ignored.
///
/// Of numbers an optional minus and decimal digits are read; of custom values those over a std::string. Keys that the
/// class does not have are errors. A key that comes again finds what it left: texts and containers are appended to.
/// What a null kept (a MayNull below its flag) is emptied before it is read. \p text must not be part of \p target.
/// \return 0, or a code that names the point of failure, see JsonResultText; of the library's own are 997, where there
/// is no value to read into (a pointee or an element that cannot be made, a container without the operation that takes
/// elements, a union whose member cannot be made or destroyed in place), 998 (see below), and 999, where the text nests
/// deeper than MAX_NESTING_DEPTH. What was read before stays in \p target.
///
/// Text does not choose an address: where any member of a union holds a pointer or needs a destructor, or leaves room
/// of a pointer's size undescribed, also deep inside, its members are read only while they are the active ones, else
/// 998. When the text, or the clearing before it, changes the selector, the member that was active is destroyed and the
/// one that becomes active is made; a union whose selector does not change is left alone. What is made holds what a
/// default object holds, except that vectors are empty, pointers (std::unique_ptr too) and the bytes of what is not
/// described are 0, and a member that is a MayNull is null. Made in place are basic types, pointers, std::vectors,
/// arrays, and classes and custom types of these that leave no room of a pointer's size undescribed; another member,
/// and one that is itself the selector of a union, makes the change of the selector fail with 997, and the selector
/// keeps its value. Members of a union of plain values are read by name, active or not.
VEXA_API int FromJson(CRefrence& target, const std::string& text);
inline int FromJson(CRefrence&& target, const std::string& text) { return FromJson(target, text); }

/// One sentence for a result code of ToJson or FromJson; also for one that is neither's.
VEXA_API const char* JsonResultText(int code);

} // namespace vexa

#endif
