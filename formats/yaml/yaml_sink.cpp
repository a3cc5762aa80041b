// Objects as YAML, through libyaml's emitter.

#include <charconv>
#include <cmath>
#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/yaml.h>
#include <yaml.h>

#include "yaml_scalar.h"

namespace vexa {
namespace yaml {
namespace {

class CYamlSink : public CEventSink {
public:
    CYamlSink(std::string& out, const CWritePolicy& policy) : m_out(out)
    {
        constexpr int BLANKS = 2;
        constexpr unsigned int MOST_BLANKS = 9; // of libyaml
        if (yaml_emitter_initialize(&m_emitter) == 0) throw std::bad_alloc();
        yaml_emitter_set_output(&m_emitter, &CYamlSink::Append, this);
        yaml_emitter_set_width(&m_emitter, -1);
        yaml_emitter_set_unicode(&m_emitter, policy.AsciiOnly ? 0 : 1);
        const unsigned int blanks = policy.Indentation < MOST_BLANKS ? policy.Indentation : MOST_BLANKS;
        yaml_emitter_set_indent(&m_emitter, blanks < 2 ? BLANKS : static_cast<int>(blanks));
    }
    CYamlSink(const CYamlSink&) = delete;
    CYamlSink& operator=(const CYamlSink&) = delete;
    ~CYamlSink() override { yaml_emitter_delete(&m_emitter); }

    CFormatAbilities Abilities() const override
    {
        CFormatAbilities abilities;
        abilities.HasNan = true;
        abilities.TellsIntegersFromFloats = true;
        return abilities;
    }
    void Begin()
    {
        yaml_event_t event;
        Emit(event, yaml_stream_start_event_initialize(&event, YAML_UTF8_ENCODING));
        Emit(event, yaml_document_start_event_initialize(&event, nullptr, nullptr, nullptr, 1));
    }
    void End()
    {
        yaml_event_t event;
        Emit(event, yaml_document_end_event_initialize(&event, 1));
        Emit(event, yaml_stream_end_event_initialize(&event));
        yaml_emitter_flush(&m_emitter);
    }
    void Null() override { Plain("null"); }
    void Bool(bool value) override { Plain(value ? "true" : "false"); }
    void Signed(long long value) override { Plain(std::to_string(value)); }
    void Unsigned(unsigned long long value) override { Plain(std::to_string(value)); }
    void Floating(double value) override
    {
        if (std::isnan(value)) return Plain(".nan");
        if (std::isinf(value)) return Plain(value < 0 ? "-.inf" : ".inf");
        char digits[32];
        std::string text(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
        if (text.find_first_of(".e") == text.npos) text += ".0";
        Plain(text);
    }
    void Number(std::string_view digits) override { Plain(digits); }
    void String(std::string_view text) override
    {
        Scalar(text, IsPlainText(text) ? YAML_PLAIN_SCALAR_STYLE : YAML_DOUBLE_QUOTED_SCALAR_STYLE);
    }
    void Bytes(std::string_view bytes) override { String(bytes); }
    void DateTime(const CDateTime& time) override { String(time.AsString()); }
    void BeginObject(std::size_t) override
    {
        yaml_event_t event;
        Emit(event, yaml_mapping_start_event_initialize(&event, nullptr, nullptr, 1, YAML_BLOCK_MAPPING_STYLE));
    }
    void Key(std::string_view name) override { String(name); }
    void IntegerKey(long long key) override { Signed(key); }
    void EndObject() override
    {
        yaml_event_t event;
        Emit(event, yaml_mapping_end_event_initialize(&event));
    }
    void BeginArray(std::size_t) override
    {
        yaml_event_t event;
        Emit(event, yaml_sequence_start_event_initialize(&event, nullptr, nullptr, 1, YAML_BLOCK_SEQUENCE_STYLE));
    }
    void EndArray() override
    {
        yaml_event_t event;
        Emit(event, yaml_sequence_end_event_initialize(&event));
    }

private:
    static int Append(void* sink, unsigned char* bytes, std::size_t size) noexcept
    try {
        static_cast<CYamlSink*>(sink)->m_out.append(reinterpret_cast<const char*>(bytes), size);
        return 1;
    } catch (const std::bad_alloc&) {
        return 0;
    }
    /// The emitter takes the event over. What it refuses is not given to it: all else is a lack of memory.
    void Emit(yaml_event_t& event, int isMade)
    {
        if (isMade == 0 || yaml_emitter_emit(&m_emitter, &event) == 0) throw std::bad_alloc();
    }
    void Plain(std::string_view text) { Scalar(text, YAML_PLAIN_SCALAR_STYLE); }
    void Scalar(std::string_view text, yaml_scalar_style_t style)
    {
        if (text.size() > std::numeric_limits<int>::max()) throw std::bad_alloc();
        yaml_event_t event;
        const auto* const bytes = reinterpret_cast<const yaml_char_t*>(text.data());
        Emit(event, yaml_scalar_event_initialize(&event, nullptr, nullptr, text.empty() ? EMPTY : bytes,
                                                 static_cast<int>(text.size()), 1, 1, style));
    }

    static constexpr yaml_char_t EMPTY[] = {0};

    std::string& m_out;
    yaml_emitter_t m_emitter;
};

} // namespace
} // namespace yaml

bool WriteYaml(std::string& out, const CConstRefrence& ref, const CWritePolicy& policy, CReport* report,
               const detail::CEnumerationSlot* names)
{
    out.clear();
    yaml::CYamlSink sink(out, policy);
    sink.Begin();
    const bool isWritten = WriteEvents(sink, ref, policy, report, names);
    sink.End();
    return isWritten;
}

} // namespace vexa
