// YAML as events and from events, through libyaml's parser and emitter.

#include <vexa/yaml.h>

#include <algorithm>
#include <limits>
#include <new>

#include <vexa/format.h>
#include <yaml.h>

namespace vexa {
namespace {

CFormatAbilities YamlAbilities()
{
    CFormatAbilities abilities;
    abilities.HasNan = abilities.TellsIntegersFromFloats = true;
    return abilities;
}

std::string_view View(const yaml_char_t* text)
{
    return text != nullptr ? reinterpret_cast<const char*>(text) : std::string_view();
}

class CYamlSource : public CEventSource {
public:
    explicit CYamlSource(std::string_view text) : m_size(text.size()), m_places(text)
    {
        if (yaml_parser_initialize(&m_parser) == 0) throw std::bad_alloc();
        yaml_parser_set_input_string(&m_parser, reinterpret_cast<const yaml_char_t*>(text.data()), text.size());
        yaml_parser_set_encoding(&m_parser, YAML_UTF8_ENCODING);
    }
    ~CYamlSource() override
    {
        yaml_event_delete(&m_parsed);
        yaml_parser_delete(&m_parser);
    }
    CFormatAbilities Abilities() const override { return YamlAbilities(); }
    void Locate(CTextPlace& place) override { m_places.Locate(place); }
    bool Next(CEvent& event, CProblem& problem) override
    {
        do {
            yaml_event_delete(&m_parsed);
            if (yaml_parser_parse(&m_parser, &m_parsed) == 0) return Fail(problem);
        } while (m_parsed.type == YAML_STREAM_START_EVENT || m_parsed.type == YAML_DOCUMENT_START_EVENT ||
                 m_parsed.type == YAML_DOCUMENT_END_EVENT);
        m_places.SetPlace(event, m_parsed.start_mark.index, m_parsed.end_mark.index);
        Fill(event);
        m_nesting.Add(event);
        return true;
    }

private:
    void Fill(CEvent& event)
    {
        const auto& data = m_parsed.data;
        switch (m_parsed.type) {
        case YAML_ALIAS_EVENT: return Fill(event, EventKind::ALIAS, data.alias.anchor);
        case YAML_SCALAR_EVENT: return FillScalar(event);
        case YAML_SEQUENCE_START_EVENT: return Fill(event, EventKind::BEGIN_ARRAY, data.sequence_start.anchor);
        case YAML_MAPPING_START_EVENT: return Fill(event, EventKind::BEGIN_OBJECT, data.mapping_start.anchor);
        default: return Fill(event, m_nesting.EndKind(), nullptr);
        }
    }
    static void Fill(CEvent& event, EventKind kind, const yaml_char_t* anchor)
    {
        event.Kind = kind;
        event.Anchor = View(anchor);
    }
    void FillScalar(CEvent& event)
    {
        const auto& scalar = m_parsed.data.scalar;
        const std::string_view tag = View(scalar.tag);
        const bool isText = tag == "!" || tag == YAML_STR_TAG || tag == "tag:yaml.org,2002:binary";
        const bool isNoText =
            tag == YAML_INT_TAG || tag == YAML_FLOAT_TAG || tag == YAML_BOOL_TAG || tag == YAML_NULL_TAG;
        Fill(event, m_nesting.IsKeyDue() ? EventKind::KEY : EventKind::STRING, scalar.anchor);
        event.Text = {reinterpret_cast<const char*>(scalar.value), scalar.length};
        const bool isPlain = isNoText || (scalar.style == YAML_PLAIN_SCALAR_STYLE && !isText);
        if (event.Kind == EventKind::STRING && isPlain) SetPlain(event, event.Text, m_memory);
    }
    bool Fail(CProblem& problem)
    {
        if (m_parser.error == YAML_MEMORY_ERROR) throw std::bad_alloc();
        constexpr std::string_view EXPECTED = "did not find expected ";
        const std::string_view message = m_parser.problem;
        problem.Code = message.find("control") != message.npos ? ProblemCode::CONTROL_CHARACTER : ProblemCode::BAD_UTF8;
        problem.Place.Offset = m_parser.problem_offset;
        if (m_parser.error == YAML_READER_ERROR) return false;
        problem.Place = m_places.OfCharacters(m_parser.problem_mark.index, m_parser.problem_mark.index);
        problem.Code = problem.Place.Offset < m_size ? ProblemCode::SYNTAX : ProblemCode::UNEXPECTED_END;
        if (message.substr(0, EXPECTED.size()) == EXPECTED)
            problem.Expected = message.substr(EXPECTED.size());
        else
            problem.Found = message.substr(message.find("found ") == 0 ? sizeof "found" : 0);
        return false;
    }

