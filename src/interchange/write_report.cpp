// Reports as JSON, for programs.

#include <vexa/detail/interchange.h>

#include "interchange/json_sink.h"
#include "interchange/sentence.h"

namespace vexa {

namespace interchange {

namespace {

/// Writes problems by the same sink as objects. A text that is empty says nothing, and is null.
template<bool STYLED>
class CProblemWriter {
public:
    CProblemWriter(CWriteContext& context, std::string& out) : m_context(context), m_sink(context, out) {}

    void Write(const std::vector<CProblem>& problems)
    {
        m_at = m_sink.BeginArray(m_sink.Begin(), problems.size());
        for (const CProblem& problem : problems) {
            m_at = m_sink.Element(m_at);
            Write(problem);
        }
        m_sink.End(m_sink.EndArray(m_at));
    }

private:
    void Write(const CProblem& problem)
    {
        m_at = m_sink.BeginObject(m_at, CEvent::UNKNOWN_SIZE);
        Number("code", static_cast<unsigned short>(problem.Code));
        Text("name", NameOf(problem.Code));
        Text("message", problem.Sentence());
        Place(problem.Place);
        Key("path");
        m_at = m_sink.Text(m_at, problem.Path, m_top);
        Key("pointer");
        m_at = m_sink.Text(m_at, problem.Pointer, m_top);
        Text("class", problem.Class);
        Text("attribute", problem.Attrib);
        Text("expected", problem.Expected);
        Text("found", problem.Found);
        Text("nearest", problem.Nearest);
        Text("excerpt", problem.Excerpt);
        Second(problem.Second);
        m_at = m_sink.EndObject(m_at);
    }
    void Second(const CTextPlace& place)
    {
        if (place.Offset == CTextPlace::NOWHERE) return Null("second");
        Key("second");
        m_at = m_sink.BeginObject(m_at, CEvent::UNKNOWN_SIZE);
        Place(place);
        m_at = m_sink.EndObject(m_at);
    }
    void Place(const CTextPlace& place)
    {
        const bool isKnown = place.Offset != CTextPlace::NOWHERE;
        NumberIf(isKnown, "offset", place.Offset);
        NumberIf(isKnown, "length", place.Length);
        NumberIf(place.Line != 0, "line", place.Line);
        NumberIf(place.Line != 0, "column", place.Column);
    }

    void Key(std::string_view name) { m_at = m_sink.Key(m_at, name, m_top); }
    void Null(std::string_view name)
    {
        if (m_context.Policy().LeaveOutNulls) return;
        Key(name);
        m_at = m_sink.Null(m_at);
    }
    void Number(std::string_view name, std::size_t value)
    {
        Key(name);
        m_at = m_sink.Integer(m_at, value);
    }
    void NumberIf(bool isKnown, std::string_view name, std::size_t value)
    {
        isKnown ? Number(name, value) : Null(name);
    }
    void Text(std::string_view name, std::string_view text)
    {
        if (text.empty()) return Null(name);
        Key(name);
        m_at = m_sink.Text(m_at, text, m_top);
    }

    CWriteContext& m_context;
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
