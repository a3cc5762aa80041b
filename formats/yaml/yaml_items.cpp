// What libyaml tells, with aliases as what they stand for, and where it stands.

#include "yaml_source.h"

#include <algorithm>
#include <memory>
#include <new>

namespace vexa::yaml {
namespace {

constexpr std::size_t EVENT_BYTES = 8; // what an expanded event counts beside its text
constexpr std::size_t EXPANSION = std::size_t{8} << 20U;
constexpr std::size_t EXPANSION_FACTOR = 10;

std::string_view View(const yaml_char_t* text)
{
    return text != nullptr ? reinterpret_cast<const char*>(text) : std::string_view();
}

std::string TagOf(const yaml_char_t* tag)
{
    constexpr std::string_view PREFIX = "tag:yaml.org,2002:";
    const std::string_view whole = View(tag);
    if (whole == "!") return "!";
    return whole.substr(0, PREFIX.size()) == PREFIX ? std::string(whole.substr(PREFIX.size())) : std::string();
}

bool Begins(yaml_event_type_t kind) { return kind == YAML_SEQUENCE_START_EVENT || kind == YAML_MAPPING_START_EVENT; }
bool Ends(yaml_event_type_t kind) { return kind == YAML_SEQUENCE_END_EVENT || kind == YAML_MAPPING_END_EVENT; }

} // namespace

CYamlSource::CYamlSource(std::string_view text, const CReadPolicy& policy) : m_text(text), m_policy(policy)
{
    const bool isBounded = policy.MaxBytes != CReadPolicy::NO_LIMIT;
    m_maxBytes = isBounded ? policy.MaxBytes - std::min(policy.MaxBytes, text.size())
                           : std::max(EXPANSION, EXPANSION_FACTOR * text.size());
    if (yaml_parser_initialize(&m_parser) == 0) throw std::bad_alloc();
    yaml_parser_set_input_string(&m_parser, reinterpret_cast<const unsigned char*>(text.data()), text.size());
    yaml_parser_set_encoding(&m_parser, YAML_UTF8_ENCODING);
}

CYamlSource::~CYamlSource() { yaml_parser_delete(&m_parser); }

/// The next item: out of the innermost alias, else from libyaml.
bool CYamlSource::Take(CItem& item, CProblem& problem)
{
    for (;;) {
        while (!m_expanding.empty() && m_expanding.back().First == m_expanding.back().Last)
            m_expanding.pop_back();
        if (m_expanding.empty()) {
            if (!Parse(item, problem)) return false;
        } else {
            item = m_kept[m_expanding.back().First++];
            m_bytes += item.Text.size() + EVENT_BYTES;
            if (m_bytes > m_maxBytes) return Fail(problem, ProblemCode::TOO_LONG, "", item.Place);
        }
        if (item.Kind != YAML_ALIAS_EVENT) return true;
        m_expanding.push_back(item);
    }
}

bool CYamlSource::Parse(CItem& item, CProblem& problem)
{
    yaml_event_t parsed;
    if (yaml_parser_parse(&m_parser, &parsed) == 0) return FailAsLibrary(problem);
    const std::unique_ptr<yaml_event_t, void (*)(yaml_event_t*)> guard(&parsed, &yaml_event_delete);
    return Fill(item, parsed, problem);
}

bool CYamlSource::Fill(CItem& item, const yaml_event_t& parsed, CProblem& problem)
{
    item = CItem();
    item.Kind = parsed.type;
    item.Place = PlaceOf(parsed.start_mark, parsed.end_mark);
    const yaml_char_t* anchor = nullptr;
    if (parsed.type == YAML_SCALAR_EVENT) {
        const auto& scalar = parsed.data.scalar;
        item.Text.assign(reinterpret_cast<const char*>(scalar.value), scalar.length);
        item.Tag = TagOf(scalar.tag);
        item.IsPlain = scalar.style == YAML_PLAIN_SCALAR_STYLE;
        anchor = scalar.anchor;
    } else if (parsed.type == YAML_SEQUENCE_START_EVENT) {
        anchor = parsed.data.sequence_start.anchor;
    } else if (parsed.type == YAML_MAPPING_START_EVENT) {
        anchor = parsed.data.mapping_start.anchor;
    } else if (parsed.type == YAML_ALIAS_EVENT) {
        const auto found = m_anchors.find(std::string(View(parsed.data.alias.anchor)));
        if (found == m_anchors.end())
            return Fail(problem, ProblemCode::SYNTAX, "the alias of an anchor that ends before it", item.Place);
        item.First = found->second.First;
        item.Last = found->second.Last;
    }
    Keep(item, anchor);
    return true;
}

/// Keeps it while it lies in what has an anchor, and the anchor once that is whole.
void CYamlSource::Keep(const CItem& item, const yaml_char_t* anchor)
{
    if (Ends(item.Kind)) --m_depth;
    if (anchor != nullptr) m_open.push_back({std::string(View(anchor)), m_kept.size(), m_depth});
    if (!m_open.empty()) m_kept.push_back(item);
    if (Begins(item.Kind)) {
        ++m_depth;
    } else if (!m_open.empty() && m_open.back().Depth == m_depth) {
        CItem& alias = m_anchors[m_open.back().Name];
        alias.First = m_open.back().First;
        alias.Last = m_kept.size();
        m_open.pop_back();
    }
}

/// A problem of libyaml's, of which the message tells what was expected or found.
bool CYamlSource::FailAsLibrary(CProblem& problem)
{
    if (m_parser.error == YAML_MEMORY_ERROR) throw std::bad_alloc();
    const std::string_view message = m_parser.problem;
    if (m_parser.error == YAML_READER_ERROR) {
        const bool isControl = message.find("control") != message.npos;
        return Fail(problem, isControl ? ProblemCode::CONTROL_CHARACTER : ProblemCode::BAD_UTF8, "",
                    {m_parser.problem_offset, 1, 0, 0});
    }
    constexpr std::string_view EXPECTED = "find expected ";
    constexpr std::string_view FOUND = "found ";
    const CTextPlace place = PlaceOf(m_parser.problem_mark, m_parser.problem_mark);
    const std::size_t at = message.find(EXPECTED);
    if (at != message.npos) {
        Fail(problem, ProblemCode::SYNTAX, std::string(message.substr(at + EXPECTED.size())), place);
    } else {
        Fail(problem, ProblemCode::SYNTAX, "", place);
        problem.Found = message.substr(message.substr(0, FOUND.size()) == FOUND ? FOUND.size() : 0);
    }
    if (place.Offset >= m_text.size()) problem.Code = ProblemCode::UNEXPECTED_END;
    return false;
}

bool CYamlSource::Fail(CProblem& problem, ProblemCode code, const std::string& expected, const CTextPlace& place)
{
    problem.Code = code;
    problem.Expected = expected;
    problem.Place = place;
    return false;
}

CTextPlace CYamlSource::PlaceOf(const yaml_mark_t& start, const yaml_mark_t& end)
{
    CTextPlace place;
    place.Offset = ByteOf(start.index);
    place.Length = ByteOf(end.index) - place.Offset;
    return place;
}

/// Where a character begins. They come in order, or nearly so.
std::size_t CYamlSource::ByteOf(std::size_t character)
{
    const auto isInside = [this](std::size_t byte) { return byte < m_text.size() && (m_text[byte] & 0xC0) == 0x80; };
    for (; m_character < character && m_byte < m_text.size(); ++m_character)
        while (isInside(++m_byte)) {
        }
    for (; m_character > character; --m_character)
        while (isInside(--m_byte)) {
        }
    return m_byte;
}

void CYamlSource::Locate(CTextPlace& place)
{
    const std::string_view before = m_text.substr(0, place.Offset);
    place.Line = 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    place.Column = before.size() - (before.rfind('\n') + 1) + 1;
}

} // namespace vexa::yaml
