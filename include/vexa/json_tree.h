#ifndef VEXA_JSON_TREE_H
#define VEXA_JSON_TREE_H

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <vexa/custom_type_infor.h>
#include <vexa/export.h>
#include <vexa/policy.h>
#include <vexa/report.h>

/// \file
/// JSON whose form the program does not know beforehand: a text that is kept as it stands, and a tree to look at,
/// change and build. Both can be members of described classes, where each stands for any value, in every format. In the
/// look-ups, conversions and texts of the library they are their JSON text.
///
/// A value belongs to one thread at a time; several threads may look at one. What allocates throws std::bad_alloc, and
/// the value is then as before where nothing else is said.

namespace vexa {

class CEventSink;
class CEventSource;

namespace detail {
template<class T>
struct CCustomTag;
struct CRawJsonAccess;
struct CTreeAccess;
} // namespace detail

/// One JSON value (RFC 8259) by its text, which is kept as it stands; `null` at first. Where JSON is written on one
/// line (CWritePolicy::Indentation is 0), the line breaks in it and the blanks behind them are left out. Its levels
/// count against the bound of depth, both ways.
class VEXA_API CRawJson {
public:
    CRawJson() = default;

    /// Takes the text of one JSON value; blanks around it are left out. \return false, with the value as before, where
    /// it is no JSON; \p report says why.
    bool Set(std::string_view text);
    bool Set(std::string_view text, CReport& report);
    const std::string& Text() const noexcept { return m_text; }
    bool IsNull() const noexcept { return m_text == "null"; }

    /// Whether the texts are the same; see CJsonTree for the comparison of values.
    friend bool operator==(const CRawJson& left, const CRawJson& right) noexcept { return left.m_text == right.m_text; }
    friend bool operator!=(const CRawJson& left, const CRawJson& right) noexcept { return !(left == right); }

private:
    friend struct detail::CRawJsonAccess;

    std::string m_text = "null";
};

enum class JsonKind : unsigned char { NULL_VALUE, BOOL, NUMBER, TEXT, ARRAY, OBJECT };

/// A row of elements or members, to walk along. Valid until something is added to the array or object, or removed.
template<class T>
class CJsonRange {
public:
    constexpr CJsonRange() noexcept = default;
    constexpr CJsonRange(T* first, std::size_t size) noexcept : m_first(first), m_size(size) {}

    constexpr T* begin() const noexcept { return m_first; }
    constexpr T* end() const noexcept { return m_first + m_size; }
    constexpr std::size_t size() const noexcept { return m_size; }
    constexpr bool empty() const noexcept { return m_size == 0; }
    /// \p index must be below size().
    constexpr T& operator[](std::size_t index) const noexcept { return m_first[index]; }

private:
    T* m_first = nullptr;
    std::size_t m_size = 0;
};

/// Any JSON value: null, bool, number, text, array, or object with its members in order.
///
///     vexa::CJsonTree order;
///     order["id"] = 7;
///     order["items"].Append("pen");
///     order["items"].Append(2.50);
///     std::string text = order.AsJson();                        // {"id":7,"items":["pen",2.5]}
///     const vexa::CJsonTree* item = order.Find("items[1]");     // also order.Find("/items/1")
///     double price = item != nullptr ? item->AsDouble().value_or(0) : 0;
///
/// A number keeps its digits as they are written. An object has no key twice: where a text gives one again, the last
/// value stands in the place of the first. A tree may be of any depth: nothing here recurses.
class VEXA_API CJsonTree {
public:
    struct CMember;

    /// Null.
    CJsonTree() noexcept {}
    CJsonTree(std::nullptr_t) noexcept {}
    /// A bool or a number. A floating value gets the shortest digits that read back equal, with `.0` where they would
    /// be those of an integer; NaN and the infinities are numbers here, which JSON has no form for (see
    /// CWritePolicy::AllowNan).
    template<class T, class = std::enable_if_t<std::is_arithmetic_v<T>>>
    CJsonTree(T value)
    {
        if constexpr (std::is_same_v<T, bool>)
            SetBool(value);
        else if constexpr (std::is_floating_point_v<T>)
            SetFloating(value);
        else if constexpr (std::is_signed_v<T>)
            SetInteger(static_cast<long long>(value));
        else
            SetInteger(static_cast<unsigned long long>(value));
    }
    /// A text, in UTF-8. A null pointer gives null.
    CJsonTree(const char* text);
    CJsonTree(std::string_view text);
    CJsonTree(std::string text) noexcept;
    CJsonTree(const CJsonTree& other);
    /// Leaves \p other null.
    CJsonTree(CJsonTree&& other) noexcept;
    /// Given itself, by either of them, a tree stays as it is. \p other may lie inside this one; what is moved must not
    /// hold this one.
    CJsonTree& operator=(const CJsonTree& other);
    CJsonTree& operator=(CJsonTree&& other) noexcept;
    ~CJsonTree();
    void Swap(CJsonTree& other) noexcept;

    static CJsonTree Array(std::initializer_list<CJsonTree> elements = {});
    static CJsonTree Object(std::initializer_list<CMember> members = {});

    // What it is.

    JsonKind Kind() const noexcept { return m_kind; }
    bool IsNull() const noexcept { return m_kind == JsonKind::NULL_VALUE; }
    bool IsBool() const noexcept { return m_kind == JsonKind::BOOL; }
    bool IsNumber() const noexcept { return m_kind == JsonKind::NUMBER; }
    bool IsText() const noexcept { return m_kind == JsonKind::TEXT; }
    bool IsArray() const noexcept { return m_kind == JsonKind::ARRAY; }
    bool IsObject() const noexcept { return m_kind == JsonKind::OBJECT; }

