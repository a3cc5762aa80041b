#ifndef VEXA_INTERCHANGE_JSON_TREE_IO_H
#define VEXA_INTERCHANGE_JSON_TREE_IO_H

#include <cstddef>
#include <string>
#include <vector>

#include <vexa/json_tree.h>

#include "interchange/source.h"
#include "interchange/tree_access.h"
#include "interchange/tree_number.h"

/// \file
/// Trees and raw JSON from any source (source.h) and to any sink. Nothing recurses: however deep a tree is, the stack
/// is not.

namespace vexa::interchange {

/// The texts that JSON has for bytes and dates.
std::string BytesAsText(std::string_view bytes);
std::string DateTimeAsText(const CDateTime& time);
/// A number of any source in JSON's grammar, or `NaN`, `Infinity`, `-Infinity`. \p memory holds it where the source
/// does not.
std::string_view DigitsOf(const CNumber& number, std::string& memory);
/// Whether a tree's digits are neither NaN nor an infinity.
inline bool IsFinite(std::string_view digits) noexcept { return digits.back() >= '0' && digits.back() <= '9'; }

// Reading.

/// Reads the next value, if it is no array or object; else enters it. \return false where the source has failed.
template<class Source>
bool ReadTreeValue(Source& source, CJsonTree& tree, bool& isEntered)
{
    using detail::CTreeAccess;
    isEntered = false;
    switch (source.Peek()) {
    case EventKind::NULL_VALUE: return source.Null();
    case EventKind::BOOL: {
        bool value = false;
        if (!source.Bool(value)) return false;
        tree = value;
        return true;
    }
    case EventKind::SIGNED:
    case EventKind::UNSIGNED:
    case EventKind::FLOATING: {
        CNumber number;
        std::string memory;
        if (!source.Number(number)) return false;
        CTreeAccess::Become(tree, JsonKind::NUMBER, DigitsOf(number, memory));
        return true;
    }
    case EventKind::STRING: {
        CText text;
        if (!source.String(text)) return false;
        CTreeAccess::Become(tree, JsonKind::TEXT, text.Text);
        return true;
    }
    case EventKind::BYTES: {
        CText bytes;
        if (!source.Bytes(bytes)) return false;
        tree = BytesAsText(bytes.Text);
        return true;
    }
    case EventKind::DATE_TIME: {
        CDateTime time;
        if (!source.DateTime(time)) return false;
        tree = DateTimeAsText(time);
        return true;
    }
    case EventKind::BEGIN_ARRAY:
        isEntered = true;
        CTreeAccess::Become(tree, JsonKind::ARRAY);
        return source.EnterArray();
    case EventKind::BEGIN_OBJECT:
        isEntered = true;
        CTreeAccess::Become(tree, JsonKind::OBJECT);
        return source.EnterObject();
    default: return source.Skip() && false; // which tells the problem
    }
}

/// Where the next value of the innermost array or object that is open goes; those that end are left. Null behind the
/// last one, where the source has failed and where \p count gives false.
template<class Source, class Count>
CJsonTree* NextTreePlace(Source& source, std::vector<CJsonTree*>& open, const Count& count)
{
    using detail::CTreeAccess;
    while (!open.empty()) {
        CJsonTree& holder = *open.back();
        if (holder.IsArray()) {
            if (source.NextElement()) return count() ? &CTreeAccess::AddElement(holder) : nullptr;
        } else {
            CText key;
            if (source.NextKey(key)) return count() ? &CTreeAccess::AddMember(holder, key.Text) : nullptr;
            CTreeAccess::DropDuplicates(holder);
        }
        if (source.HasFailed()) return nullptr;
        open.pop_back();
    }
    return nullptr;
}

/// Reads the next value of the source, whatever it is, in place of what \p tree holds. \p count is asked for each
/// element and entry whether it may be read. \return false where it may not or the source has failed; the tree then
/// holds what came before.
template<class Source, class Count>
bool ReadTree(Source& source, CJsonTree& tree, const Count& count)
{
    tree.Clear();
    std::vector<CJsonTree*> open;
    for (CJsonTree* place = &tree; place != nullptr; place = NextTreePlace(source, open, count)) {
        bool isEntered = false;
        if (!ReadTreeValue(source, *place, isEntered)) return false;
        if (isEntered) open.push_back(place);
    }
    return open.empty() && !source.HasFailed();
}

// Writing: to a sink of sink.h.

/// How a tree is written, and what was in the way.
struct CTreeWriting {
    bool SortKeys = false;
    bool TakesNan = false;     ///< the format has NaN and the infinities, or the policy lets them be written
    std::size_t DepthLeft = 0; ///< levels of arrays and objects that may still be opened
    bool WasTooDeep = false;   ///< an array or object deeper inside is written as null
    bool HasLost = false;      ///< NaN or an infinity is written as null
};

/// An array or object of the tree that is being written.
struct CTreeFrame {
    CTreeFrame(const CJsonTree& holder, bool sortKeys);

