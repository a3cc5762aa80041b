#include "text/one_line.h"

#include <cstring>
#include <utility>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>
#include <vexa/group.h>

#include "core/basic_types.h"
#include "reference/custom_value.h"
#include "text/nesting.h"
#include "typeinfo/notes.h"

namespace vexa::text {

using namespace Enum;

namespace {

class CLine {
public:
    explicit CLine(std::string& out) : m_out(out) {}

    void Value(const CConstRefrence& ref, const CNesting* outer)
    {
        const CGnlTypeInfor& type = ref.TypeInfor;
        const void* const value = ref.ValueAddress();
        if (value == nullptr) {
            m_out += "NULL";
        } else if (type.IsBasicType()) {
            ref.AsStdBasicType().AppendToString(m_out, false);
        } else if (type.DataType == DT_VALUE) {
            Value(*static_cast<const CConstRefrence*>(value), outer); // it is a reference
        } else if (type.DataType == DT_CUSTOM_BASIC) {
            Custom(ref, value, outer);
        } else if (IsNestingCode(type)) {
            const CNesting nesting(outer, value, type);
            Nested(type, value, nesting);
        } else {
            AppendString(m_out, ref);
        }
    }

    /// \return whether the shape has parts that are walked.
    bool Shape(const detail::CShape& shape, const void* object, const CNesting* outer)
    {
        switch (shape.Kind) {
        case detail::ShapeKind::OPTIONAL:
            Pointee(shape.Parts[0], OperationsOf<detail::COptionalOperations>(shape).Get(object), outer);
            return true;
        case detail::ShapeKind::VARIANT: Alternative(shape, object, outer); return true;
        case detail::ShapeKind::TUPLE: Tuple(shape, object, outer); return true;
        default: return false;
        }
    }

private:
    static bool IsNestingCode(const CGnlTypeInfor& type)
    {
        return type.DataType == DT_CLASS || type.IsContainer() || type.DataType == DT_GNL_CLASS ||
               type.DataType == DT_REFERENCE_GROUP;
    }

    void Nested(const CGnlTypeInfor& type, const void* value, const CNesting& nesting)
    {
        if (!nesting.IsEntered()) return CNesting::LogNotEntered({type, nullptr});
        switch (type.DataType) {
        case DT_CLASS: return Object({*static_cast<const CClassInfor*>(type.DetailInfor), value}, nesting);
        case DT_GNL_CLASS: return Entries(*static_cast<const CGnlClass*>(value), nesting);
        case DT_REFERENCE_GROUP: return Entries(*static_cast<const CReferenceGroup*>(value), nesting);
        default: return Container({CGnlTypeInfor(type.DataType, 0, type.DetailInfor), value}, nesting);
        }
    }

    void Next(bool& isFirst)
    {
        if (!std::exchange(isFirst, false)) m_out += ", ";
    }
    void Name(const std::string& name, bool& isFirst)
    {
        Next(isFirst);
        m_out += name;
        m_out += ": ";
    }

    void Object(const CClassConstRefrence& object, const CNesting& nesting)
    {
        m_out += '{';
        bool isFirst = true;
        for (const auto& attrib : object.Attribs()) {
            Name(attrib.Name(), isFirst);
            if (attrib.Infor().IsMasked != 0)
                m_out += "***";
            else
                Value(attrib.Value(), &nesting);
        }
        m_out += '}';
    }

    template<class Group>
    void Entries(const Group& group, const CNesting& nesting)
    {
        m_out += '{';
        bool isFirst = true;
        for (const auto& [name, ref] : group.Named) {
            Name(name, isFirst);
            Value(ref, &nesting);
        }
        for (const auto& ref : group.Indexed) {
            Next(isFirst);
            Value(ref, &nesting);
        }
        m_out += '}';
    }

    void Container(const CContainerConstRefrence& container, const CNesting& nesting)
    {
        const CGnlTypeInfor& type = container.TypeInfor;
        if (type.DataType == DT_BITSET || (type.DataType == DT_ARRAY && type.IsStringTypeEx()))
            return AppendString(m_out, container);
        m_out += '[';
        bool isFirst = true;
        for (const CConstRefrence& element : container) {
            Next(isFirst);
            Value(element, &nesting);
        }
        m_out += ']';
    }

    void Custom(const CConstRefrence& ref, const void* value, const CNesting* outer)
    {
        const detail::CShape* const shape = typeinfo::ShapeOf(reference::CustomInfor(ref.TypeInfor));
        if (shape == nullptr || !Shape(*shape, value, outer)) {
            reference::WithStandardValue(ref, [&](const CConstRefrence& standard) { Value(standard, outer); });
        }
    }

    template<class Operations>
    static const Operations& OperationsOf(const detail::CShape& shape)
    {
        return *static_cast<const Operations*>(shape.Operations);
    }

    /// A std::shared_ptr may lead back to where the walk has come from.
    void Pointee(const detail::CTypeSource& part, const void* pointee, const CNesting* outer)
    {
        const CGnlTypeInfor type = detail::MakeTypeInfor(part);
        if (pointee == nullptr || !IsNestingCode(type) || type.HoldingFlags != (type.HoldingFlags & HF_CONST))
            return Value({type, pointee}, outer);
        const CNesting nesting(outer, pointee, CGnlTypeInfor(type.DataType, HF_POINTER, type.DetailInfor));
        Nested(type, pointee, nesting);
    }
    void Alternative(const detail::CShape& shape, const void* object, const CNesting* outer)
    {
        const auto& variant = OperationsOf<detail::CVariantOperations>(shape);
        const void* const value = variant.Get(object);
        if (value == nullptr)
            m_out += "NULL";
        else
            Value({detail::MakeTypeInfor(shape.Parts[variant.Index(object)]), value}, outer);
    }
    void Tuple(const detail::CShape& shape, const void* object, const CNesting* outer)
    {
        const auto& tuple = OperationsOf<detail::CTupleOperations>(shape);
        m_out += '[';
        bool isFirst = true;
        for (unsigned int i = 0; i < shape.PartCount; ++i) {
            Next(isFirst);
            Value({detail::MakeTypeInfor(shape.Parts[i]), tuple.Part(const_cast<void*>(object), i)}, outer);
        }
        m_out += ']';
    }

    std::string& m_out;
};

} // namespace

void AppendOneLine(std::string& out, const CConstRefrence& ref) { CLine(out).Value(ref, nullptr); }

void AppendOneLine(std::string& out, const detail::CShape& shape, const void* object)
{
    CLine(out).Shape(shape, object, nullptr);
}

} // namespace vexa::text