    // What it holds: nothing where it is something else. The views are valid until the value changes.

    std::optional<bool> AsBool() const noexcept;
    std::optional<std::string_view> AsText() const noexcept;
    /// A number as it is written.
    std::optional<std::string_view> AsDigits() const noexcept;
    /// A number without fraction, `1e3` and `2.0` too; nothing where it is out of the type's range.
    std::optional<long long> AsInteger() const noexcept;
    std::optional<unsigned long long> AsUnsigned() const noexcept;
    /// The nearest double; nothing for a number beyond the largest.
    std::optional<double> AsDouble() const noexcept;

    // Numbers by their digits.

    /// Makes it a number. \return false, with the value as before, where \p digits are not of JSON's grammar.
    bool SetDigits(std::string_view digits);

    // Inside arrays and objects.

    /// Elements or members; 0 for every other kind.
    std::size_t Size() const noexcept;
    /// The elements of an array; none of every other kind.
    CJsonRange<CJsonTree> Elements() noexcept;
    CJsonRange<const CJsonTree> Elements() const noexcept;
    /// The members of an object, in order; none of every other kind.
    CJsonRange<CMember> Members() noexcept;
    CJsonRange<const CMember> Members() const noexcept;
    /// The value of a key, which is looked for member by member; null where there is none.
    CJsonTree* Member(std::string_view key) noexcept;
    const CJsonTree* Member(std::string_view key) const noexcept;
    /// What lies at a path, either a JSON Pointer (RFC 6901: `/items/1/name`, with `~1` for `/` and `~0` for `~`) or,
    /// where it does not begin with a slash, `items[1].name`. An empty path is the value itself. Null where there is
    /// nothing.
    CJsonTree* Find(std::string_view path) noexcept;
    const CJsonTree* Find(std::string_view path) const noexcept;

    /// For building: the value of a key, a new null where there is none. What is no object becomes an empty one.
    CJsonTree& operator[](std::string_view key);
    /// For looking: null where there is no such key or no object, so that look-ups can follow each other.
    const CJsonTree& operator[](std::string_view key) const noexcept;
    /// \p index must be below Size() of an array.
    CJsonTree& operator[](std::size_t index) noexcept { return m_elements[index]; }
    const CJsonTree& operator[](std::size_t index) const noexcept { return m_elements[index]; }
    /// Sets the value of a key, at the end or in its place. What is no object becomes one. \return the value.
    CJsonTree& Set(std::string_view key, CJsonTree value);
    /// Adds an element and gives it. What is no array becomes one. \p value may be part of the tree only as a copy.
    CJsonTree& Append(CJsonTree value = {});
    /// \return whether there was one.
    bool Remove(std::string_view key) noexcept;
    bool Remove(std::size_t index) noexcept;
    /// Makes it null.
    void Clear() noexcept;

    // Comparison.

    /// The same value: members in whatever order, numbers by their decimal value (`1`, `1.0`, `10e-1`), the rest by
    /// their contents.
    friend VEXA_API bool operator==(const CJsonTree& left, const CJsonTree& right);
    friend bool operator!=(const CJsonTree& left, const CJsonTree& right) { return !(left == right); }
    /// Also the same order and the same digits: both are written as the same text.
    bool IsIdenticalTo(const CJsonTree& other) const;

    // In and out.

    /// Reads one JSON value. \return false, with the tree as before, where there is a problem.
    bool Parse(std::string_view text, CReport& report, const CReadPolicy& policy = {});
    /// The same from any format: dates and bytes become the texts that JSON has for them.
    bool ReadFrom(CEventSource& source, CReport& report, const CReadPolicy& policy = {});
    /// Writes it as JSON, in place of what \p out holds. \return whether there was no problem.
    bool Write(std::string& out, const CWritePolicy& policy = {}, CReport* report = nullptr) const;
    std::string AsJson(const CWritePolicy& policy = {}) const;
    /// Writes it to any format.
    bool WriteTo(CEventSink& sink, const CWritePolicy& policy = {}, CReport* report = nullptr) const;

private:
    friend struct detail::CTreeAccess;

    void SetBool(bool value) noexcept;
    void SetInteger(long long value);
    void SetInteger(unsigned long long value);
    void SetFloating(float value);
    void SetFloating(double value);
    void SetFloating(long double value);
    /// Gives it empty contents of a kind.
    void Become(JsonKind kind) noexcept;
    void Become(JsonKind kind, std::string text) noexcept;
    void TakeFrom(CJsonTree& other) noexcept;
    void DestroyContents() noexcept;
    void ReleaseInside() noexcept;
    CJsonTree& Inside(std::size_t index) noexcept;
    void CopyFrom(const CJsonTree& other);

    JsonKind m_kind = JsonKind::NULL_VALUE;
    union {
        bool m_bool;
        std::string m_text; ///< TEXT, NUMBER
        std::vector<CJsonTree> m_elements;
        std::vector<CMember> m_members;
    };
};

/// A member of an object. Its key stays, so that an object has no key twice.
struct CJsonTree::CMember {
    CMember(std::string_view key, CJsonTree value = {}) : Value(std::move(value)), m_key(key) {}

    const std::string& Key() const noexcept { return m_key; }

    CJsonTree Value;

private:
    std::string m_key;
};

/// How the description layer knows them.
VEXA_API void VexaDescribeCustom(detail::CCustomTag<CRawJson>, CCustomBasicTypeInfor*& descriptor);
VEXA_API void VexaDescribeCustom(detail::CCustomTag<CJsonTree>, CCustomBasicTypeInfor*& descriptor);

} // namespace vexa

#endif
