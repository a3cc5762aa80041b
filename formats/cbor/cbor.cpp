// CBOR as events and from events, through libcbor's streaming decoder, which allocates nothing, and its encoders.

#include <vexa/cbor.h>

#include <cbor.h>

#include <vexa/format.h>

namespace vexa {
namespace {

using Kind = EventKind;

CFormatAbilities CborAbilities()
{
    CFormatAbilities abilities;
    abilities.HasBytes = abilities.HasNan = abilities.TellsIntegersFromFloats = abilities.HasIntegerKeys = true;
    abilities.HasTags = true;
    abilities.HasLines = false;
    return abilities;
}

// The decoder calls one of these functions for a data item, which becomes an event: a break an END.

template<Kind KIND>
void Take(void* event)
{
    static_cast<CEvent*>(event)->Kind = KIND;
}
template<Kind KIND, class T>
void Take(void* event, T value)
{
    CEvent& taken = *static_cast<CEvent*>(event);
    taken.Kind = KIND;
    if constexpr (KIND == Kind::FLOATING)
        taken.Floating = static_cast<double>(value);
    else if constexpr (KIND == Kind::BOOL)
        taken.Bool = value;
    else
        taken.Size = taken.Unsigned = value;
}
template<Kind KIND>
void Take(void* event, cbor_data data, std::size_t size)
{
    CEvent& taken = *static_cast<CEvent*>(event);
    taken.Kind = KIND;
    taken.Text = {reinterpret_cast<const char*>(data), size};
    taken.IsTextKept = true;
}

constexpr cbor_callbacks CALLBACKS = {
    Take<Kind::UNSIGNED>,    Take<Kind::UNSIGNED>,    Take<Kind::UNSIGNED>,     Take<Kind::UNSIGNED>,
    Take<Kind::NEGATIVE>,    Take<Kind::NEGATIVE>,    Take<Kind::NEGATIVE>,     Take<Kind::NEGATIVE>,
    Take<Kind::BEGIN_BYTES>, Take<Kind::BYTES>,       Take<Kind::STRING>,       Take<Kind::BEGIN_STRING>,
    Take<Kind::BEGIN_ARRAY>, Take<Kind::BEGIN_ARRAY>, Take<Kind::BEGIN_OBJECT>, Take<Kind::BEGIN_OBJECT>,
    Take<Kind::TAG>,         Take<Kind::FLOATING>,    Take<Kind::FLOATING>,     Take<Kind::FLOATING>,
    Take<Kind::NULL_VALUE>,  Take<Kind::NULL_VALUE>,  Take<Kind::BOOL>,         Take<Kind::END>};

class CCborSource : public CEventSource {
public:
    explicit CCborSource(std::string_view bytes) : m_bytes(bytes) {}

    CFormatAbilities Abilities() const override { return CborAbilities(); }
    bool Next(CEvent& event, CProblem& problem) override
    {
        event = CEvent();
        event.Offset = m_at;
        problem.Code = m_nesting.IsFull() ? End(event) : Decode(event);
        event.Length = m_at - event.Offset;
        m_nesting.Add(event);
        if (problem.Code == ProblemCode::SYNTAX) problem.Expected = "a data item";
        return problem.Code == ProblemCode::NONE;
    }

private:
    ProblemCode End(CEvent& event) const
    {
        event.Kind = m_nesting.EndKind();
        const bool isGood = event.Kind != Kind::END || m_at == m_bytes.size();
        return isGood ? ProblemCode::NONE : ProblemCode::TEXT_AFTER_VALUE;
    }
    ProblemCode Decode(CEvent& event)
    {
        const std::string_view rest = m_bytes.substr(m_at);
        const auto* const data = reinterpret_cast<cbor_data>(rest.data());
        const cbor_decoder_result result = cbor_stream_decode(data, rest.size(), &CALLBACKS, &event);
        if (result.status == CBOR_DECODER_NEDATA) return ProblemCode::UNEXPECTED_END;
        if (result.status != CBOR_DECODER_FINISHED) return ProblemCode::SYNTAX;
        if (event.Kind == Kind::END) {
            event.Kind = m_nesting.EndKind();
            if (!m_nesting.MayEnd()) return ProblemCode::SYNTAX;
        }
        const bool isSized = event.Kind == Kind::BEGIN_ARRAY || event.Kind == Kind::BEGIN_OBJECT;
        if (isSized && event.Unsigned > rest.size() - result.read) return ProblemCode::UNEXPECTED_END;
        m_at += result.read;
        return ProblemCode::NONE;
    }