    /// The next value inside; null behind the last.
    const CJsonTree* Next(const CJsonTree::CMember*& member) noexcept
    {
        if (At == Holder->Size()) return nullptr;
        const std::size_t index = Order.empty() ? At : Order[At];
        ++At;
        member = Holder->IsObject() ? &Holder->Members()[index] : nullptr;
        return member != nullptr ? &member->Value : &(*Holder)[index];
    }

    const CJsonTree* Holder;
    std::size_t At = 0;
    std::vector<std::size_t> Order; ///< of the members, where it is not their own
};

/// Writes one value, or begins the array or object that it is.
template<class Sink, class Where>
typename Sink::Cursor WriteTreeValue(Sink& sink, typename Sink::Cursor at, const CJsonTree& tree, CTreeWriting& writing,
                                     const Where& where, bool& isOpened)
{
    isOpened = false;
    switch (tree.Kind()) {
    case JsonKind::NULL_VALUE: break;
    case JsonKind::BOOL: return sink.Bool(at, *tree.AsBool());
    case JsonKind::TEXT: return sink.Text(at, *tree.AsText(), where);
    case JsonKind::NUMBER:
        if (IsFinite(*tree.AsDigits())) return sink.Raw(at, *tree.AsDigits());
        if (writing.TakesNan) return sink.Floating(at, *tree.AsDouble());
        writing.HasLost = true;
        break;
    case JsonKind::ARRAY:
    case JsonKind::OBJECT:
        isOpened = writing.DepthLeft != 0;
        if (isOpened) return tree.IsArray() ? sink.BeginArray(at, tree.Size()) : sink.BeginObject(at, tree.Size());
        writing.WasTooDeep = true;
        break;
    }
    return sink.Null(at);
}

/// Writes a tree. What is told of it in problems is the way to the whole tree, \p where.
template<class Sink, class Where>
typename Sink::Cursor WriteTree(Sink& sink, typename Sink::Cursor at, const CJsonTree& tree, CTreeWriting& writing,
                                const Where& where)
{
    std::vector<CTreeFrame> open;
    const CJsonTree* value = &tree;
    for (;;) {
        bool isOpened = false;
        at = WriteTreeValue(sink, at, *value, writing, where, isOpened);
        if (isOpened) {
            open.emplace_back(*value, writing.SortKeys);
            --writing.DepthLeft;
        }
        const CJsonTree::CMember* member = nullptr;
        for (value = nullptr; value == nullptr; open.pop_back(), ++writing.DepthLeft) {
            if (open.empty()) return at;
            value = open.back().Next(member);
            if (value != nullptr) break;
            at = open.back().Holder->IsArray() ? sink.EndArray(at) : sink.EndObject(at);
        }
        at = member != nullptr ? sink.Key(at, std::string_view(member->Key()), where) : sink.Element(at);
    }
}

} // namespace vexa::interchange

#endif
