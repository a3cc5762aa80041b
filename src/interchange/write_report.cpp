// Reports as JSON, for programs.

#include <vexa/detail/interchange.h>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "interchange/json_sink.h"
#include "interchange/sentence.h"

namespace vexa {

namespace interchange {

namespace {

/// Writes problems by the same sink as objects. A text that is empty says nothing, and is null.
template<bool STYLED>
class CProblemWriter {
public:
    CProblemWriter(CWriteContext& context, std::string& out) : m_policy(context.Policy()), m_sink(context, out) {}

    void Write(const std::vector<CProblem>& problems)
    {
        m_at = m_sink.Begin();
        if (m_policy.MaxDepth == 0) {
            m_at = m_sink.Null(m_at);
        } else {
            m_at = m_sink.BeginArray(m_at, problems.size());
            for (const CProblem& problem : problems) {
                m_at = m_sink.Element(m_at);
                Write(problem, 2);
            }
            m_at = m_sink.EndArray(m_at);
        }
        m_sink.End(m_at);
    }

private:
    /// A key, and what writes its value.
    struct CField {
        std::string_view Key;
        std::function<void()> Write; ///< none for null
    };

    void Write(const CProblem& problem, std::size_t depth)
    {
        std::vector<CField> fields{
            {"code", Number(static_cast<unsigned short>(problem.Code))},
            {"name", Text(NameOf(problem.Code))},
            {"message", [this, &problem] { m_at = m_sink.Text(m_at, problem.Sentence(), m_top); }}};
        AddPlace(fields, problem.Place);
        AddWay(fields, "path", problem.Path);
        AddWay(fields, "pointer", problem.Pointer);
        fields.insert(fields.end(), {{"class", Text(problem.Class)},
                                     {"attribute", Text(problem.Attrib)},
                                     {"expected", Text(problem.Expected)},
                                     {"found", Text(problem.Found)},
                                     {"nearest", Text(problem.Nearest)},
                                     {"excerpt", Text(problem.Excerpt)},
                                     {"second", Second(problem.Second, depth + 1)}});
        Object(std::move(fields), depth);
    }
    void AddPlace(std::vector<CField>& fields, const CTextPlace& place)
    {
        const bool isKnown = place.Offset != CTextPlace::NOWHERE;
        const bool hasLine = place.Line != 0;
        fields.insert(fields.end(), {{"offset", isKnown ? Number(place.Offset) : nullptr},
                                     {"length", isKnown ? Number(place.Length) : nullptr},
                                     {"line", hasLine ? Number(place.Line) : nullptr},
                                     {"column", hasLine ? Number(place.Column) : nullptr}});
    }
    /// The way to the outermost value is an empty text, as it is in a new problem.
    void AddWay(std::vector<CField>& fields, std::string_view key, const std::string& way)
    {
        if (way.empty() && m_policy.LeaveOutDefaults) return;
        fields.push_back({key, [this, &way] { m_at = m_sink.Text(m_at, way, m_top); }});
    }

    std::function<void()> Number(std::size_t value)
    {
        return [this, value] { m_at = m_sink.Integer(m_at, value); };
    }
    std::function<void()> Text(std::string_view text)
    {
        if (text.empty()) return nullptr;
        return [this, text] { m_at = m_sink.Text(m_at, text, m_top); };
    }
    std::function<void()> Second(const CTextPlace& place, std::size_t depth)
    {
        if (place.Offset == CTextPlace::NOWHERE) return nullptr;
        return [this, &place, depth] {
            std::vector<CField> fields;
            AddPlace(fields, place);
            Object(std::move(fields), depth);
        };
    }
    void Object(std::vector<CField> fields, std::size_t depth)
    {
        if (depth > m_policy.MaxDepth) {
            m_at = m_sink.Null(m_at);
            return;
        }
        if (m_policy.SortKeys)
            std::sort(fields.begin(), fields.end(),
                      [](const CField& left, const CField& right) { return left.Key < right.Key; });
        m_at = m_sink.BeginObject(m_at, CEvent::UNKNOWN_SIZE);
        for (const CField& field : fields)
            Put(field);
        m_at = m_sink.EndObject(m_at);
    }
    /// What is null is as in a new problem.
    void Put(const CField& field)
    {
        if (field.Write == nullptr && (m_policy.LeaveOutNulls || m_policy.LeaveOutDefaults)) return;
        m_at = m_sink.Key(m_at, field.Key, m_top);
        field.Write != nullptr ? field.Write() : static_cast<void>(m_at = m_sink.Null(m_at));
    }

    const CWritePolicy& m_policy;
    CJsonSink<STYLED> m_sink;
    char* m_at = nullptr;
    const CPathStep m_top;
};

} // namespace

} // namespace interchange

std::string WriteJson(const CReport& report, const CWritePolicy& policy)
{
    std::string out;
    interchange::CWriteContext context(policy, nullptr);
    if (policy.Indentation != 0 || policy.AsciiOnly)
        interchange::CProblemWriter<true>(context, out).Write(report.Problems());
    else
        interchange::CProblemWriter<false>(context, out).Write(report.Problems());
    return out;
}

} // namespace vexa
