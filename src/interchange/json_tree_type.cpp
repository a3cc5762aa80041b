// Raw JSON and trees as types: how the description layer, the conversions and the texts see them, and their own ways in
// and out, which are those of every described object.

#include <vexa/json_tree.h>

#include <memory>
#include <utility>

#include <vexa/detail/interchange.h>
#include <vexa/detail/slot.h>
#include <vexa/helper.h>
#include <vexa/value.h>

#include "typeinfo/finished_class.h"

namespace vexa {
namespace {

using detail::CShape;
using detail::ShapeKind;
using typeinfo::CFinishedCustom;

// What differs between the two types.

bool SetFromText(CRawJson& raw, std::string_view text) { return raw.Set(text); }
bool SetFromText(CJsonTree& tree, std::string_view text)
{
    CReport report;
    return tree.Parse(text, report);
}
std::string TextOf(const CRawJson& raw) { return raw.Text(); }
std::string TextOf(const CJsonTree& tree) { return tree.AsJson(); }

template<class T>
struct CTypeFacts;
template<>
struct CTypeFacts<CRawJson> {
    static constexpr const char* NAME = "vexa::CRawJson";
    static constexpr ShapeKind KIND = ShapeKind::RAW_JSON;
};
template<>
struct CTypeFacts<CJsonTree> {
    static constexpr const char* NAME = "vexa::CJsonTree";
    static constexpr ShapeKind KIND = ShapeKind::JSON_TREE;
};

template<class T>
void ToValue(const void* object, CValue& out)
{
    out = TextOf(*static_cast<const T*>(object));
}

/// A text that is no JSON leaves the empty state.
template<class T>
void FromValue(void* object, const CValue& in)
{
    T read;
    if (!in.IsNull() && !SetFromText(read, in.As_std_string()))
        helper::LogError("A %s cannot be read from a text that is no JSON", CTypeFacts<T>::NAME);
    *static_cast<T*>(object) = std::move(read);
}

template<class T>
constexpr CShape MakeShape()
{
    CShape shape{};
    shape.Kind = CTypeFacts<T>::KIND;
    shape.Swap = [](void* left, void* right) noexcept { std::swap(*static_cast<T*>(left), *static_cast<T*>(right)); };
    return shape;
}
template<class T>
constexpr CShape SHAPE = MakeShape<T>();

template<class T>
std::unique_ptr<CFinishedCustom> MakeDescriptor()
{
    auto made = std::make_unique<CFinishedCustom>();
    made->SetBaseTypeInfor(
        CTypeFacts<T>::NAME, sizeof(T), []() -> void* { return new T(); },
        [](void* object) { delete static_cast<T*>(object); }, 0);
    made->ToValue = &ToValue<T>;
    made->FromValue = &FromValue<T>;
    made->Shape = &SHAPE<T>;
    made->Mark.Set(detail::CFinishedMark::SHAPE);
    return made;
}

/// The descriptor by which the library itself refers to such a value.
template<class T>
const CGnlTypeInfor& TypeInfor()
{
    static const CFinishedCustom& infor = *MakeDescriptor<T>().release();
    static const CGnlTypeInfor type(Enum::DT_CUSTOM_BASIC, 0, &infor);
    return type;
}

template<class T>
CRefrence RefOf(T& object)
{
    return {TypeInfor<T>(), &object};
}
template<class T>
CConstRefrence RefOf(const T& object)
{
    return {TypeInfor<T>(), &object};
}

} // namespace

void VexaDescribeCustom(detail::CCustomTag<CRawJson>, CCustomBasicTypeInfor*& descriptor)
{
    descriptor = MakeDescriptor<CRawJson>().release();
}

void VexaDescribeCustom(detail::CCustomTag<CJsonTree>, CCustomBasicTypeInfor*& descriptor)
{
    descriptor = MakeDescriptor<CJsonTree>().release();
}

bool CRawJson::Set(std::string_view text)
{
    CReport report(1);
    return Set(text, report);
}

bool CRawJson::Set(std::string_view text, CReport& report)
{
    CRawJson read;
    if (!ReadJson(RefOf(read), text, report)) return false;
    m_text.swap(read.m_text);
    return true;
}

bool CJsonTree::Parse(std::string_view text, CReport& report, const CReadPolicy& policy)
{
    CJsonTree read;
    if (!ReadJson(RefOf(read), text, report, policy)) return false;
    Swap(read);
    return true;
}

bool CJsonTree::ReadFrom(CEventSource& source, CReport& report, const CReadPolicy& policy)
{
    CJsonTree read;
    if (!ReadEvents(RefOf(read), source, report, policy)) return false;
    Swap(read);
    return true;
}

bool CJsonTree::Write(std::string& out, const CWritePolicy& policy, CReport* report) const
{
    return WriteJson(out, RefOf(*this), policy, report);
}

std::string CJsonTree::AsJson(const CWritePolicy& policy) const
{
    std::string out;
    Write(out, policy);
    return out;
}

bool CJsonTree::WriteTo(CEventSink& sink, const CWritePolicy& policy, CReport* report) const
{
    return WriteEvents(sink, RefOf(*this), policy, report);
}

} // namespace vexa
