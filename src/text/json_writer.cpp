// Writing any value as compact JSON: one walk, made first to measure and then to write.

#include <utility>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>
#include <vexa/group.h>
#include <vexa/helper.h>
#include <vexa/json.h>

#include "core/basic_types.h"
#include "core/bounded.h"
#include "reference/custom_value.h"
#include "text/json_code.h"
#include "text/json_measure.h"
#include "text/nesting.h"

namespace vexa {

using namespace Enum;

namespace {

/// Counts the bound of the text's length, and apart from it what the text may take beyond.
class CMeasuringSink {
public:
    void Null() { m_bound += 4; }
    void Basic(const CConstRefrence&, const CConstRefrence& value)
    {
        if (value.ValueAddress() == nullptr) return Null();
        const text::CJsonLength length = text::MeasureBasic(value);
        m_bound += length.Bound;
        m_excess += length.Excess;
    }
    void Open(char) { ++m_bound; }
    void Close(char) { ++m_bound; }
    void Separator(bool) { ++m_bound; } // counted for the first element too, unless there is none
    void Key(const std::string& name, bool isFirst) { m_bound += name.size() + (isFirst ? 3 : 4); }
    void Unsupported(const CConstRefrence&) {}

    unsigned long Bound() const { return m_bound; }
    /// With the zero that the formatting of the last number asks for.
    unsigned long Room() const { return m_bound + m_excess + 1; }

private:
    unsigned long m_bound = 0;
    unsigned long m_excess = 0;
};

/// Writes into a buffer that has been measured: no look at the room for what the measure counts exactly.
class CWritingSink {
public:
    CWritingSink(char* buffer, unsigned long capacity) : m_buffer(buffer), m_capacity(capacity) {}

    void Null() {}
    void Basic(const CConstRefrence& declared, const CConstRefrence& value)
    {
        if (value.ValueAddress() == nullptr) return;
        if (value.TypeInfor.DataType == DT_CHAR) return CharacterCode(value);
        const bool isQuoted = IsQuoted(declared, value);
        if (isQuoted) Put('"');
        value.AsStdBasicType().AppendToString(m_buffer, m_position, m_capacity, true);
        if (isQuoted) Put('"');
    }
    void Open(char bracket) { Put(bracket); }
    void Close(char bracket) { Put(bracket); }
    void Separator(bool isFirst)
    {
        if (!isFirst) Put(',');
    }
    void Key(const std::string& name, bool isFirst)
    {
        Separator(isFirst);
        Put('"');
        core::memcpy_s(m_buffer + m_position, m_capacity - m_position, name.data(), name.size());
        m_position += name.size();
        Put('"');
        Put(':');
    }
    void Unsupported(const CConstRefrence& ref)
    {
        helper::LogError("It is not currently supported to convert %s types to pJson strings", ref.TypeName().c_str());
    }

    unsigned long Position() const { return m_position; }

private:
    void Put(char byte) { m_buffer[m_position++] = byte; }
    /// A value that a converter gave is quoted by what it is.
    static bool IsQuoted(const CConstRefrence& declared, const CConstRefrence& value)
    {
        const bool isConverted =
            declared.TypeInfor.DataType == DT_CUSTOM_BASIC && reference::HasOwnLayout(declared.TypeInfor);
        return (isConverted ? value : declared).TypeInfor.IsStringTypeEx();
    }
    void CharacterCode(const CConstRefrence& value)
    {
        const unsigned int code = core::Load<unsigned char>(value.ValueAddress());
        static const CGnlTypeInfor codeType(DT_UNSIGNED_INT);
        CStdBasicTypeConstRefrence(codeType, &code).AppendToString(m_buffer, m_position, m_capacity, false);
    }

    char* m_buffer;
    unsigned long m_capacity;
    unsigned long m_position = 0;
};

/// The walk that both sinks share.
template<class Sink>
class CJsonWalk {
public:
    explicit CJsonWalk(Sink& sink) : m_sink(sink) {}