    const std::string_view m_bytes;
    std::size_t m_at = 0;
    CNesting m_nesting;
};

class CCborSink : public CEventSink {
public:
    explicit CCborSink(std::string& out) : m_out(out) {}

    CFormatAbilities Abilities() const override { return CborAbilities(); }
    void Null() override { PutItem(cbor_encode_null); }
    void Bool(bool value) override { PutItem(cbor_encode_bool, value); }
    void Signed(long long value) override
    {
        const auto bits = static_cast<std::uint64_t>(value);
        value < 0 ? Negative(~bits) : Unsigned(bits);
    }
    void Unsigned(unsigned long long value) override { PutItem(cbor_encode_uint, value); }
    void Negative(unsigned long long below) override { PutItem(cbor_encode_negint, below); }
    void Floating(double value) override // for libcbor itself loses digits of the smallest of two bytes
    {
        const std::string bytes = FloatingBytes(value);
        m_sizes.AddItem();
        m_out.append(1, bytes.size() == 2 ? '\xF9' : bytes.size() == 4 ? '\xFA' : '\xFB').append(bytes);
    }
    void String(std::string_view text) override { PutText(cbor_encode_string_start, text); }
    void Bytes(std::string_view bytes) override { PutText(cbor_encode_bytestring_start, bytes); }
    void Tag(ValueTag tag) override { m_out += Encoded(cbor_encode_tag, static_cast<std::uint64_t>(tag)); }
    void Key(std::string_view name) override { String(name); }
    void IntegerKey(long long key) override { Signed(key); }
    void BeginObject(std::size_t) override { m_sizes.Begin(m_out); }
    void EndObject() override { End(cbor_encode_map_start, 2); }
    void BeginArray(std::size_t) override { m_sizes.Begin(m_out); }
    void EndArray() override { End(cbor_encode_array_start, 1); }

private:
    template<class Encode, class... Value>
    static std::string Encoded(Encode encode, Value... value)
    {
        unsigned char head[9];
        const std::size_t size = encode(value..., head, sizeof head);
        return {reinterpret_cast<const char*>(head), size};
    }
    template<class Encode, class... Value>
    void PutItem(Encode encode, Value... value)
    {
        m_sizes.AddItem();
        m_out += Encoded(encode, value...);
    }
    template<class Encode>
    void PutText(Encode encode, std::string_view text)
    {
        PutItem(encode, text.size());
        m_out += text;
    }
    template<class Encode>
    void End(Encode encode, std::size_t itemsEach)
    {
        const CSizes::CLevel level = m_sizes.End();
        m_out.replace(level.Begin, 1, Encoded(encode, level.Items / itemsEach));
    }

    std::string& m_out;
    CSizes m_sizes;
};

} // namespace

bool ReadCbor(const CRefrence& target, std::string_view bytes, CReport& report, const CReadPolicy& policy,
              const detail::CEnumerationSlot* names)
{
    CCborSource source(bytes);
    return ReadEvents(target, source, report, policy, names);
}

bool WriteCbor(std::string& out, const CConstRefrence& ref, const CWritePolicy& policy, CReport* report,
               const detail::CEnumerationSlot* names)
{
    out.clear();
    CCborSink sink(out);
    return WriteEvents(sink, ref, policy, report, names);
}

} // namespace vexa