    const std::size_t m_size;
    CTextPlaces m_places;
    CNesting m_nesting;
    std::string m_memory; ///< of a number that is written otherwise in JSON
    yaml_parser_t m_parser;
    yaml_event_t m_parsed{};
};

class CYamlSink : public CEventSink {
public:
    CYamlSink(std::string& out, const CWritePolicy& policy) : m_out(out)
    {
        if (yaml_emitter_initialize(&m_emitter) == 0) throw std::bad_alloc();
        yaml_emitter_set_output(&m_emitter, &CYamlSink::Append, this);
        yaml_emitter_set_width(&m_emitter, -1);
        yaml_emitter_set_unicode(&m_emitter, policy.AsciiOnly ? 0 : 1);
        yaml_emitter_set_indent(&m_emitter, static_cast<int>(std::clamp(policy.Indentation, 2U, 9U)));
        Emit(yaml_stream_start_event_initialize(&m_event, YAML_UTF8_ENCODING));
        Emit(yaml_document_start_event_initialize(&m_event, nullptr, nullptr, nullptr, 1));
    }
    ~CYamlSink() override { yaml_emitter_delete(&m_emitter); }

    CFormatAbilities Abilities() const override { return YamlAbilities(); }
    void Null() override { Number("null"); }
    void Bool(bool value) override { Number(value ? "true" : "false"); }
    void Signed(long long value) override { Number(std::to_string(value)); }
    void Unsigned(unsigned long long value) override { Number(std::to_string(value)); }
    void Float(float value) override { Number(PlainNumber(value)); }
    void Floating(double value) override { Number(PlainNumber(value)); }
    void LongDouble(long double value) override { Number(PlainNumber(value)); }
    void Number(std::string_view digits) override { Scalar(digits, YAML_PLAIN_SCALAR_STYLE); }
    void String(std::string_view text) override
    {
        Scalar(text, IsPlainText(text) ? YAML_PLAIN_SCALAR_STYLE : YAML_DOUBLE_QUOTED_SCALAR_STYLE);
    }
    void Key(std::string_view name) override { String(name); }
    void BeginObject(std::size_t) override
    {
        Emit(yaml_mapping_start_event_initialize(&m_event, nullptr, nullptr, 1, YAML_BLOCK_MAPPING_STYLE));
    }
    void EndObject() override { Emit(yaml_mapping_end_event_initialize(&m_event)); }
    void BeginArray(std::size_t) override
    {
        Emit(yaml_sequence_start_event_initialize(&m_event, nullptr, nullptr, 1, YAML_BLOCK_SEQUENCE_STYLE));
    }
    void EndArray() override { Emit(yaml_sequence_end_event_initialize(&m_event)); }
    void End()
    {
        Emit(yaml_document_end_event_initialize(&m_event, 1));
        Emit(yaml_stream_end_event_initialize(&m_event));
        yaml_emitter_flush(&m_emitter);
    }

private:
    static int Append(void* sink, unsigned char* bytes, std::size_t size) noexcept
    try {
        static_cast<CYamlSink*>(sink)->m_out.append(reinterpret_cast<const char*>(bytes), size);
        return 1;
    } catch (const std::bad_alloc&) {
        return 0;
    }
    /// The emitter takes m_event over. What it refuses is not given to it: all else is a lack of memory.
    void Emit(int isMade)
    {
        if (isMade == 0 || yaml_emitter_emit(&m_emitter, &m_event) == 0) throw std::bad_alloc();
    }
    void Scalar(std::string_view text, yaml_scalar_style_t style)
    {
        if (text.size() > std::numeric_limits<int>::max()) throw std::bad_alloc();
        const auto* const bytes = reinterpret_cast<const yaml_char_t*>(text.empty() ? "" : text.data());
        const auto size = static_cast<int>(text.size());
        Emit(yaml_scalar_event_initialize(&m_event, nullptr, nullptr, bytes, size, 1, 1, style));
    }

    std::string& m_out;
    yaml_emitter_t m_emitter;
    yaml_event_t m_event;
};

} // namespace

bool ReadYaml(const CRefrence& target, std::string_view text, CReport& report, const CReadPolicy& policy,
              const detail::CEnumerationSlot* names)
{
    CYamlSource source(text);
    return ReadEvents(target, source, report, policy, names);
}

bool WriteYaml(std::string& out, const CConstRefrence& ref, const CWritePolicy& policy, CReport* report,
               const detail::CEnumerationSlot* names)
{
    out.clear();
    CYamlSink sink(out, policy);
    const bool isWritten = WriteEvents(sink, ref, policy, report, names);
    sink.End();
    return isWritten;
}

} // namespace vexa