    /// \return 0, or WRITE_UNSUPPORTED for this very value; whatever nested values say is left at IsTooDeep.
    int Walk(const CConstRefrence& ref, const text::CNesting* outer = nullptr)
    {
        const unsigned char code = ref.TypeInfor.DataType;
        if (ref.ValueAddress() == nullptr) {
            m_sink.Null();
        } else if (ref.TypeInfor.IsBasicType()) {
            m_sink.Basic(ref, ref);
        } else if (code == DT_CUSTOM_BASIC) {
            reference::WithStandardValue(ref, [&](const CConstRefrence& value) { m_sink.Basic(ref, value); });
        } else if (code == DT_CLASS || ref.TypeInfor.IsContainer() || code == DT_GNL_CLASS ||
                   code == DT_REFERENCE_GROUP) {
            WalkNesting(ref, outer);
        } else {
            m_sink.Unsupported(ref);
            return text::WRITE_UNSUPPORTED;
        }
        return 0;
    }
    bool IsTooDeep() const { return m_isTooDeep; }

private:
    void WalkNesting(const CConstRefrence& ref, const text::CNesting* outer)
    {
        const text::CNesting nesting = outer != nullptr ? text::CNesting(*outer, ref) : text::CNesting(ref);
        if (m_isTooDeep || !nesting.IsEntered()) {
            if (!m_isTooDeep) text::CNesting::LogNotEntered(ref);
            m_isTooDeep = true;
        } else if (ref.TypeInfor.DataType == DT_CLASS) {
            WalkClass(ref.AsClass(), nesting);
        } else if (ref.TypeInfor.DataType == DT_GNL_CLASS) {
            WalkGroup(*static_cast<const CGnlClass*>(ref.ValueAddress()), nesting);
        } else if (ref.TypeInfor.DataType == DT_REFERENCE_GROUP) {
            WalkGroup(*static_cast<const CReferenceGroup*>(ref.ValueAddress()), nesting);
        } else {
            WalkContainer(ref.AsContainer(), nesting);
        }
    }

    /// Of the named entries none is left out for being null; the indexed ones have no keys.
    template<class Group>
    void WalkGroup(const Group& group, const text::CNesting& nesting)
    {
        m_sink.Open('{');
        bool isFirst = true;
        for (const auto& [name, ref] : group.Named) {
            m_sink.Key(name, std::exchange(isFirst, false));
            Walk(ref, &nesting);
        }
        m_sink.Close('}');
    }

    /// A custom value may be null by what its converter gives.
    static bool IsNullValue(const CConstRefrence& ref)
    {
        if (ref.ValueAddress() == nullptr) return true;
        return ref.TypeInfor.DataType == DT_CUSTOM_BASIC && reference::HasOwnLayout(ref.TypeInfor) &&
               reference::WithStandardValue(
                   ref, [](const CConstRefrence& value) { return value.ValueAddress() == nullptr; });
    }

    void WalkClass(const CClassConstRefrence& object, const text::CNesting& nesting)
    {
        const auto& attribs = object.ClassInfor().AttribList;
        m_sink.Open('{');
        for (const auto& attrib : object.Attribs()) {
            if (IsNullValue(attrib.Value())) continue;
            m_sink.Key(attrib.Name(), &attrib.Infor() == &attribs.front());
            Walk(attrib.Value(), &nesting);
        }
        m_sink.Close('}');
    }

    void WalkContainer(const CContainerConstRefrence& container, const text::CNesting& nesting)
    {
        m_sink.Open('[');
        bool isFirst = true;
        for (const CConstRefrence& element : container) {
            m_sink.Separator(isFirst);
            isFirst = false;
            Walk(element, &nesting);
        }
        m_sink.Close(']');
    }

    Sink& m_sink;
    bool m_isTooDeep = false;
};

} // namespace

int ToJson(std::string& out, const CConstRefrence& ref)
{
    CMeasuringSink measure;
    CJsonWalk<CMeasuringSink> measuring(measure);
    measuring.Walk(ref);
    if (measuring.IsTooDeep()) {
        out.clear();
        return text::NESTED_TOO_DEEP;
    }
    // A string of its own, in case `out` is part of the value.
    std::string text(measure.Room(), '\0');
    CWritingSink sink(text.data(), text.size());
    const int code = CJsonWalk<CWritingSink>(sink).Walk(ref);
    text.resize(code == 0 ? sink.Position() : measure.Bound());
    out.swap(text);
    return code;
}

} // namespace vexa
