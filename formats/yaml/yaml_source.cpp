// Items as events.

#include "yaml_source.h"

#include <vexa/yaml.h>

#include "yaml_scalar.h"

namespace vexa {
namespace yaml {
namespace {

/// Whether a scalar that has been resolved is what its tag says.
bool IsOfTag(std::string_view tag, const CEvent& event)
{
    const bool isInteger = event.Kind == EventKind::SIGNED || event.Kind == EventKind::UNSIGNED;
    const bool isNumber = isInteger || event.Kind == EventKind::FLOATING;
    const bool isWhole = isNumber && !event.Text.empty() && event.Text.find_first_of(".eE") == event.Text.npos;
    if (tag == "null") return event.Kind == EventKind::NULL_VALUE;
    if (tag == "bool") return event.Kind == EventKind::BOOL;
    return tag == "int" ? isWhole : isNumber;
}

} // namespace

CFormatAbilities CYamlSource::Abilities() const
{
    CFormatAbilities abilities;
    abilities.HasNan = true;
    abilities.TellsIntegersFromFloats = true;
    return abilities;
}

bool CYamlSource::Next(CEvent& event, CProblem& problem)
{
    if (m_text.size() > m_policy.MaxBytes)
        return Fail(problem, ProblemCode::TOO_LONG, "", {m_policy.MaxBytes, 0, 0, 0});
    do {
        if (!Take(m_item, problem)) return false;
    } while (m_item.Kind == YAML_STREAM_START_EVENT || m_item.Kind == YAML_DOCUMENT_END_EVENT ||
             (m_item.Kind == YAML_DOCUMENT_START_EVENT && !m_hasValue));
    event.Offset = m_item.Place.Offset;
    event.Length = m_item.Place.Length;
    event.IsTextKept = false;
    event.Size = CEvent::UNKNOWN_SIZE;
    return Give(event, problem);
}

bool CYamlSource::Give(CEvent& event, CProblem& problem)
{
    const bool isInObject = !m_levels.empty() && m_levels.back().IsObject;
    const bool isKey = isInObject && m_levels.back().IsKeyNext;
    if (isInObject) m_levels.back().IsKeyNext = !isKey;
    const bool hadValue = m_hasValue;
    m_hasValue = true;
    switch (m_item.Kind) {
    case YAML_SCALAR_EVENT: return isKey ? GiveKey(event, problem) : GiveScalar(event, problem);
    case YAML_SEQUENCE_START_EVENT:
    case YAML_MAPPING_START_EVENT:
        if (isKey) return Fail(problem, ProblemCode::SYNTAX, "a scalar as key", m_item.Place);
        m_levels.emplace_back().IsObject = m_item.Kind == YAML_MAPPING_START_EVENT;
        event.Kind = m_levels.back().IsObject ? EventKind::BEGIN_OBJECT : EventKind::BEGIN_ARRAY;
        return true;
    case YAML_SEQUENCE_END_EVENT:
    case YAML_MAPPING_END_EVENT:
        event.Kind = m_levels.back().IsObject ? EventKind::END_OBJECT : EventKind::END_ARRAY;
        m_levels.pop_back();
        return true;
    case YAML_STREAM_END_EVENT:
        event.Kind = EventKind::END;
        return hadValue || Fail(problem, ProblemCode::UNEXPECTED_END, "a document", m_item.Place);
    default: return Fail(problem, ProblemCode::TEXT_AFTER_VALUE, "one document", m_item.Place);
    }
}

bool CYamlSource::GiveKey(CEvent& event, CProblem& problem)
{
    event.Kind = EventKind::KEY;
    event.Text = m_item.Text;
    if (m_policy.LastDuplicateWins) return true;
    const auto [first, isNew] = m_levels.back().Keys.emplace(m_item.Text, m_item.Place);
    if (isNew) return true;
    problem.Second = first->second;
    return Fail(problem, ProblemCode::DUPLICATE_KEY, "", m_item.Place);
}

bool CYamlSource::GiveScalar(CEvent& event, CProblem& problem)
{
    const std::string& tag = m_item.Tag;
    event.Kind = EventKind::STRING;
    event.Text = m_item.Text;
    const bool hasKind = tag == "null" || tag == "bool" || tag == "int" || tag == "float";
    const bool isResolved = hasKind || (m_item.IsPlain && tag.empty());
    if (isResolved && !Resolve(m_item.Text, event, m_number))
        return Fail(problem, ProblemCode::BAD_NUMBER, "a number of 64 bits", m_item.Place);
    if (hasKind && !IsOfTag(tag, event))
        return Fail(problem, ProblemCode::BAD_TEXT, "what the tag !!" + tag + " says", m_item.Place);
    if (tag == "float") {
        if (event.Kind == EventKind::SIGNED) event.Floating = static_cast<double>(event.Signed);
        if (event.Kind == EventKind::UNSIGNED) event.Floating = static_cast<double>(event.Unsigned);
        event.Kind = EventKind::FLOATING;
    }
    return true;
}

} // namespace yaml

bool ReadYaml(const CRefrence& target, std::string_view text, CReport& report, const CReadPolicy& policy,
              const detail::CEnumerationSlot* names)
{
    yaml::CYamlSource source(text, policy);
    return ReadEvents(target, source, report, policy, names);
}

} // namespace vexa
